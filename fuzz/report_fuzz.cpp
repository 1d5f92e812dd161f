// What a report says of any inputs is text, and a building that no run would write is read,
// measured and drawn without harm. An input: a text for everything that a report shows, the text of
// a generated building, and that of its template, between lines of "%%".
#include <algorithm>
#include <cmath>
#include <string>

#include "fuzz_support.h"
#include "report/building_report.h"
#include "report/building_views.h"
#include "report/svg_writer.h"

namespace {

/// A block with all there is: stair, courtyards, bays of both kinds.
const PlanData kBlock{.tipo = 14,
                      .areaPlanta = 488,
                      .areaPatio = 40,
                      .areaEscalera = 25,
                      .longitudFachada = 24,
                      .profundidadPatio = 4,
                      .profundidadEscalera = 5};

void checkEscaped(const std::string& written) {
  expect(written.find_first_of("<>\"'") == std::string::npos, "markup in a text");
  for (std::size_t i = written.find('&'); i != std::string::npos; i = written.find('&', i + 1)) {
    const std::size_t end = written.find(';', i);
    expect(end != std::string::npos && end - i <= 5, "a bare ampersand");
  }
  for (const char c : written) {
    const auto byte = static_cast<unsigned char>(c);
    expect(byte >= 0x20 || byte == '\t' || byte == '\n' || byte == '\r', "a control character");
  }
}

report::Report reportOf(std::string_view text, std::string_view output, std::string_view original) {
  const std::string words(text);
  report::Report report;
  report.program = words;
  report.identity = {words, 14, 3, 0, 1};
  report.inputs = {{"Plantilla", words, words, 1}};
  report.fault = Fault{words, Place{words, 1, 1, 1, words}};
  report.findings = {{words, words, words, words}};
  report.data = {{"", words, words, words, words, 1}, {words, words, words, words, words, 1}};
  report.sheet.emplace();
  report.sheet->data = kBlock;
  report.sheet->plan = std::get<Plan>(planTipologia(kBlock));
  report.sheet->title = words;
  report.sheet->program = words;
  report.sheet->fingerprint = words;
  report.building = report::readBuilding(output, "", original, TableFile{}, report.sheet->plan);
  report.measures = report::measure(*report.building, report.sheet->plan, {});
  report.measures->spaces = report::measureSpaces(*report.building, report.sheet->plan);
  report.constructions = {{words, words, 1, 1}};
  report.sheet->windows = report::windowsOfPlan(*report.building);
  report.sheet->party = report::partySides(*report.building);
  return report;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::string_view> parts = splitInput(textOf(data, size), 3);
  checkEscaped(report::escaped(parts[0]));
  const report::Report report = reportOf(parts[0], parts[1], parts[2]);
  const std::string html = asHtml(report);
  expect(html.find("<script") == std::string::npos, "a script in the page");
  expect(html.ends_with("</html>\n"), "a page without its end");
  const std::string json = asJson(report);
  expect(json.starts_with("{\n") && json.ends_with("}\n"), "data without their end");
  return 0;
}
