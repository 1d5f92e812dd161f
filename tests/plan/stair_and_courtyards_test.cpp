#include <gtest/gtest.h>

#include <limits>
#include <ostream>

#include "plan/plan_fixture.h"

// The two blocks with a stair-well and two courtyards. Of their sixteen checks "La longitud de
// fachada debe ser >0", "La profundidad del bloque debe ser >0", "La profundidad de la escalera no
// es válida", "La profundidad del patio debe ser >0", "La longitud del patio debe ser >0" and "La
// longitud de la escalera debe ser >0" cannot fail: the checks before them want L > 6, A > 124,
// Pp > 2, Pe > 2, Ap > 4 and Ae / Pe > 2.

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

constexpr auto kBadArea = "Área de planta no válida. Debe ser >124 y <4000";
constexpr auto kBadLength = "Longitud de fachada no válida. Debe ser >14 y la profundidad >3";
constexpr auto kBadCourtyard = "Área de patio no válida. Debe ser >4 y < area de planta - 120";
constexpr auto kBadCourtyardDepth =
    "Profundidad de patio no válida. Debe ser >2 al igual que la longitud";
constexpr auto kBadStair = "Área de escalera no válida. Debe ser >4 y < area de planta - 120";
constexpr auto kBadStairDepth =
    "Profundidad de escalera no válida. Debe ser >2 al igual que la longitud";
constexpr auto kNoFront = "La distancia de la fachada a la escalera debe ser >0";
constexpr auto kMeetsStair =
    "La profundidad del patio debe ser menor que la distancia de la fachada a la escalera";
constexpr auto kThroughBlock = "La profundidad del patio debe ser menor que la del bloque";
constexpr auto kLongCourtyard = "La longitud del patio debe ser menor que la de la fachada";
constexpr auto kNoSide = "La distancia del patio a la escalera debe ser >0";

PlanData block(float A, float L, float Ap, float Pp, float Ae, float Pe) {
  return {.tipo = 14,
          .areaPlanta = A,
          .areaPatio = Ap,
          .areaEscalera = Ae,
          .longitudFachada = L,
          .profundidadPatio = Pp,
          .profundidadEscalera = Pe};
}

/// The limits that both families test on the plan numbers themselves.
const LimitCase kSharedLimits[] = {
    {"least area", &PlanData::areaPlanta, 124, Valid::kAbove,
     block(0, 10, 4.000005F, 2.000001F, 4.000005F, 2.000001F), kBadArea},
    {"largest area", &PlanData::areaPlanta, 4000, Valid::kBelow, block(0, 50, 48, 8, 32, 8),
     kBadArea},
    {"shortest façade", &PlanData::longitudFachada, 6, Valid::kAbove,
     block(240, 0, 20, 9, 16.5F, 8), kBadLength},
    {"a depth of 6", &PlanData::longitudFachada, 100, Valid::kBelow,
     block(600, 0, 20, 2.01F, 8, 2.01F), kBadLength},
    {"a depth of 6, by the area", &PlanData::areaPlanta, 600, Valid::kAbove,
     block(0, 100, 20, 2.01F, 8, 2.01F), kBadLength},
    {"least courtyard", &PlanData::areaPatio, 4, Valid::kAbove,
     block(240, 12, 0, 2.0000002F, 32, 8), kBadCourtyard, kBadCourtyardDepth},
    {"largest courtyard", &PlanData::areaPatio, 120, Valid::kBelow,
     block(240, 20, 0, 7.5F, 5, 2.1F), kBadCourtyard},
    {"largest courtyard, by the area", &PlanData::areaPlanta, 240, Valid::kAbove,
     block(0, 20, 120, 7.5F, 5, 2.1F), kBadCourtyard},
    {"least courtyard depth", &PlanData::profundidadPatio, 2, Valid::kAbove,
     block(240, 12, 10, 0, 32, 8), kBadCourtyardDepth},
    {"two courtyards 1 long", &PlanData::profundidadPatio, 5, Valid::kBelow,
     block(240, 12, 10, 0, 32, 8), kBadCourtyardDepth},
    {"two courtyards 1 long, by their area", &PlanData::areaPatio, 10, Valid::kAbove,
     block(240, 12, 0, 5, 32, 8), kBadCourtyardDepth},
    {"least stair", &PlanData::areaEscalera, 4, Valid::kAbove, block(240, 12, 16, 4, 0, 2.0000002F),
     kBadStair, kBadStairDepth},
    {"largest stair", &PlanData::areaEscalera, 120, Valid::kBelow, block(240, 12, 6, 2.9F, 0, 13),
     kBadStair},
    {"largest stair, by the area", &PlanData::areaPlanta, 240, Valid::kAbove,
     block(0, 12, 6, 2.9F, 120, 13), kBadStair},
    {"least stair depth", &PlanData::profundidadEscalera, 2, Valid::kAbove,
     block(240, 12, 16, 4, 12, 0), kBadStairDepth},
    {"a stair 2 long", &PlanData::profundidadEscalera, 6, Valid::kBelow,
     block(240, 12, 16, 4, 12, 0), kBadStairDepth},
    {"a stair 2 long, by its area", &PlanData::areaEscalera, 12, Valid::kAbove,
     block(240, 12, 16, 4, 0, 6), kBadStairDepth},
};

