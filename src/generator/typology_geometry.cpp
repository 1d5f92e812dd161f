#include "generator/typology_geometry.h"

#include <utility>

#include "core/report_error.h"
#include "generator/generator_context.h"
#include "generator/polygon_emitter.h"

PlanData planDataOf(const TypologyRecord& typology) {
  return {.tipo = typology.tipo,
          .areaPlanta = typology.areaPlanta,
          .areaPatio = typology.areaPatio,
          .areaEscalera = typology.areaEscalera,
          .longitudFachada = typology.longitudFachada,
          .profundidadPatio = typology.profundidadPatio,
          .profundidadEscalera = typology.profundidadEscalera};
}

std::string_view nameOf(PlanKeyword keyword) {
  switch (keyword) {
    case PlanKeyword::kTipo:
      return "TIPO";
    case PlanKeyword::kAreaPlanta:
      return "AREA-PLANTA";
    case PlanKeyword::kAreaPatio:
      return "AREA-PATIO";
    case PlanKeyword::kAreaEscalera:
      return "AREA-ESCALERA";
    case PlanKeyword::kLongitudFachada:
      return "LONGITUD-FACHADA";
    case PlanKeyword::kProfundidadPatio:
      return "PROFUNDIDAD-PATIO";
    case PlanKeyword::kProfundidadEscalera:
      return "PROFUNDIDAD-ESCALERA";
  }
  return {};
}

Plan geometriaTipologia(GeneratorContext& context) {
  const TypologyRecord& typology = context.typology();
  PlanResult result = planTipologia(planDataOf(typology));
  if (const auto* failure = std::get_if<PlanFailure>(&result)) {
    const PlanFault& fault = failure->first();
    ReportFailure(ErrorLog, {fault.message, typology.placeOf(nameOf(fault.keywords.front()))});
  }
  Plan plan = std::get<Plan>(std::move(result));
  for (std::size_t i = 0; i < plan.outlines.size(); ++i) {
    emitPolygon(context, plan.outlines[i].vertices, i);
  }
  return plan;
}
