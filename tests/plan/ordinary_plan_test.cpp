#include "plan/ordinary_plan.h"

#include <gtest/gtest.h>

#include <vector>

#include "plan/families.h"
#include "plan/plan_fixture.h"
#include "typology/tipo.h"

namespace {

/// The measures that the number's family looks at.
std::vector<float PlanData::*> measuresOf(int tipo) {
  std::vector<float PlanData::*> measures = {&PlanData::areaPlanta, &PlanData::longitudFachada};
  for (const auto measure : {&PlanData::areaPatio, &PlanData::areaEscalera,
                             &PlanData::profundidadPatio, &PlanData::profundidadEscalera}) {
    if (familyRow(tipoRow(tipo).family).looksAt(measure)) measures.push_back(measure);
  }
  return measures;
}

bool canBeBuilt(PlanData data, float PlanData::*measure, double value) {
  data.*measure = static_cast<float>(value);
  return messageOf(planTipologia(data)) == kDrawn;
}

}  // namespace

TEST(OrdinaryPlan, CanBeBuiltForEveryNumber) {
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    EXPECT_EQ(kDrawn, messageOf(planTipologia(ordinaryPlan(tipo)))) << tipo;
    EXPECT_EQ(tipo, ordinaryPlan(tipo).tipo);
  }
}

TEST(OrdinaryPlan, IsOfAnOrdinaryDepth) {
  int deep = 0;
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    const auto& depth = familyRow(tipoRow(tipo).family).ordinaryDepth;
    if (!depth) continue;
    ++deep;
    const float back = drawn(planTipologia(ordinaryPlan(tipo))).outlines.front().vertices[2].y;
    EXPECT_GT(back, depth->from) << tipo;
    EXPECT_LT(back, depth->to) << tipo;
  }
  EXPECT_GT(deep, 0);
}

TEST(OrdinaryPlan, ANumberAboveTheLastHasNoMeasures) {
  EXPECT_EQ(0, ordinaryPlan(kLastTipo + 1).areaPlanta);
}

TEST(RangeIn, ItsEndsCanBeBuiltAndWhatIsOutsideCannot) {
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    const PlanData data = ordinaryPlan(tipo);
    for (const auto measure : measuresOf(tipo)) {
      const PlanRange range = rangeIn(data, measure);
      SCOPED_TRACE(testing::Message() << tipo << ": " << range.least << " to " << range.most);
      EXPECT_LT(range.least, data.*measure);
      EXPECT_GT(range.most, data.*measure);
      EXPECT_TRUE(canBeBuilt(data, measure, range.least));
      EXPECT_TRUE(canBeBuilt(data, measure, range.most));
      EXPECT_FALSE(canBeBuilt(data, measure, range.least - 0.01));
      EXPECT_FALSE(canBeBuilt(data, measure, range.most + 0.01));
    }
  }
}

TEST(RangeIn, EverythingBetweenItsEndsCanBeBuilt) {
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    const PlanData data = ordinaryPlan(tipo);
    for (const auto measure : measuresOf(tipo)) {
      const PlanRange range = rangeIn(data, measure);
      for (double value = range.least; value < range.most; value += 0.17) {
        ASSERT_TRUE(canBeBuilt(data, measure, value)) << tipo << ": " << value;
      }
    }
  }
}

TEST(RangeIn, AHouseHasTheLimitsOfItsChecks) {
  // The floor area alone may be 30 to 1000 m2; its depth must be more than 3 m.
  const PlanRange area =
      rangeIn({.tipo = 2, .areaPlanta = 72, .longitudFachada = 8}, &PlanData::areaPlanta);
  EXPECT_EQ(30.01, area.least);
  EXPECT_EQ(999.99, area.most);
  const PlanRange facade =
      rangeIn({.tipo = 2, .areaPlanta = 72, .longitudFachada = 8}, &PlanData::longitudFachada);
  EXPECT_EQ(3.01, facade.least);
  EXPECT_EQ(23.99, facade.most);
}