/// In the order of the checks that both families share.
const FaultCase kSharedFaults[] = {
    {"all wrong", block(0, 0, 0, 0, 0, 0), kBadArea},
    {"the area passes", block(240, 0, 0, 0, 0, 0), kBadLength},
    {"the façade too", block(240, 20, 0, 0, 0, 0), kBadCourtyard},
    {"the courtyard's area too", block(240, 20, 60, 0, 0, 0), kBadCourtyardDepth},
    {"the courtyard's depth too", block(240, 20, 60, 20, 0, 0), kBadStair},
    {"the stair's area too", block(240, 20, 60, 20, 100, 0), kBadStairDepth},
    {"a stair too deep for its area and for the block", block(240, 20, 60, 20, 40, 20),
     kBadStairDepth},
    {"too deep for the block, as the courtyard is", block(240, 20, 60, 20, 40, 19), kNoFront},
};

const FaultCase kSharedNaNs[] = {
    {"area", block(kNaN, 12, 48, 4, 32, 8), kBadArea},
    {"façade", block(240, kNaN, 48, 4, 32, 8), kBadLength},
    {"courtyard", block(240, 12, kNaN, 4, 32, 8), kBadCourtyard},
    {"courtyard depth", block(240, 12, 48, kNaN, 32, 8), kBadCourtyardDepth},
    {"stair", block(240, 12, 48, 4, kNaN, 8), kBadStair},
    {"stair depth", block(240, 12, 48, 4, 32, kNaN), kBadStairDepth},
};

// What tells the families apart.

const LimitCase kLimitsInFacades[] = {
    {"a stair as deep as the block; just below, the courtyard meets it",
     &PlanData::profundidadEscalera, 12, Valid::kBelow, block(200, 20, 40, 3, 40, 0), kNoFront,
     kMeetsStair},
    {"a courtyard that meets the stair", &PlanData::profundidadPatio, 3, Valid::kBelow,
     block(200, 20, 40, 0, 20, 6), kMeetsStair},
    {"a courtyard as long as the façade", &PlanData::profundidadPatio, 4, Valid::kAbove,
     block(200, 8, 64, 0, 20, 6), kLongCourtyard},
    {"a stair as long as the façade", &PlanData::profundidadEscalera, 6, Valid::kAbove,
     block(200, 8, 20, 4, 48, 0), kNoSide},
};
const LimitCase kLimitsInSides[] = {
    {"a stair as deep as the block", &PlanData::profundidadEscalera, 12, Valid::kBelow,
     block(200, 20, 40, 3, 40, 0), kNoFront},
    {"courtyards as wide as the block is deep", &PlanData::profundidadPatio, 12, Valid::kBelow,
     block(200, 20, 40, 0, 20, 6), kThroughBlock},
    {"courtyards that meet; just apart, they meet the stair", &PlanData::profundidadPatio, 4,
     Valid::kAbove, block(200, 16, 64, 0, 20, 6), kLongCourtyard, kNoSide},
    {"courtyards that meet the stair: 6 m from the side", &PlanData::profundidadPatio, 4,
     Valid::kAbove, block(200, 16, 48, 0, 24, 6), kNoSide},
};

