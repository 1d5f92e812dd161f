#include "generator/typology_geometry.h"

#include "core/report_error.h"
#include "generator/generator_context.h"
#include "generator/polygon_emitter.h"
#include "plan/plan.h"

namespace {

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

void geometriaTipologia(GeneratorContext& context) {
  TypologyRecord& typology = context.typology();
  const PlanResult result = planTipologia(planDataOf(typology));
  if (const auto* failure = std::get_if<PlanFailure>(&result)) {
    ReportFailure(ErrorLog, failure->first().message);
  }
  const Plan& plan = std::get<Plan>(result);
  typology.numHuecosFachada = plan.numHuecosFachada;
  typology.numHuecosPatio = plan.numHuecosPatio;
  typology.superficieFachada = plan.superficieFachada;
  typology.superficiePatio = plan.superficiePatio;
  for (const Outline& outline : plan.outlines) emitPolygon(context, outline.vertices);
}
