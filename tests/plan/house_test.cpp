#include <gtest/gtest.h>

#include <limits>

#include "plan/plan_fixture.h"

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

constexpr auto kBadArea = "Área de planta no válida. Debe ser >30 y <1000";
constexpr auto kBadLength =
    "Longitud de fachada no válida. Debe ser >3 al igual que la profundidad";

PlanData house(float areaPlanta, float longitudFachada, int tipo = 1) {
  return {.tipo = tipo, .areaPlanta = areaPlanta, .longitudFachada = longitudFachada};
}

}  // namespace

TEST(PlanHouse, OfOneStoreyOnTenByTenMetres) {
  const Plan plan = drawn(planHouse(house(100, 10)));
  ASSERT_EQ(1U, plan.outlines.size());
  EXPECT_EQ((Vertices{{0, 0}, {10, 0}, {10, 10}, {0, 10}}), plan.outlines[0].vertices);
  EXPECT_EQ((PerFacade<int>{1, 1, 1, 1}), plan.numHuecosFachada);
  EXPECT_EQ((PerFacade<float>{30, 30, 30, 30}), plan.superficieFachada);
}

TEST(PlanHouse, OfOneStoreyHasOneBayAndThreeMetresAFacade) {
  const Plan plan = drawn(planHouse(house(96, 8)));
  EXPECT_EQ((Vertices{{0, 0}, {8, 0}, {8, 12}, {0, 12}}), plan.outlines[0].vertices);
  EXPECT_EQ((PerFacade<int>{1, 1, 1, 1}), plan.numHuecosFachada);
  EXPECT_EQ((PerFacade<float>{24, 36, 24, 36}), plan.superficieFachada);
}

TEST(PlanHouse, OfTwoStoreysHasTwoBaysAndSixMetresAFacade) {
  for (const int tipo : {2, 3, 9, 0, -1, -2147483647}) {
    SCOPED_TRACE(tipo);
    const Plan plan = drawn(planHouse(house(96, 8, tipo)));
    EXPECT_EQ((PerFacade<int>{2, 2, 2, 2}), plan.numHuecosFachada);
    EXPECT_EQ((PerFacade<float>{48, 72, 48, 72}), plan.superficieFachada);
  }
}

TEST(PlanHouse, HasNoCourtyard) {
  const Plan plan = drawn(planHouse(house(96, 8)));
  EXPECT_EQ((PerFacade<int>{0, 0, 0, 0}), plan.numHuecosPatio);
  EXPECT_EQ((PerFacade<float>{0, 0, 0, 0}), plan.superficiePatio);
}

TEST(PlanHouse, RejectsItsLimitsThemselves) {
  const LimitCase limits[] = {
      {"least area", &PlanData::areaPlanta, 30, Valid::kAbove, house(0, 4), kBadArea},
      {"largest area", &PlanData::areaPlanta, 1000, Valid::kBelow, house(0, 20), kBadArea},
      {"shortest façade", &PlanData::longitudFachada, 3, Valid::kAbove, house(100, 0), kBadLength},
      {"a depth of 3", &PlanData::longitudFachada, 100, Valid::kBelow, house(300, 0), kBadLength},
      {"a depth of 3, by its area", &PlanData::areaPlanta, 300, Valid::kAbove, house(0, 100),
       kBadLength},
  };
  expectLimits(planHouse, limits);
}

TEST(PlanHouse, FirstFailingCheckSpeaks) {
  const FaultCase faults[] = {
      {"both wrong", house(30, 3), kBadArea},
      {"the area too large, the façade too short", house(1000, 3), kBadArea},
      {"only the façade", house(31, 3), kBadLength},
  };
  expectFaults(planHouse, faults);
}

TEST(PlanHouse, RejectsWhatIsNotFinite) {
  const FaultCase faults[] = {
      {"area not a number", house(kNaN, 8), kBadArea},
      {"area infinite", house(kInfinity, 8), kBadArea},
      {"façade not a number", house(96, kNaN), kBadLength},
      {"façade infinite", house(96, kInfinity), kBadLength},
  };
  expectFaults(planHouse, faults);
}

TEST(PlanHouse, NumbersOfOtherFamiliesAreNoMatter) {
  PlanData data = house(96, 8);
  data.areaPatio = data.areaEscalera = data.profundidadPatio = data.profundidadEscalera = kNaN;
  EXPECT_EQ(kDrawn, messageOf(planHouse(data)));
}
