#include "plan/needed_measures.h"

#include <gtest/gtest.h>

#include "plan/ordinary_plan.h"
#include "plan/plan_fixture.h"
#include "typology/tipo.h"

TEST(NeedsMeasure, IsTrueWhereTheMeasureLeftOutEndsTheRun) {
  const struct {
    const char* keyword;
    float PlanData::*number;
  } measures[] = {
      {"AREA-PATIO", &PlanData::areaPatio},
      {"AREA-ESCALERA", &PlanData::areaEscalera},
      {"PROFUNDIDAD-PATIO", &PlanData::profundidadPatio},
      {"PROFUNDIDAD-ESCALERA", &PlanData::profundidadEscalera},
  };
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    for (const auto& measure : measures) {
      SCOPED_TRACE(std::to_string(tipo) + " " + measure.keyword);
      PlanData data = ordinaryPlan(tipo);
      data.*measure.number = 0;
      EXPECT_EQ(messageOf(planTipologia(data)) != kDrawn, needsMeasure(tipo, measure.keyword));
    }
  }
}

TEST(NeedsMeasure, IsFalseForAnyOtherKeywordAndANumberWithoutAPlan) {
  EXPECT_FALSE(needsMeasure(13, "AREA-PLANTA"));
  EXPECT_FALSE(needsMeasure(13, "ORIENTACION"));
  EXPECT_FALSE(needsMeasure(kLastTipo + 1, "AREA-PATIO"));
}

TEST(TiposWhere, SaysRunsOfNumbersByTheirEnds) {
  EXPECT_EQ("", tiposWhere([](int) { return false; }));
  EXPECT_EQ("1 a 23", tiposWhere([](int) { return true; }));
  EXPECT_EQ("1, 2, 4 a 6, 23", tiposWhere([](int tipo) {
              return tipo < 3 || (tipo > 3 && tipo < 7) || tipo == kLastTipo;
            }));
}
