#include "app/console/works/plano.h"

#include "app/console/works/result_file.h"
#include "app/console/works/work.h"
#include "app/version.h"
#include "core/report_error.h"
#include "generator/run_inputs.h"
#include "plan/plan_numbers.h"
#include "report/building_report.h"
#include "report/svg_writer.h"

int plano(const WorkArguments& arguments) {
  const std::string& path = arguments.operands.front();
  requireTypology(path);
  const TypologyRecord typology(readText(path));
  const PlanResult result = planTipologia(planDataOf(typology));
  if (const auto* failure = std::get_if<PlanFailure>(&result)) {
    ReportFailure(ErrorLog, faultIn(typology, failure->first()));
  }
  report::Report report;
  report.program = std::string("tip2bdl ") + kVersion;
  addTypology(report, typology);
  const report::Drawing drawing = planDrawing(*report.sheet);
  writeResult(arguments.value(kSalida.name), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" +
                                                 report::svg(drawing, report::SvgPlace::kFile));
  return kExitDone;
}
