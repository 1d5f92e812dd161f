#include "plan/ordinary_plan.h"

#include <array>
#include <cmath>
#include <variant>

#include "plan/families.h"
#include "typology/tipo.h"

namespace {

struct OrdinaryPlan {
  PlanFamily family;
  PlanData data;  // without the number
};

// Four dwellings of about 100 m2 a storey, or a house of two storeys of 72 m2. The courtyards are
// wide enough for four storeys.
constexpr std::array<OrdinaryPlan, 8> kOrdinary = {{
    {PlanFamily::kHouse, {.areaPlanta = 72, .longitudFachada = 8}},
    {PlanFamily::kRow, {.areaPlanta = 363, .areaEscalera = 33, .longitudFachada = 33}},
    {PlanFamily::kCourtyard,
     {.areaPlanta = 454, .areaPatio = 30, .longitudFachada = 22, .profundidadPatio = 5}},
    {PlanFamily::kStairwell,
     {.areaPlanta = 400, .areaEscalera = 20, .longitudFachada = 20, .profundidadEscalera = 4}},
    {PlanFamily::kCourtyardsInFacades,
     {.areaPlanta = 488,
      .areaPatio = 40,
      .areaEscalera = 25,
      .longitudFachada = 24,
      .profundidadPatio = 4,
      .profundidadEscalera = 5}},
    {PlanFamily::kCourtyardsInSides,
     {.areaPlanta = 480,
      .areaPatio = 40,
      .areaEscalera = 20,
      .longitudFachada = 26,
      .profundidadPatio = 5,
      .profundidadEscalera = 4}},
    {PlanFamily::kXpala,
     {.areaPlanta = 343, .areaEscalera = 23, .longitudFachada = 26, .profundidadEscalera = 4.6F}},
    {PlanFamily::kNone, {}},
}};

constexpr const OrdinaryPlan& ordinaryOf(PlanFamily family) {
  return kOrdinary[static_cast<std::size_t>(family)];
}

// The row of a family stands at its place and gives what the family looks at, nothing else.
static_assert([] {
  for (const OrdinaryPlan& row : kOrdinary) {
    const FamilyNeeds& needs = needsOf(row.family);
    const PlanData& data = row.data;
    if (&ordinaryOf(row.family) != &row || needs.areaPatio != (data.areaPatio > 0) ||
        needs.areaEscalera != (data.areaEscalera > 0) ||
        needs.profundidadPatio != (data.profundidadPatio > 0) ||
        needs.profundidadEscalera != (data.profundidadEscalera > 0)) {
      return false;
    }
  }
  return true;
}());

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
  PlanData data = ordinaryOf(tipoRow(tipo).family).data;
  data.tipo = tipo;
  return data;
}

PlanRange rangeIn(const PlanData& data, float PlanData::*number) {
  const long here = std::lround(static_cast<double>(data.*number) * kHundredths);
  return {static_cast<double>(lastGood(data, number, here, 0)) / kHundredths,
          static_cast<double>(lastGood(data, number, here, kNoPlanFrom)) / kHundredths};
}
