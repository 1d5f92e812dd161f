#include <gtest/gtest.h>

#include <limits>
#include <ostream>

#include "plan/plan_fixture.h"

// The courtyard block and the stair-well block. Of their ten checks each, "La longitud de fachada
// debe ser >0", "La profundidad del bloque debe ser >0", "La profundidad del patio (de la escalera)
// debe ser >0" and "La longitud del patio (de la escalera) debe ser >0" cannot fail: the checks
// before them want L > 6, A > 120, Pp > 2 and Ap / Pp > 2.

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

constexpr auto kBadLength = "Longitud de fachada no válida. Debe ser >14 y la profundidad >3";

/// What tells the two families apart. The hole is the courtyard of one and the stair-well of the
/// other.
struct HoleFamily {
  const char* name;
  Family plan;
  int tipo;
  float PlanData::*area;  // of the hole
  float PlanData::*depth;
  bool holeIsFloor;  // it is part of the floor area

  const char* badArea;
  const char* badHole;
  const char* badDepth;
  const char* noFront;
  const char* noSide;

  PerFacade<int> numHuecosPatio;  // of the block of 12 m by 24 m
  PerFacade<float> superficiePatio;

  PlanData numbers(float A, float L, float holeArea, float holeDepth) const {
    PlanData data{.tipo = tipo, .areaPlanta = A, .longitudFachada = L};
    data.*area = holeArea;
    data.*depth = holeDepth;
    return data;
  }
  /// The numbers of a block of so many m2 in all.
  PlanData block(float all, float L, float holeArea, float holeDepth) const {
    return numbers(holeIsFloor ? all : all - holeArea, L, holeArea, holeDepth);
  }
};

const HoleFamily kCourtyard = {
    .name = "Courtyard",
    .plan = planCourtyard,
    .tipo = 13,
    .area = &PlanData::areaPatio,
    .depth = &PlanData::profundidadPatio,
    .holeIsFloor = false,
    .badArea = "Área de planta no válida. Debe ser >124 y <4000",
    .badHole = "Área de patio no válida. Debe ser >4 y < area de planta - 120",
    .badDepth = "Profundidad de patio no válida. Debe ser >2 al igual que la longitud",
    .noFront = "La distancia de la fachada al patio debe ser >0",
    .noSide = "La distancia horizontal de la fachada al patio debe ser >0",
    .numHuecosPatio = {6, 6, 6, 6},
    .superficiePatio = {54, 72, 54, 72}};

const HoleFamily kStairwell = {
    .name = "Stairwell",
    .plan = planStairwell,
    .tipo = 23,
    .area = &PlanData::areaEscalera,
    .depth = &PlanData::profundidadEscalera,
    .holeIsFloor = true,
    .badArea = "Área de planta no válida. Debe ser >120 y <4000",
    .badHole = "Área de escalera no válida. Debe ser >4 y < area de planta - 120",
    .badDepth = "Profundidad de escalera no válida. Debe ser >2 al igual que la longitud",
    .noFront = "La distancia de la fachada a la escalera debe ser >0",
    .noSide = "La distancia horizontal de la fachada a la escalera debe ser >0",
    .numHuecosPatio = {0, 0, 0, 0},
    .superficiePatio = {0, 0, 0, 0}};

/// How a test's listing names its family.
void PrintTo(const HoleFamily* family, std::ostream* out) { *out << family->name; }

class CentralHole : public testing::TestWithParam<const HoleFamily*> {
 protected:
  const HoleFamily& family_ = *GetParam();
};

}  // namespace

TEST_P(CentralHole, HasFourQuartersAroundIt) {
  expectQuartersOf12By24(drawn(family_.plan(family_.block(288, 12, 48, 8))));
}

TEST_P(CentralHole, HasTheseBaysAndAreas) {
  const Plan plan = drawn(family_.plan(family_.block(288, 12, 48, 8)));
  EXPECT_EQ((PerFacade<int>{18, 18, 18, 18}), plan.numHuecosFachada);
  EXPECT_EQ((PerFacade<float>{108, 216, 108, 216}), plan.superficieFachada);
  EXPECT_EQ(family_.numHuecosPatio, plan.numHuecosPatio);
  EXPECT_EQ(family_.superficiePatio, plan.superficiePatio);
}

TEST(PlanCourtyard, RejectsItsLeastArea) {
  const LimitCase limits[] = {{"least area", &PlanData::areaPlanta, 124, Valid::kAbove,
                               kCourtyard.numbers(0, 10, 4.000005F, 2.000001F),
                               "Área de planta no válida. Debe ser >124 y <4000"}};
  expectLimits(planCourtyard, limits);
}

