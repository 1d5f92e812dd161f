#include <gtest/gtest.h>

#include <algorithm>

#include "plan/plan_fixture.h"

namespace {

void expectSamePlan(const Plan& expected, const Plan& plan) {
  EXPECT_EQ(expected.outlines, plan.outlines);
  EXPECT_EQ(expected.edgeCourtyards, plan.edgeCourtyards);
  EXPECT_EQ(expected.numHuecosFachada, plan.numHuecosFachada);
  EXPECT_EQ(expected.numHuecosPatio, plan.numHuecosPatio);
  EXPECT_EQ(expected.superficieFachada, plan.superficieFachada);
  EXPECT_EQ(expected.superficiePatio, plan.superficiePatio);
}

}  // namespace

TEST(PlanTipologia, EveryNumberHasItsFamily) {
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
}

TEST(PlanTipologia, FamiliesGiveTheSameNumbersDifferentPlans) {
  const Family families[] = {planHouse,     planRow,
                             planCourtyard, planCourtyardsInFacades,
                             planXpala,     planCourtyardsInSides,
                             planStairwell};
  std::vector<std::vector<Outline>> plans;
  for (const Family family : families) {
    const auto outlines = drawn(family(anyFamily(1))).outlines;
    EXPECT_EQ(0, std::count(plans.begin(), plans.end(), outlines)) << plans.size();
    plans.push_back(outlines);
  }
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

TEST(PlanTipologia, OutlinesOfABlockHave4Then10Then8Vertices) {
  for (const int tipo : {13, 14, 15, 22, 23}) {
    SCOPED_TRACE(tipo);
    std::vector<std::size_t> sizes;
    for (const Outline& outline : drawn(planTipologia(anyFamily(tipo))).outlines) {
      sizes.push_back(outline.vertices.size());
    }
    EXPECT_EQ((std::vector<std::size_t>{4, 10, 10, 10, 10, 8}), sizes);
  }
}

TEST(PlanTipologia, EveryOutlineHasItsRole) {
  const struct {
    int tipo;
    Role last;
    std::size_t edgeCourtyards;
  } cases[] = {{10, Role::kStair, 0}, {13, Role::kCourtyard, 0}, {14, Role::kStair, 2},
               {15, Role::kStair, 2}, {22, Role::kStair, 0},     {23, Role::kStair, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.tipo);
    const Plan plan = drawn(planTipologia(anyFamily(c.tipo)));
    expectRoles(plan, c.last);
    EXPECT_EQ(c.edgeCourtyards, plan.edgeCourtyards.size());
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
