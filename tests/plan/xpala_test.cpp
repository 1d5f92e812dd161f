#include <gtest/gtest.h>

#include <limits>

#include "plan/plan_fixture.h"

// The stair core with four wings. Of its fourteen checks "La longitud de la fachada debe ser > 3",
// "La profundidad de la escalera debe ser > 2", "La longitud de la escalera debe ser > 2" and "La
// profundidad del bloque debe ser > 3" cannot fail: the checks before them want L > 9, Pe > 3,
// Ae / Pe > 3 and d > 2.

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

constexpr auto kBadArea = "Área de planta no válida. Debe ser >124 y <4000";
constexpr auto kBadLength = "Longitud de fachada no válida. Debe ser >14 y la profundidad >3";
constexpr auto kBadStair = "Área de escalera no válida. Debe ser >4 y < area de planta - 120";
constexpr auto kBadStairDepth =
    "Profundidad de escalera no válida. Debe ser >2 al igual que la longitud";
constexpr auto kLongerFacade =
    "Para el área de planta y de escalera, la longitud de la fachada debe ser mayor.";
constexpr auto kShortWing = "La longitud Xpala debe ser > 0";

PlanData core(float A, float L, float Ae, float Pe) {
  return {.tipo = 22,
          .areaPlanta = A,
          .areaEscalera = Ae,
          .longitudFachada = L,
          .profundidadEscalera = Pe};
}

}  // namespace

TEST(PlanXpala, HasFourWingsAroundItsCore) {
  // le = 20, a = 12, b = 9, xp = 18, c = 14, d = 6, Db = 22, e = 7.
  const Plan plan = drawn(planXpala(core(632, 44, 200, 10)));
  ASSERT_EQ(6U, plan.outlines.size());
  EXPECT_EQ((Vertices{{0, 0}, {44, 0}, {44, 22}, {0, 22}}), plan.outlines[0].vertices);
  EXPECT_EQ((Vertices{{21, 0},
                      {30, 0},
                      {30, 3},
                      {30, 6},
                      {32, 6},
                      {22, 6},
                      {12, 6},
                      {12, 7},
                      {12, 3.5F},
                      {12, 0}}),
            plan.outlines[1].vertices);
  EXPECT_EQ((Vertices{{30, 6},
                      {37, 6},
                      {44, 6},
                      {44, 10.5F},
                      {44, 15},
                      {38, 15},
                      {32, 15},
                      {32, 16},
                      {32, 11},
                      {32, 6}}),
            plan.outlines[2].vertices);
  EXPECT_EQ((Vertices{{32, 16},
                      {32, 15},
                      {32, 18.5F},
                      {32, 22},
                      {23, 22},
                      {14, 22},
                      {14, 19},
                      {14, 16},
                      {12, 16},
                      {22, 16}}),
            plan.outlines[3].vertices);
  EXPECT_EQ((Vertices{{12, 7},
                      {12, 6},
                      {12, 11},
                      {12, 16},
                      {14, 16},
                      {7, 16},
                      {0, 16},
                      {0, 11.5F},
                      {0, 7},
                      {6, 7}}),
            plan.outlines[4].vertices);
  EXPECT_EQ((Vertices{{22, 6}, {32, 6}, {32, 11}, {32, 16}, {22, 16}, {12, 16}, {12, 11}, {12, 6}}),
            plan.outlines[5].vertices);
}

TEST(PlanXpala, HasTheseBaysAndAreas) {
  const Plan plan = drawn(planXpala(core(632, 44, 200, 10)));
  EXPECT_EQ((PerFacade<int>{18, 18, 18, 18}), plan.numHuecosFachada);
  EXPECT_EQ((PerFacade<float>{396, 198, 396, 198}), plan.superficieFachada);
  EXPECT_EQ((PerFacade<int>{0, 0, 0, 0}), plan.numHuecosPatio);
  EXPECT_EQ((PerFacade<float>{0, 0, 0, 0}), plan.superficiePatio);
}