TEST(PlanStairwell, RejectsItsLeastArea) {
  const LimitCase limits[] = {{"least area; then no stair is small enough", &PlanData::areaPlanta,
                               120, Valid::kAbove, kStairwell.numbers(0, 12, 48, 8),
                               "Área de planta no válida. Debe ser >120 y <4000",
                               "Área de escalera no válida. Debe ser >4 y < area de planta - 120"}};
  expectLimits(planStairwell, limits);
}

TEST_P(CentralHole, RejectsItsLimitsThemselves) {
  const HoleFamily& f = family_;
  const LimitCase limits[] = {
      {"largest area", &PlanData::areaPlanta, 4000, Valid::kBelow, f.numbers(0, 50, 48, 8),
       f.badArea},
      {"shortest façade", &PlanData::longitudFachada, 6, Valid::kAbove, f.numbers(240, 0, 48, 16),
       kBadLength},
      {"a depth of 6", &PlanData::longitudFachada, 100, Valid::kBelow, f.numbers(600, 0, 48, 4),
       kBadLength},
      {"a depth of 6, by the area", &PlanData::areaPlanta, 600, Valid::kAbove,
       f.numbers(0, 100, 48, 4), kBadLength},
      {"least hole", f.area, 4, Valid::kAbove, f.numbers(240, 12, 0, 2.0000002F), f.badHole,
       f.badDepth},
      {"largest hole", f.area, 120, Valid::kBelow, f.numbers(240, 12, 0, 16), f.badHole},
      {"largest hole, by the area", &PlanData::areaPlanta, 240, Valid::kAbove,
       f.numbers(0, 12, 120, 16), f.badHole},
      {"least depth", f.depth, 2, Valid::kAbove, f.numbers(240, 12, 20, 0), f.badDepth},
      {"a hole 2 long", f.depth, 10, Valid::kBelow, f.numbers(240, 12, 20, 0), f.badDepth},
      {"a hole 2 long, by its area", f.area, 20, Valid::kAbove, f.numbers(240, 12, 0, 10),
       f.badDepth},
      {"as deep as the block", f.depth, 12, Valid::kBelow, f.block(240, 20, 40, 0), f.noFront},
      {"as long as the façade", f.depth, 4, Valid::kAbove, f.block(240, 10, 40, 0), f.noSide},
  };
  expectLimits(f.plan, limits);
}

TEST_P(CentralHole, FirstFailingCheckSpeaks) {
  const HoleFamily& f = family_;
  const FaultCase faults[] = {
      {"all wrong", f.numbers(0, 0, 0, 0), f.badArea},
      {"the area passes", f.numbers(500, 0, 0, 0), kBadLength},
      {"the façade too", f.numbers(500, 20, 0, 0), f.badHole},
      {"the hole's area too", f.numbers(500, 20, 40, 0), f.badDepth},
      {"too deep for its area and for the block", f.numbers(240, 20, 100, 50), f.badDepth},
      {"too deep for the block", f.numbers(240, 20, 100, 49), f.noFront},
      {"too shallow, and longer than the façade", f.numbers(240, 10, 100, 1), f.badDepth},
      {"longer than the façade", f.numbers(240, 10, 100, 3), f.noSide},
      {"half as long again", f.numbers(240, 10, 100, 5), f.noSide},
  };
  expectFaults(f.plan, faults);
}

TEST_P(CentralHole, RejectsWhatIsNotANumber) {
  const HoleFamily& f = family_;
  const FaultCase faults[] = {
      {"area", f.numbers(kNaN, 12, 48, 8), f.badArea},
      {"façade", f.numbers(240, kNaN, 48, 8), kBadLength},
      {"hole", f.numbers(240, 12, kNaN, 8), f.badHole},
      {"depth", f.numbers(240, 12, 48, kNaN), f.badDepth},
  };
  expectFaults(f.plan, faults);
}

TEST_P(CentralHole, TenMetresOfFacadePassThoughTheMessageSays14) {
  EXPECT_EQ(kDrawn, messageOf(family_.plan(family_.numbers(500, 10, 48, 8))));
}

INSTANTIATE_TEST_SUITE_P(Plan, CentralHole, testing::Values(&kCourtyard, &kStairwell),
                         [](const auto& family) { return std::string(family.param->name); });
