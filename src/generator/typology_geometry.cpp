#include "generator/typology_geometry.h"

#include <utility>

#include "core/report_error.h"
#include "generator/generator_context.h"
#include "generator/polygon_emitter.h"
#include "plan/plan_numbers.h"

Plan geometriaTipologia(GeneratorContext& context) {
  const TypologyRecord& typology = context.typology();
  PlanResult result = planTipologia(planDataOf(typology));
  if (const auto* failure = std::get_if<PlanFailure>(&result)) {
    ReportFailure(ErrorLog, faultIn(typology, failure->first()));
  }
  Plan plan = std::get<Plan>(std::move(result));
  for (std::size_t i = 0; i < plan.outlines.size(); ++i) emitPolygon(context, plan, i);
  return plan;
}
