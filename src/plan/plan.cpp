#include "plan/plan.h"

#include <algorithm>

#include "core/cp1252.h"
#include "typology/tipo.h"

namespace {

/// Kept on purpose: the number is not appended to the text but skips as many of its characters, so
/// that 24 shows ": ", 25 a blank and 26 and above nothing.
PlanResult unknownTipo(int tipo) {
  constexpr auto kText = "No existe el tipo número: "_cp1252;
  const auto skipped = std::min(static_cast<std::size_t>(tipo), kText.size());
  return PlanFailure{{{std::string(kText.substr(skipped)), {PlanKeyword::kTipo}}}};
}

}  // namespace

PlanResult planTipologia(const PlanData& data) {
  switch (tipoRow(data.tipo).family) {
    case PlanFamily::kHouse:
      return planHouse(data);
    case PlanFamily::kRow:
      return planRow(data);
    case PlanFamily::kCourtyard:
      return planCourtyard(data);
    case PlanFamily::kStairwell:
      return planStairwell(data);
    case PlanFamily::kCourtyardsInFacades:
      return planCourtyardsInFacades(data);
    case PlanFamily::kCourtyardsInSides:
      return planCourtyardsInSides(data);
    case PlanFamily::kXpala:
      return planXpala(data);
    case PlanFamily::kNone:
      break;
  }
  return unknownTipo(data.tipo);
}
