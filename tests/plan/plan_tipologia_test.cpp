#include <gtest/gtest.h>

#include <algorithm>

#include "plan/families.h"
#include "plan/plan_fixture.h"
#include "typology/kinds_of_buildings.h"

namespace {

void expectSamePlan(const Plan& expected, const Plan& plan) {
  EXPECT_EQ(expected.outlines, plan.outlines);
  EXPECT_EQ(expected.edgeCourtyards, plan.edgeCourtyards);
  EXPECT_EQ(expected.numHuecosFachada, plan.numHuecosFachada);
  EXPECT_EQ(expected.numHuecosPatio, plan.numHuecosPatio);
  EXPECT_EQ(expected.superficieFachada, plan.superficieFachada);
  EXPECT_EQ(expected.superficiePatio, plan.superficiePatio);
}

struct FamilyShape {
  PlanFamily family;
  std::vector<std::size_t> vertices;  // of each outline, in writing order
  Role last;
  std::size_t edgeCourtyards;
};

const std::vector<std::size_t> kQuarters = {4, 10, 10, 10, 10, 8};

const FamilyShape kShapes[] = {
    {PlanFamily::kHouse, {4}, Role::kDwelling, 0},
    {PlanFamily::kRow, std::vector<std::size_t>(6, 4), Role::kStair, 0},
    {PlanFamily::kCourtyard, kQuarters, Role::kCourtyard, 0},
    {PlanFamily::kStairwell, kQuarters, Role::kStair, 0},
    {PlanFamily::kCourtyardsInFacades, kQuarters, Role::kStair, 2},
    {PlanFamily::kCourtyardsInSides, kQuarters, Role::kStair, 2},
    {PlanFamily::kXpala, kQuarters, Role::kStair, 0},
};

FamilyShape shapeOf(int tipo) {
  const PlanFamily family = tipoRow(tipo).family;
  const auto* row = std::ranges::find(kShapes, family, &FamilyShape::family);
  if (row != std::end(kShapes)) return *row;
  ADD_FAILURE() << "the family of TIPO " << tipo << ", \"" << familyRow(family).name
                << "\", is in no row of kShapes";
  return {};
}

}  // namespace

TEST(PlanTipologia, EveryNumberHasItsFamily) {
  // Spelt again: what the table of the numbers says is not asked here.
  const struct {
    int tipo;
    Family family;
  } cases[] = {
      {-2147483647, planHouse},
      {-1, planHouse},
      {0, planHouse},
      {1, planHouse},
      {2, planHouse},
      {3, planHouse},
      {4, planHouse},
      {5, planHouse},
      {6, planHouse},
      {7, planHouse},
      {8, planHouse},
      {9, planHouse},
      {10, planRow},
      {11, planRow},
      {12, planRow},
      {13, planCourtyard},
      {14, planCourtyardsInFacades},
      {15, planCourtyardsInSides},
      {16, planCourtyard},
      {17, planCourtyardsInFacades},
      {18, planCourtyardsInSides},
      {19, planCourtyard},
      {20, planCourtyardsInFacades},
      {21, planCourtyardsInSides},
      {22, planXpala},
      {23, planStairwell},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.tipo);
    const PlanData data = anyFamily(c.tipo);
    expectSamePlan(drawn(c.family(data)), drawn(planTipologia(data)));
  }
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    EXPECT_TRUE(std::ranges::any_of(cases, [&](const auto& c) { return c.tipo == tipo; }))
        << "TIPO " << tipo << " is in no row of this test: add it with its plan's function";
  }
}

TEST(PlanTipologia, FamiliesGiveTheSameNumbersDifferentPlans) {
  std::vector<std::vector<Outline>> plans;
  for (const FamilyRow& family : families()) {
    if (family.plan == nullptr) continue;
    SCOPED_TRACE(family.name);
    const auto outlines = drawn(family.plan(anyFamily(1))).outlines;
    EXPECT_EQ(0, std::ranges::count(plans, outlines));
    plans.push_back(outlines);
  }
  EXPECT_GE(plans.size(), 7U);
}

