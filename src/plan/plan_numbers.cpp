#include "plan/plan_numbers.h"

#include <algorithm>

namespace {

using R = TypologyRecord;
using P = PlanData;

constexpr PlanNumber kPlanNumbers[] = {
    {PlanKeyword::kAreaPlanta, true, "AREA-PLANTA", &R::areaPlanta, &P::areaPlanta},
    {PlanKeyword::kAreaPatio, false, "AREA-PATIO", &R::areaPatio, &P::areaPatio},
    {PlanKeyword::kAreaEscalera, false, "AREA-ESCALERA", &R::areaEscalera, &P::areaEscalera},
    {PlanKeyword::kLongitudFachada, true, "LONGITUD-FACHADA", &R::longitudFachada,
     &P::longitudFachada},
    {PlanKeyword::kProfundidadPatio, false, "PROFUNDIDAD-PATIO", &R::profundidadPatio,
     &P::profundidadPatio},
    {PlanKeyword::kProfundidadEscalera, false, "PROFUNDIDAD-ESCALERA", &R::profundidadEscalera,
     &P::profundidadEscalera},
};

}  // namespace

std::span<const PlanNumber> planNumbers() { return kPlanNumbers; }

std::string_view nameOf(PlanKeyword keyword) {
  if (keyword == PlanKeyword::kTipo) return "TIPO";
  return std::ranges::find(kPlanNumbers, keyword, &PlanNumber::keyword)->name;
}

PlanData planDataOf(const TypologyRecord& typology) {
  PlanData data{.tipo = typology.tipo};
  for (const PlanNumber& number : kPlanNumbers) {
    data.*number.inPlan = typology.*number.inTypology;
  }
  return data;
}

Fault faultIn(const TypologyRecord& typology, const PlanFault& broken) {
  return {broken.message, typology.placeOf(nameOf(broken.keywords.front()))};
}
