#include "typology/tipo.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();

}  // namespace

// The tables below are spelt again. Those whose last row goes on behind the last number hold for
// the numbers that have no row, and say nothing of one that gets a row later.
TEST(TipoRow, EveryNumberIsInTheTablesOfTheseTests) {
  constexpr int kLastHere = 23;
  EXPECT_EQ(kLastHere, kLastTipo)
      << "give the numbers from " << kLastHere + 1
      << " on what they mean in every test of this file, and then say here which is the last";
}

TEST(TipoRow, StoreysFollowTheNumber) {
  const struct {
    int from, to;
    int least, most;
  } cases[] = {
      {kLeast, kLeast, 1, kMost}, {-1, 0, 1, kMost},        {1, 1, 1, 1}, {2, 9, 2, 2},
      {10, 40, 3, kMost},         {kMost, kMost, 3, kMost},
  };
  for (const auto& c : cases) {
    for (long long tipo = c.from; tipo <= c.to; ++tipo) {
      SCOPED_TRACE(tipo);
      const StoreyRule& rule = tipoRow(static_cast<int>(tipo)).storeys;
      EXPECT_EQ(c.least, rule.least);
      EXPECT_EQ(c.most, rule.most);
    }
  }
}

TEST(TipoRow, BuildingClassFollowsTheNumber) {
  const struct {
    int from, to, buildingClass;
  } cases[] = {
      {kLeast, kLeast, 2}, {-1, 0, 2},  {1, 1, 1},   {2, 3, 2},   {4, 6, 3},         {7, 9, 4},
      {10, 12, 5},         {13, 21, 6}, {22, 22, 7}, {23, 40, 8}, {kMost, kMost, 8},
  };
  for (const auto& c : cases) {
    for (long long tipo = c.from; tipo <= c.to; ++tipo) {
      EXPECT_EQ(c.buildingClass, tipoRow(static_cast<int>(tipo)).buildingClass) << tipo;
    }
  }
}

TEST(TipoRow, OnlyThreeNumbersLookForCourtyardShades) {
  for (int tipo = -2; tipo <= 40; ++tipo) {
    SCOPED_TRACE(tipo);
    const TipoRow& row = tipoRow(tipo);
    EXPECT_EQ(tipo == 15 || tipo == 18 || tipo == 21, row.shades != CourtyardShades::kNotLookedFor);
    EXPECT_EQ(tipo == 15 || tipo == 21, row.firstShade());
    EXPECT_EQ(tipo == 18 || tipo == 21, row.secondShade());
  }
}

TEST(TipoRow, PlanCountsOneTwoOrThreeStoreys) {
  for (int tipo = -2; tipo <= 40; ++tipo) {
    EXPECT_EQ(tipo == 1 ? 1 : tipo < 10 ? 2 : 3, tipoRow(tipo).planStoreys) << tipo;
  }
}

TEST(TipoRow, ThereIsNoPlanAboveTheLastNumber) {
  for (int tipo = -2; tipo <= kLastTipo; ++tipo) {
    EXPECT_NE(PlanFamily::kNone, tipoRow(tipo).family) << tipo;
  }
  for (const int tipo : {kLastTipo + 1, 1000, kMost}) {
    EXPECT_EQ(PlanFamily::kNone, tipoRow(tipo).family) << tipo;
  }
}

TEST(TipoRow, CourtyardsAreInsideInTheFacadesOrInTheSidesByTurns) {
  using enum CourtyardPlace;
  for (int tipo = -2; tipo <= 40; ++tipo) {
    constexpr CourtyardPlace kTurn[] = {kInside, kInFacades, kInSides};
    const bool has = tipo >= 13 && tipo <= 21;
    EXPECT_EQ(has ? kTurn[(tipo - 13) % 3] : kNoCourtyard, tipoRow(tipo).courtyards) << tipo;
  }
}
