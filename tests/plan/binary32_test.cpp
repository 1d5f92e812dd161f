#include <gtest/gtest.h>

#include <cmath>

#include "plan/plan_fixture.h"

// A named length is rounded to a 32-bit real before the next formula uses it. The expected numbers
// were computed with fractions; behind each stands what an unrounded length would give.

TEST(Binary32, BlockDepthIsRoundedBeforeItIsUsed) {
  // D = 130 / 12.
  const Plan plan = drawn(planStairwell({.tipo = 23,
                                         .areaPlanta = 130,
                                         .areaEscalera = 9,
                                         .longitudFachada = 12,
                                         .profundidadEscalera = 4}));
  EXPECT_EQ(0x1.5aaaaap+3F, plan.outlines[0].vertices[2].y);
  EXPECT_EQ(0x1.b55554p+1F, plan.outlines[1].vertices[4].y);  // dF = D/2 - Pe/2; 0x1.b55556p+1
  EXPECT_EQ(0x1.ce38e2p+2F, plan.outlines[3].vertices[2].y);  // 2D/3; 0x1.ce38e4p+2
}

TEST(Binary32, StairLengthAndStripWidthAreRoundedBeforeTheyAreUsed) {
  // D = 132 / 15, le = 7 / D, w = (15 - le) / 4.
  const Plan plan =
      drawn(planRow({.tipo = 10, .areaPlanta = 132, .areaEscalera = 7, .longitudFachada = 15}));
  EXPECT_EQ(0x1.19999ap+3F, plan.outlines[0].vertices[2].y);
  EXPECT_EQ(0x1.c68ba4p+1F, plan.outlines[1].vertices[1].x);  // w; 0x1.c68ba2p+1
  EXPECT_EQ(9 * 0x1.9745dp-1F, plan.superficiePatio[0]);      // 9 le; le would be 0x1.9745d2p-1
}

TEST(Binary32, CourtyardLengthIsRoundedBeforeItIsUsed) {
  // D = 240 / 21, lp = 40 / 6.
  const Plan plan = drawn(planCourtyardsInFacades({.tipo = 14,
                                                   .areaPlanta = 200,
                                                   .areaPatio = 40,
                                                   .areaEscalera = 20,
                                                   .longitudFachada = 21,
                                                   .profundidadPatio = 3,
                                                   .profundidadEscalera = 4}));
  EXPECT_EQ(0x1.db6db8p+1F, plan.outlines[1].vertices[4].y);  // dE; 0x1.db6db6p+1
  EXPECT_EQ(0x1.caaaacp+2F, plan.outlines[1].vertices[1].x);  // (L - lp)/2; 0x1.caaaaap+2
}

TEST(Binary32, StripWidthIsRoundedBeforeTheStripsAreLaid) {
  // w = (15 - le) / 4, and the third strip ends at 3 w.
  const Plan plan =
      drawn(planRow({.tipo = 10, .areaPlanta = 130, .areaEscalera = 9, .longitudFachada = 15}));
  EXPECT_EQ(0x1.4f13bp+3F, plan.outlines[3].vertices[1].x);  // 0x1.4f13b2p+3
}

TEST(Binary32, SideDistanceOfACourtyardIsRoundedBeforeItIsUsed) {
  // dH = 11/2 - 40/14.
  const Plan plan = drawn(planCourtyard({.tipo = 13,
                                         .areaPlanta = 200,
                                         .areaPatio = 40,
                                         .longitudFachada = 11,
                                         .profundidadPatio = 7}));
  EXPECT_EQ(0x1.0b6db8p+3F, plan.outlines[2].vertices[7].x);  // L - dH; 0x1.0b6db6p+3
  EXPECT_EQ(0x1.9b6db8p+5F, plan.superficiePatio[0]);         // 9 (L - 2 dH); 0x1.9b6db6p+5
}

TEST(Binary32, FrontDistanceOfACourtyardIsRoundedBeforeItIsUsed) {
  // D = 230 / 13, dF = D/2 - 2.7/2.
  const Plan plan = drawn(planCourtyard({.tipo = 13,
                                         .areaPlanta = 200,
                                         .areaPatio = 30,
                                         .longitudFachada = 13,
                                         .profundidadPatio = 2.7F}));
  EXPECT_EQ(0x1.4646e4p+3F, plan.outlines[3].vertices[8].y);  // D - dF; 0x1.4646e6p+3
  EXPECT_EQ(0x1.84ccccp+4F, plan.superficiePatio[1]);         // 9 (D - 2 dF); 0x1.84cccep+4
}

TEST(Binary32, DistancesToTheStairAreRoundedBeforeTheyAreUsed) {
  const PlanData data{.tipo = 14,
                      .areaPlanta = 270,
                      .areaPatio = 20,
                      .areaEscalera = 25,
                      .longitudFachada = 11,
                      .profundidadPatio = 3,
                      .profundidadEscalera = 6.1F};
  for (const Family family : {planCourtyardsInFacades, planCourtyardsInSides}) {
    const Plan plan = drawn(family(data));
    EXPECT_EQ(0x1.03b588p+4F, plan.outlines[3].vertices[8].y);  // D - dE; 0x1.03b586p+4
    EXPECT_EQ(0x1.e325c4p+2F, plan.outlines[2].vertices[7].x);  // L - dPE; 0x1.e325c6p+2
  }
}

TEST(Binary32, WingLengthsAreRoundedOneAfterTheOther) {
  // Any one of the eight lengths kept unrounded changes one of these.
  const Plan plan = drawn(planXpala({.tipo = 22,
                                     .areaPlanta = 574,
                                     .areaEscalera = 200,
                                     .longitudFachada = 54,
                                     .profundidadEscalera = 11}));
  EXPECT_EQ(0x1.20ba3p+5F, plan.outlines[1].vertices[4].x);   // a + le; le or a: 0x1.20ba2ep+5
  EXPECT_EQ(0x1.5ab852p+3F, plan.outlines[1].vertices[3].y);  // d; xp: 0x1.5ab854p+3
  EXPECT_EQ(0x1.422774p+5F, plan.outlines[2].vertices[1].x);  // L - c/2; c: 0x1.422776p+5
  EXPECT_EQ(0x1.85ce76p+4F, plan.outlines[3].vertices[2].y);  // Db - e/2; d: 0x1.85ce78p+4
  EXPECT_EQ(0x1.3397ecp+4F, plan.outlines[4].vertices[7].y);  // e + b/2; b or e: 0x1.3397eep+4
}

TEST(Binary32, RoundedLengthDecidesACheck) {
  // D is a hair above Pp = 10, and rounds to it.
  const PlanData data{.tipo = 13,
                      .areaPlanta = std::nextafterf(500, 501),
                      .areaPatio = 300,
                      .longitudFachada = 80,
                      .profundidadPatio = 10};
  EXPECT_EQ("La distancia de la fachada al patio debe ser >0", messageOf(planCourtyard(data)));
}

TEST(Binary32, AreaIsRoundedOnceAndNotItsLengthBefore) {
  // 9 (L - le); with L - le rounded it would be 0x1.2d91b8p+7.
  const Plan plan =
      drawn(planRow({.tipo = 10, .areaPlanta = 130, .areaEscalera = 9, .longitudFachada = 18}));
  EXPECT_EQ(0x1.2d91bap+7F, plan.superficieFachada[0]);
}