const FaultCase kFaultsInFacades[] = {
    {"meets the stair and is too long", block(300, 20, 150, 2.5F, 40, 18), kMeetsStair},
    {"too long, and so is the stair", block(200, 8, 64, 3.9F, 60, 6), kLongCourtyard},
    {"only the stair is too long", block(200, 8, 20, 4, 60, 6), kNoSide},
};
const FaultCase kFaultsInSides[] = {
    {"too wide for the block, and the stair too long", block(200, 20, 40, 13, 60, 2.5F),
     kThroughBlock},
    {"too long, and so is the stair", block(200, 16, 64, 3.9F, 70, 4), kLongCourtyard},
    {"only the stair is too long", block(200, 16, 48, 4, 70, 4), kNoSide},
};

struct CourtyardsFamily {
  const char* name;
  Family plan;
  PlanData example;  // a block of 12 m by 24 m, and what it gives
  std::vector<Vertices> outlines;
  PerFacade<int> numHuecosFachada;
  PerFacade<float> superficieFachada;
  PerFacade<float> superficiePatio;
  std::span<const LimitCase> limits;  // of the derived lengths
  std::span<const FaultCase> faults;
};

// D = 24, lp = 6, dE = 8, dPE = 4.
const CourtyardsFamily kInFacades =
    {.name = "InFacades",
     .plan = planCourtyardsInFacades,
     .example = block(240, 12, 48, 4, 32, 8),
     .outlines =
         {Vertices{{0, 0}, {12, 0}, {12, 24}, {0, 24}},
          Vertices{
              {0, 0}, {3, 0}, {3, 4}, {6, 4}, {6, 8}, {4, 8}, {4, 12}, {0, 12}, {0, 8}, {0, 4}},
          Vertices{
              {6, 4}, {9, 4}, {9, 0}, {12, 0}, {12, 4}, {12, 8}, {12, 12}, {8, 12}, {8, 8}, {6, 8}},
          Vertices{{8, 12},
                   {12, 12},
                   {12, 16},
                   {12, 20},
                   {12, 24},
                   {9, 24},
                   {9, 20},
                   {6, 20},
                   {6, 16},
                   {8, 16}},
          Vertices{{0, 12},
                   {4, 12},
                   {4, 16},
                   {6, 16},
                   {6, 20},
                   {3, 20},
                   {3, 24},
                   {0, 24},
                   {0, 20},
                   {0, 16}},
          Vertices{{4, 8}, {6, 8}, {8, 8}, {8, 12}, {8, 16}, {6, 16}, {4, 16}, {4, 12}}},
     .numHuecosFachada = {6, 18, 6, 18},
     .superficieFachada = {54, 216, 54, 216},
     .superficiePatio = {54, 72, 54, 72},
     .limits = kLimitsInFacades,
     .faults = kFaultsInFacades};