TEST(PlanXpala, RejectsItsLimitsThemselves) {
  const LimitCase limits[] = {
      {"least area, whatever the message says; then no stair is small enough",
       &PlanData::areaPlanta, 125, Valid::kAbove, core(0, 10, 40, 4), kBadArea, kBadStair},
      {"largest area", &PlanData::areaPlanta, 4000, Valid::kBelow, core(0, 70, 400, 20), kBadArea},
      {"shortest façade", &PlanData::longitudFachada, 9, Valid::kAbove, core(192, 0, 52, 13),
       kBadLength},
      {"a depth of 9", &PlanData::longitudFachada, 40, Valid::kBelow, core(360, 0, 100, 10),
       kBadLength},
      {"a depth of 9, by the area", &PlanData::areaPlanta, 360, Valid::kAbove, core(0, 40, 100, 10),
       kBadLength},
      {"least stair; then no depth is small enough", &PlanData::areaEscalera, 6, Valid::kAbove,
       core(360, 30, 0, 4), kBadStair, kBadStairDepth},
      {"largest stair", &PlanData::areaEscalera, 100, Valid::kBelow, core(220, 22, 0, 10),
       kBadStair},
      {"largest stair, by the area", &PlanData::areaPlanta, 220, Valid::kAbove,
       core(0, 22, 100, 10), kBadStair},
      {"least stair depth", &PlanData::profundidadEscalera, 3, Valid::kAbove, core(204, 20, 12, 0),
       kBadStairDepth},
      {"a stair 3 long", &PlanData::profundidadEscalera, 10, Valid::kBelow, core(230, 13, 30, 0),
       kBadStairDepth},
      {"a stair 3 long, by its area", &PlanData::areaEscalera, 30, Valid::kAbove,
       core(230, 13, 0, 10), kBadStairDepth},
  };
  expectLimits(planXpala, limits);
}

TEST(PlanXpala, RejectsTheLimitsOfItsDerivedLengths) {
  const LimitCase limits[] = {
      {"a = 2", &PlanData::longitudFachada, 13, Valid::kAbove, core(324, 0, 180, 20),
       kLongerFacade},
      {"b = 2", &PlanData::areaPlanta, 660, Valid::kAbove, core(0, 65, 500, 20), kLongerFacade},
      {"xp = 2", &PlanData::areaPlanta, 360, Valid::kAbove, core(0, 30, 200, 20), kShortWing},
      {"c = 2", &PlanData::areaPlanta, 1640, Valid::kBelow, core(0, 30, 200, 20), kLongerFacade},
      {"d = 2", &PlanData::profundidadEscalera, 8, Valid::kAbove, core(310, 30, 160, 0),
       kLongerFacade},
      {"e = 2", &PlanData::areaPlanta, 720, Valid::kBelow, core(0, 40, 200, 10), kLongerFacade},
  };
  expectLimits(planXpala, limits);
}

TEST(PlanXpala, FirstFailingCheckSpeaks) {
  const FaultCase faults[] = {
      {"all wrong", core(0, 0, 0, 0), kBadArea},
      {"the area passes", core(240, 0, 0, 0), kBadLength},
      {"the façade too", core(240, 20, 0, 0), kBadStair},
      {"the stair's area too", core(240, 20, 60, 0), kBadStairDepth},
      {"a stair too deep, and longer than the façade", core(240, 20, 100, 2), kBadStairDepth},
      {"longer than the façade: the wing is negative too", core(240, 20, 100, 4), kLongerFacade},
      {"b before the wing", core(460, 50, 300, 30), kLongerFacade},
      {"only the wing", core(480, 50, 300, 30), kShortWing},
  };
  expectFaults(planXpala, faults);
}

TEST(PlanXpala, RejectsWhatIsNotANumber) {
  const FaultCase faults[] = {
      {"area", core(kNaN, 44, 200, 10), kBadArea},
      {"façade", core(632, kNaN, 200, 10), kBadLength},
      {"stair", core(632, 44, kNaN, 10), kBadStair},
      {"stair depth", core(632, 44, 200, kNaN), kBadStairDepth},
  };
  expectFaults(planXpala, faults);
}

TEST(PlanXpala, AreaOf125FailsThoughTheMessageSays124) {
  EXPECT_EQ(kBadArea, messageOf(planXpala(core(125, 10, 40, 4))));
}
