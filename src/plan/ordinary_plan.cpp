#include "plan/ordinary_plan.h"

#include <cmath>
#include <variant>

#include "plan/families.h"
#include "typology/tipo.h"

namespace {

constexpr double kHundredths = 100;
constexpr long kNoPlanFrom = 1000000;  // hundredths: above what any number may be

bool canBeBuilt(PlanData data, float PlanData::*number, long hundredths) {
  data.*number = static_cast<float>(static_cast<double>(hundredths) / kHundredths);
  return std::holds_alternative<Plan>(planTipologia(data));
}

/// The last one of those that can be built, from `good` towards `bad`.
long lastGood(const PlanData& data, float PlanData::*number, long good, long bad) {
  while (std::abs(good - bad) > 1) {
    const long middle = (good + bad) / 2;
    (canBeBuilt(data, number, middle) ? good : bad) = middle;
  }
  return good;
}

}  // namespace

PlanData ordinaryPlan(int tipo) {
  PlanData data = familyRow(tipoRow(tipo).family).ordinary;
  data.tipo = tipo;
  return data;
}

PlanRange rangeIn(const PlanData& data, float PlanData::*number) {
  const long here = std::lround(static_cast<double>(data.*number) * kHundredths);
  return {static_cast<double>(lastGood(data, number, here, 0)) / kHundredths,
          static_cast<double>(lastGood(data, number, here, kNoPlanFrom)) / kHundredths};
}
