#include "generator/typology_geometry.h"

#include <algorithm>

#include "core/cp1252.h"
#include "core/report_error.h"
#include "generator/generator_context.h"
#include "generator/plan/plan.h"

namespace {

/// Kept on purpose: the number is not appended to the text but skips as many of its characters, so
/// that 24 shows ": ", 25 a blank and 26 and above nothing.
PlanResult unknownTipo(int tipo) {
  constexpr auto kText = "No existe el tipo número: "_cp1252;
  const auto skipped = std::min(static_cast<std::size_t>(tipo), kText.size());
  return PlanFailure{std::string(kText.substr(skipped))};
}

PlanData planDataOf(const TypologyRecord& typology) {
  return {.tipo = typology.tipo,
          .areaPlanta = typology.areaPlanta,
          .areaPatio = typology.areaPatio,
          .areaEscalera = typology.areaEscalera,
          .longitudFachada = typology.longitudFachada,
          .profundidadPatio = typology.profundidadPatio,
          .profundidadEscalera = typology.profundidadEscalera};
}

}  // namespace

PlanResult planTipologia(const PlanData& data) {
  if (data.tipo < 10) return planHouse(data);
  switch (data.tipo) {
    case 10:
    case 11:
    case 12:
      return planRow(data);
    case 13:
    case 16:
    case 19:
      return planCourtyard(data);
    case 23:
      return planStairwell(data);
    case 14:
    case 17:
    case 20:
      return planCourtyardsInFacades(data);
    case 15:
    case 18:
    case 21:
      return planCourtyardsInSides(data);
    case 22:
      return planXpala(data);
    default:
      return unknownTipo(data.tipo);
  }
}

void geometriaTipologia(GeneratorContext& context) {
  TypologyRecord& typology = context.typology();
  const PlanResult result = planTipologia(planDataOf(typology));
  if (const auto* failure = std::get_if<PlanFailure>(&result)) {
    ReportFailure(ErrorLog, failure->message);
  }
  const Plan& plan = std::get<Plan>(result);
  typology.numHuecosFachada = plan.numHuecosFachada;
  typology.numHuecosPatio = plan.numHuecosPatio;
  typology.superficieFachada = plan.superficieFachada;
  typology.superficiePatio = plan.superficiePatio;
  for (const Outline& outline : plan.outlines) emitPolygon(context, outline);
}