// D = 24, lp = 2, dE = 8, dPE = 4; courtyards from y = 6 to 18.
const CourtyardsFamily kInSides =
    {.name = "InSides",
     .plan = planCourtyardsInSides,
     .example = block(240, 12, 48, 12, 32, 8),
     .outlines =
         {Vertices{{0, 0}, {12, 0}, {12, 24}, {0, 24}},
          Vertices{
              {0, 0}, {2, 0}, {4, 0}, {6, 0}, {6, 8}, {4, 8}, {4, 12}, {2, 12}, {2, 6}, {0, 6}},
          Vertices{{6, 0},
                   {8, 0},
                   {10, 0},
                   {12, 0},
                   {12, 6},
                   {10, 6},
                   {10, 12},
                   {8, 12},
                   {8, 8},
                   {6, 8}},
          Vertices{{8, 12},
                   {10, 12},
                   {10, 18},
                   {12, 18},
                   {12, 24},
                   {10, 24},
                   {8, 24},
                   {6, 24},
                   {6, 16},
                   {8, 16}},
          Vertices{{2, 12},
                   {4, 12},
                   {4, 16},
                   {6, 16},
                   {6, 24},
                   {4, 24},
                   {2, 24},
                   {0, 24},
                   {0, 18},
                   {2, 18}},
          Vertices{{4, 8}, {6, 8}, {8, 8}, {8, 12}, {8, 16}, {6, 16}, {4, 16}, {4, 12}}},
     .numHuecosFachada = {18, 6, 18, 6},
     .superficieFachada = {108, 108, 108, 108},
     .superficiePatio = {36, 108, 36, 108},
     .limits = kLimitsInSides,
     .faults = kFaultsInSides};

/// How a test's listing names its family.
void PrintTo(const CourtyardsFamily* family, std::ostream* out) { *out << family->name; }

class PlanCourtyards : public testing::TestWithParam<const CourtyardsFamily*> {
 protected:
  const CourtyardsFamily& family_ = *GetParam();
};

}  // namespace

TEST_P(PlanCourtyards, HasFourQuartersAroundStairAndCourtyards) {
  const Plan plan = drawn(family_.plan(family_.example));
  ASSERT_EQ(family_.outlines.size(), plan.outlines.size());
  for (std::size_t i = 0; i < plan.outlines.size(); ++i) {
    EXPECT_EQ(family_.outlines[i], plan.outlines[i].vertices) << i;
  }
}

TEST_P(PlanCourtyards, HasTheseBaysAndAreas) {
  const Plan plan = drawn(family_.plan(family_.example));
  EXPECT_EQ(family_.numHuecosFachada, plan.numHuecosFachada);
  EXPECT_EQ(family_.superficieFachada, plan.superficieFachada);
  EXPECT_EQ((PerFacade<int>{6, 6, 6, 6}), plan.numHuecosPatio);
  EXPECT_EQ(family_.superficiePatio, plan.superficiePatio);
}

TEST(PlanCourtyardsInSides, SidesAreTheBlockWithoutTheCourtyards) {
  // D = 24, Pp = 8, lp = 3, dPE = 4: the four areas differ.
  const Plan plan = drawn(planCourtyardsInSides(block(240, 12, 48, 8, 32, 8)));
  EXPECT_EQ((PerFacade<float>{108, 144, 108, 144}), plan.superficieFachada);
  EXPECT_EQ((PerFacade<float>{54, 72, 54, 72}), plan.superficiePatio);
}

TEST_P(PlanCourtyards, RejectsItsLimitsThemselves) { expectLimits(family_.plan, kSharedLimits); }

TEST_P(PlanCourtyards, RejectsTheLimitsOfItsDerivedLengths) {
  expectLimits(family_.plan, family_.limits);
}

TEST_P(PlanCourtyards, FirstFailingCheckSpeaks) {
  expectFaults(family_.plan, kSharedFaults);
  expectFaults(family_.plan, family_.faults);
}

TEST_P(PlanCourtyards, RejectsWhatIsNotANumber) { expectFaults(family_.plan, kSharedNaNs); }

INSTANTIATE_TEST_SUITE_P(Plan, PlanCourtyards, testing::Values(&kInFacades, &kInSides),
                         [](const auto& family) { return std::string(family.param->name); });
