#include <gtest/gtest.h>

#include <limits>

#include "plan/plan_fixture.h"

// The courtyard block and the stair-well block. Of their ten checks each, "La longitud de fachada
// debe ser >0", "La profundidad del bloque debe ser >0", "La profundidad del patio (de la escalera)
// debe ser >0" and "La longitud del patio (de la escalera) debe ser >0" cannot fail: the checks
// before them want L > 6, A > 120, Pp > 2 and Ap / Pp > 2.

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

constexpr auto kBadLength = "Longitud de fachada no válida. Debe ser >14 y la profundidad >3";

/// The hole is the courtyard of one family and the stair-well of the other.
PlanData courtyard(float A, float L, float Ap, float Pp) {
  return {
      .tipo = 13, .areaPlanta = A, .areaPatio = Ap, .longitudFachada = L, .profundidadPatio = Pp};
}

PlanData stairwell(float A, float L, float Ae, float Pe) {
  return {.tipo = 23,
          .areaPlanta = A,
          .areaEscalera = Ae,
          .longitudFachada = L,
          .profundidadEscalera = Pe};
}

}  // namespace

namespace courtyard_block {

constexpr auto kBadArea = "Área de planta no válida. Debe ser >124 y <4000";
constexpr auto kBadHole = "Área de patio no válida. Debe ser >4 y < area de planta - 120";
constexpr auto kBadDepth = "Profundidad de patio no válida. Debe ser >2 al igual que la longitud";
constexpr auto kNoFront = "La distancia de la fachada al patio debe ser >0";
constexpr auto kNoSide = "La distancia horizontal de la fachada al patio debe ser >0";

TEST(PlanCourtyard, HasFourQuartersAroundItsCourtyard) {
  expectQuartersOf12By24(drawn(planCourtyard(courtyard(240, 12, 48, 8))));
}

TEST(PlanCourtyard, HasTheseBaysAndAreas) {
  const Plan plan = drawn(planCourtyard(courtyard(240, 12, 48, 8)));
  EXPECT_EQ((PerFacade<int>{18, 18, 18, 18}), plan.numHuecosFachada);
  EXPECT_EQ((PerFacade<float>{108, 216, 108, 216}), plan.superficieFachada);
  EXPECT_EQ((PerFacade<int>{6, 6, 6, 6}), plan.numHuecosPatio);
  EXPECT_EQ((PerFacade<float>{54, 72, 54, 72}), plan.superficiePatio);
}

TEST(PlanCourtyard, RejectsItsLimitsThemselves) {
  const LimitCase limits[] = {
      {"least area", &PlanData::areaPlanta, 124, Valid::kAbove,
       courtyard(0, 10, 4.000005F, 2.000001F), kBadArea},
      {"largest area", &PlanData::areaPlanta, 4000, Valid::kBelow, courtyard(0, 50, 48, 8),
       kBadArea},
      {"shortest façade", &PlanData::longitudFachada, 6, Valid::kAbove, courtyard(240, 0, 48, 16),
       kBadLength},
      {"a depth of 6", &PlanData::longitudFachada, 100, Valid::kBelow, courtyard(600, 0, 48, 4),
       kBadLength},
      {"a depth of 6, by the area", &PlanData::areaPlanta, 600, Valid::kAbove,
       courtyard(0, 100, 48, 4), kBadLength},
      {"least courtyard", &PlanData::areaPatio, 4, Valid::kAbove, courtyard(240, 12, 0, 2.0000002F),
       kBadHole, kBadDepth},
      {"largest courtyard", &PlanData::areaPatio, 120, Valid::kBelow, courtyard(240, 12, 0, 16),
       kBadHole},
      {"largest courtyard, by the area", &PlanData::areaPlanta, 240, Valid::kAbove,
       courtyard(0, 12, 120, 16), kBadHole},
      {"least depth", &PlanData::profundidadPatio, 2, Valid::kAbove, courtyard(240, 12, 20, 0),
       kBadDepth},
      {"a courtyard 2 long", &PlanData::profundidadPatio, 10, Valid::kBelow,
       courtyard(240, 12, 20, 0), kBadDepth},
      {"a courtyard 2 long, by its area", &PlanData::areaPatio, 20, Valid::kAbove,
       courtyard(240, 12, 0, 10), kBadDepth},
      {"as deep as the block", &PlanData::profundidadPatio, 12, Valid::kBelow,
       courtyard(200, 20, 40, 0), kNoFront},
      {"as long as the façade", &PlanData::profundidadPatio, 4, Valid::kAbove,
       courtyard(200, 10, 40, 0), kNoSide},
  };
  expectLimits(planCourtyard, limits);
}

TEST(PlanCourtyard, FirstFailingCheckSpeaks) {
  const FaultCase faults[] = {
      {"all wrong", courtyard(0, 0, 0, 0), kBadArea},
      {"the area passes", courtyard(500, 0, 0, 0), kBadLength},
      {"the façade too", courtyard(500, 20, 0, 0), kBadHole},
      {"the courtyard's area too", courtyard(500, 20, 40, 0), kBadDepth},
      {"too deep for its area and for the block", courtyard(240, 20, 100, 50), kBadDepth},
      {"too deep for the block", courtyard(240, 20, 100, 49), kNoFront},
      {"too shallow, and longer than the façade", courtyard(240, 10, 100, 1), kBadDepth},
      {"longer than the façade", courtyard(240, 10, 100, 3), kNoSide},
  };
  expectFaults(planCourtyard, faults);
}

TEST(PlanCourtyard, RejectsWhatIsNotANumber) {
  const FaultCase faults[] = {
      {"area", courtyard(kNaN, 12, 48, 8), kBadArea},
      {"façade", courtyard(240, kNaN, 48, 8), kBadLength},
      {"courtyard", courtyard(240, 12, kNaN, 8), kBadHole},
      {"depth", courtyard(240, 12, 48, kNaN), kBadDepth},
  };
  expectFaults(planCourtyard, faults);
}

TEST(PlanCourtyard, TenMetresOfFacadePassThoughTheMessageSays14) {
  EXPECT_EQ(kDrawn, messageOf(planCourtyard(courtyard(500, 10, 48, 8))));
}

}  // namespace courtyard_block