TEST(PlanTipologia, UnknownNumberShowsWhatIsLeftOfItsMessage) {
  const struct {
    int tipo;
    const char* message;
  } cases[] = {{24, ": "}, {25, " "}, {26, ""}, {27, ""}, {1000000, ""}, {2147483647, ""}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.tipo);
    EXPECT_EQ(c.message, messageOf(planTipologia(anyFamily(c.tipo))));
  }
}

TEST(PlanTipologia, OutlinesHaveTheVerticesOfTheirFamily) {
  for (const int tipo : oneTipoAKind()) {
    SCOPED_TRACE(tipo);
    std::vector<std::size_t> sizes;
    for (const Outline& outline : drawn(planTipologia(anyFamily(tipo))).outlines) {
      sizes.push_back(outline.vertices.size());
    }
    EXPECT_EQ(shapeOf(tipo).vertices, sizes);
  }
}

TEST(PlanTipologia, EveryOutlineHasItsRole) {
  for (const int tipo : oneTipoAKind()) {
    if (tipoRow(tipo).family == PlanFamily::kHouse) continue;
    SCOPED_TRACE(tipo);
    const Plan plan = drawn(planTipologia(anyFamily(tipo)));
    const FamilyShape shape = shapeOf(tipo);
    expectRoles(plan, shape.last);
    EXPECT_EQ(shape.edgeCourtyards, plan.edgeCourtyards.size());
  }
  const Plan house = drawn(planTipologia(anyFamily(1)));
  ASSERT_EQ(1U, house.outlines.size());
  EXPECT_EQ(Role::kDwelling, house.outlines[0].role);
}

TEST(PlanTipologia, UnknownNumberBlamesIt) {
  EXPECT_EQ(std::vector{PlanKeyword::kTipo}, blamed(planTipologia(anyFamily(24))));
}

TEST(PlanFailure, HoldsAllLimitsThatTellSomethingNew) {
  using enum PlanKeyword;
  const struct {
    const char* why;
    PlanData data;
    std::vector<PlanKeyword> keywords;
  } cases[] = {
      {"three numbers of their own",
       {.tipo = 13, .areaPlanta = 500, .areaPatio = 1, .longitudFachada = 2, .profundidadPatio = 1},
       {kLongitudFachada, kAreaPatio, kProfundidadPatio}},
      {"what is compared with a number that is wrong itself is no news",
       {.tipo = 13, .areaPlanta = 20, .areaPatio = 30, .longitudFachada = 8, .profundidadPatio = 4},
       {kAreaPlanta}},
      {"a number that is wrong by itself is",
       {.tipo = 13, .areaPlanta = 20, .areaPatio = 30, .longitudFachada = 2, .profundidadPatio = 3},
       {kAreaPlanta, kLongitudFachada}},
      {"a derived length, behind numbers that are fine",
       {.tipo = 13,
        .areaPlanta = 200,
        .areaPatio = 40,
        .longitudFachada = 10,
        .profundidadPatio = 3},
       {kLongitudFachada}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.keywords, blamed(planTipologia(c.data)));
  }
}

TEST(PlanTipologia, CourtyardsAreWhereTheNumbersRowSays) {
  for (const int tipo : oneTipoAKind()) {
    const Plan plan = drawn(planTipologia(anyFamily(tipo)));
    const bool inside = std::ranges::count(plan.outlines, Role::kCourtyard, &Outline::role) > 0;
    CourtyardPlace place = inside ? CourtyardPlace::kInside : CourtyardPlace::kNoCourtyard;
    if (!plan.edgeCourtyards.empty()) {
      const Vertex& corner = plan.edgeCourtyards.front().vertices.front();
      place = corner.x > 0 ? CourtyardPlace::kInFacades : CourtyardPlace::kInSides;
    }
    EXPECT_EQ(tipoRow(tipo).courtyards, place) << tipo;
  }
}
