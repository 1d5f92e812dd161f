#include "app/console/works/informe.h"

#include <memory>

#include "app/console/works/result_file.h"
#include "app/console/works/work.h"
#include "app/version.h"
#include "check/checker.h"
#include "check/formats.h"
#include "core/concat.h"
#include "core/output_lines.h"
#include "core/report_error.h"
#include "core/run_ended.h"
#include "generator/generation_sequence.h"
#include "generator/run_inputs.h"
#include "generator/template.h"
#include "report/building_report.h"
#include "report/fingerprint.h"

namespace {

report::InputFile inputFile(const char* role, const std::string& path) {
  report::InputFile input{role, report::baseName(path), {}, 0};
  faultOf([&] {
    const SourceText text = readText(path);
    input.fingerprint = report::fingerprint(text.bytes());
    input.bytes = text.bytes().size();
  });
  return input;
}

/// What a check says of the same files, as the report shows it.
std::vector<report::Finding> findingsOf(const std::string& templateFile,
                                        const std::string& typologyFile) {
  std::vector<report::Finding> shown;
  for (const Finding& finding : Checker(templateFile).check(typologyFile)) {
    std::string place;
    if (finding.place) {
      place = report::baseName(finding.place->file);
      if (finding.place->line > 0) {
        place +=
            concat(":", std::to_string(finding.place->line), ":",
                   std::to_string(characterColumn(finding.place->text, finding.place->column)));
      }
    }
    shown.push_back({std::string(wordOf(severityOf(finding))),
                     std::string(rowOf(finding.code).word), wordsOf(finding), std::move(place)});
  }
  return shown;
}

report::Report reportOf(const std::string& templateFile, const std::string& typologyFile) {
  report::Report report;
  report.program = std::string("tip2bdl ") + kVersion;
  InputPaths paths;
  std::unique_ptr<TypologyRecord> typology;
  report.fault = faultOf([&] {
    paths = requireInputs(templateFile, typologyFile);
    TemplateTexts texts = readTemplateTexts(paths);
    const Template plantilla(std::move(texts.building), std::move(texts.table));
    typology = std::make_unique<TypologyRecord>(readText(paths.typology));
    addTypology(report, *typology);
    OutputLines output;
    generate(plantilla, *typology, output);
    addBuilding(report, *typology, plantilla, output.text());
  });
  if (!typology) {
    // The fault lies in the template's files: the typology may still tell what was meant.
    faultOf([&] { addTypology(report, TypologyRecord(readText(typologyFile))); });
  }
  report.inputs = {inputFile("Plantilla", templateFile), inputFile("Tipología", typologyFile)};
  if (!paths.table.empty()) {
    report.inputs.insert(report.inputs.begin() + 1,
                         {inputFile("Tabla de superficies", paths.table),
                          inputFile("Librería de valores por defecto", paths.defaults)});
  }
  report.findings = findingsOf(templateFile, typologyFile);
  return report;
}

}  // namespace

int informe(const WorkArguments& arguments) {
  const report::Report report = reportOf(arguments.operands[0], arguments.operands[1]);
  const bool json = arguments.value("--formato", "html") == "json";
  writeResult(arguments.value(kSalida.name), json ? asJson(report) : asHtml(report));
  if (report.fault) ReportFailure(ErrorLog, *report.fault);
  return kExitDone;
}
