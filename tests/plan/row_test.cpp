#include <gtest/gtest.h>

#include <limits>

#include "plan/plan_fixture.h"

// "Datos geométricos incoherentes" cannot be met: behind the other checks D is above 3, le is
// positive and at most 0.97 L.

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

constexpr auto kBadArea = "Área de planta no válida. Debe ser >126 y <4000";
constexpr auto kBadLength = "Longitud de fachada no válida. Debe ser >14 y la profundidad >3";
constexpr auto kBadStair = "Área de escalera no válida. Debe ser >6 y < area de planta-120";

PlanData row(float areaPlanta, float longitudFachada, float areaEscalera) {
  return {.tipo = 10,
          .areaPlanta = areaPlanta,
          .areaEscalera = areaEscalera,
          .longitudFachada = longitudFachada};
}

}  // namespace

TEST(PlanRow, HasFourStripsAndAStairwellAtTheEnd) {
  // D = 12, le = 4, w = 4.
  const Plan plan = drawn(planRow(row(240, 20, 48)));
  ASSERT_EQ(6U, plan.outlines.size());
  EXPECT_EQ((Vertices{{0, 0}, {20, 0}, {20, 12}, {0, 12}}), plan.outlines[0].vertices);
  EXPECT_EQ((Vertices{{0, 0}, {4, 0}, {4, 12}, {0, 12}}), plan.outlines[1].vertices);
  EXPECT_EQ((Vertices{{4, 0}, {8, 0}, {8, 12}, {4, 12}}), plan.outlines[2].vertices);
  EXPECT_EQ((Vertices{{8, 0}, {12, 0}, {12, 12}, {8, 12}}), plan.outlines[3].vertices);
  EXPECT_EQ((Vertices{{12, 0}, {16, 0}, {16, 12}, {12, 12}}), plan.outlines[4].vertices);
  EXPECT_EQ((Vertices{{16, 0}, {20, 0}, {20, 12}, {16, 12}}), plan.outlines[5].vertices);
}

TEST(PlanRow, HasTheseBaysAndAreas) {
  const Plan plan = drawn(planRow(row(240, 20, 48)));
  EXPECT_EQ((PerFacade<int>{12, 3, 12, 3}), plan.numHuecosFachada);
  EXPECT_EQ((PerFacade<float>{144, 108, 144, 108}), plan.superficieFachada);
  EXPECT_EQ((PerFacade<int>{3, 0, 3, 0}), plan.numHuecosPatio);
  EXPECT_EQ((PerFacade<float>{36, 0, 36, 0}), plan.superficiePatio);
}

TEST(PlanRow, RejectsItsLimitsThemselves) {
  const LimitCase limits[] = {
      {"least area", &PlanData::areaPlanta, 126, Valid::kAbove, row(0, 20, 6.000003F), kBadArea},
      {"largest area", &PlanData::areaPlanta, 4000, Valid::kBelow, row(0, 50, 48), kBadArea},
      {"shortest façade", &PlanData::longitudFachada, 14, Valid::kAbove, row(240, 0, 48),
       kBadLength},
      {"a depth of 3", &PlanData::longitudFachada, 100, Valid::kBelow, row(300, 0, 48), kBadLength},
      {"a depth of 3, by its area", &PlanData::areaPlanta, 300, Valid::kAbove, row(0, 100, 48),
       kBadLength},
      {"least stair", &PlanData::areaEscalera, 6, Valid::kAbove, row(240, 20, 0), kBadStair},
      {"largest stair", &PlanData::areaEscalera, 120, Valid::kBelow, row(240, 20, 0), kBadStair},
      {"largest stair, by the area", &PlanData::areaPlanta, 240, Valid::kAbove, row(0, 20, 120),
       kBadStair},
  };
  expectLimits(planRow, limits);
}

TEST(PlanRow, FirstFailingCheckSpeaks) {
  const FaultCase faults[] = {
      {"all wrong", row(0, 0, 0), kBadArea},
      {"the area passes", row(240, 0, 0), kBadLength},
      {"the area and the façade pass", row(240, 20, 0), kBadStair},
  };
  expectFaults(planRow, faults);
}

TEST(PlanRow, RejectsWhatIsNotANumber) {
  const FaultCase faults[] = {
      {"area", row(kNaN, 20, 48), kBadArea},
      {"façade", row(240, kNaN, 48), kBadLength},
      {"stair", row(240, 20, kNaN), kBadStair},
  };
  expectFaults(planRow, faults);
}

TEST(PlanRow, WidestStairLeavesFourThinStrips) {
  // The stair takes all but 120 of 3999 m2: even so no length vanishes.
  const Plan plan = drawn(planRow(row(3999, 14.5F, 3878)));
  EXPECT_GT(plan.outlines[1].vertices[1].x, 0.1F);
}