namespace stairwell_block {

constexpr auto kBadArea = "Área de planta no válida. Debe ser >120 y <4000";
constexpr auto kBadHole = "Área de escalera no válida. Debe ser >4 y < area de planta - 120";
constexpr auto kBadDepth =
    "Profundidad de escalera no válida. Debe ser >2 al igual que la longitud";
constexpr auto kNoFront = "La distancia de la fachada a la escalera debe ser >0";
constexpr auto kNoSide = "La distancia horizontal de la fachada a la escalera debe ser >0";

TEST(PlanStairwell, HasFourQuartersAroundItsStairwell) {
  // The block's depth comes from the area without the stair: 288 / 12.
  expectQuartersOf12By24(drawn(planStairwell(stairwell(288, 12, 48, 8))));
}

TEST(PlanStairwell, HasTheseBaysAndAreas) {
  const Plan plan = drawn(planStairwell(stairwell(288, 12, 48, 8)));
  EXPECT_EQ((PerFacade<int>{18, 18, 18, 18}), plan.numHuecosFachada);
  EXPECT_EQ((PerFacade<float>{108, 216, 108, 216}), plan.superficieFachada);
  EXPECT_EQ((PerFacade<int>{0, 0, 0, 0}), plan.numHuecosPatio);
  EXPECT_EQ((PerFacade<float>{0, 0, 0, 0}), plan.superficiePatio);
}

TEST(PlanStairwell, RejectsItsLimitsThemselves) {
  const LimitCase limits[] = {
      {"least area; then no stair is small enough", &PlanData::areaPlanta, 120, Valid::kAbove,
       stairwell(0, 12, 48, 8), kBadArea, kBadHole},
      {"largest area", &PlanData::areaPlanta, 4000, Valid::kBelow, stairwell(0, 50, 48, 8),
       kBadArea},
      {"shortest façade", &PlanData::longitudFachada, 6, Valid::kAbove, stairwell(240, 0, 48, 16),
       kBadLength},
      {"a depth of 6", &PlanData::longitudFachada, 100, Valid::kBelow, stairwell(600, 0, 48, 4),
       kBadLength},
      {"a depth of 6, by the area", &PlanData::areaPlanta, 600, Valid::kAbove,
       stairwell(0, 100, 48, 4), kBadLength},
      {"least stair", &PlanData::areaEscalera, 4, Valid::kAbove, stairwell(240, 12, 0, 2.0000002F),
       kBadHole, kBadDepth},
      {"largest stair", &PlanData::areaEscalera, 120, Valid::kBelow, stairwell(240, 12, 0, 16),
       kBadHole},
      {"largest stair, by the area", &PlanData::areaPlanta, 240, Valid::kAbove,
       stairwell(0, 12, 120, 16), kBadHole},
      {"least depth", &PlanData::profundidadEscalera, 2, Valid::kAbove, stairwell(240, 12, 20, 0),
       kBadDepth},
      {"a stair 2 long", &PlanData::profundidadEscalera, 10, Valid::kBelow,
       stairwell(240, 12, 20, 0), kBadDepth},
      {"a stair 2 long, by its area", &PlanData::areaEscalera, 20, Valid::kAbove,
       stairwell(240, 12, 0, 10), kBadDepth},
      {"as deep as the block", &PlanData::profundidadEscalera, 12, Valid::kBelow,
       stairwell(240, 20, 40, 0), kNoFront},
      {"as long as the façade", &PlanData::profundidadEscalera, 4, Valid::kAbove,
       stairwell(240, 10, 40, 0), kNoSide},
  };
  expectLimits(planStairwell, limits);
}

TEST(PlanStairwell, FirstFailingCheckSpeaks) {
  const FaultCase faults[] = {
      {"all wrong", stairwell(0, 0, 0, 0), kBadArea},
      {"the area passes", stairwell(500, 0, 0, 0), kBadLength},
      {"the façade too", stairwell(500, 20, 0, 0), kBadHole},
      {"the stair's area too", stairwell(500, 20, 40, 0), kBadDepth},
      {"too deep for its area and for the block", stairwell(240, 20, 100, 50), kBadDepth},
      {"too deep for the block", stairwell(240, 20, 100, 49), kNoFront},
      {"too shallow, and longer than the façade", stairwell(240, 10, 100, 1), kBadDepth},
      {"longer than the façade", stairwell(240, 10, 100, 5), kNoSide},
  };
  expectFaults(planStairwell, faults);
}

TEST(PlanStairwell, RejectsWhatIsNotANumber) {
  const FaultCase faults[] = {
      {"area", stairwell(kNaN, 12, 48, 8), kBadArea},
      {"façade", stairwell(240, kNaN, 48, 8), kBadLength},
      {"stair", stairwell(240, 12, kNaN, 8), kBadHole},
      {"depth", stairwell(240, 12, 48, kNaN), kBadDepth},
  };
  expectFaults(planStairwell, faults);
}

}  // namespace stairwell_block
