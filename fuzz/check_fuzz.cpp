// Any typology file, alone and for a small template, is checked to the end, and the check says what
// the run says: its first error is the message that the run ends with, and there is none where the
// run comes to its end. Where the input has four texts (template, table, typology and defaults
// library, with a line "%%" between them), the template is the input's own.
#include <algorithm>
#include <filesystem>

#include "app/run_generation.h"
#include "check/checker.h"
#include "check/formats.h"
#include "core/path_table.h"
#include "core/platform.h"
#include "core/run_ended.h"
#include "fuzz_support.h"

namespace {

class Bar : public TProgressBar {
 public:
  int GetPosition() const override { return 0; }
  void SetPosition(int /*position*/) override {}
};

constexpr std::string_view kTemplate =
    "\"Planta\" = POLYGON\nV1 = ( 0, 0 )\n..\n\"Datos\" = BUILD-PARAMETERS\n..\n"
    "\"P01\" = FLOOR\n  FLOOR-HEIGHT = 2.5\n..\n\"P01_E01\" = SPACE\n  HEIGHT = 2.5\n..\n"
    "\"Muro\" = EXTERIOR-WALL\n  CONSTRUCTION = \"M\"\n..\n"
    "\"Ventana\" = WINDOW\n  WIDTH = 1\n  HEIGHT = 1\n..\nEND ..";
constexpr std::string_view kTable =
    "Tabla\nde superficies\n2 1\n\"Muro\"\n30 10 0.5 3 10 180 90 0 1 0\n"
    "\"Ventana\"\n1 1 2 1 1 180 90 1 1 0\n\"P01_E01\"\n1 1 100 2\n";

bool isError(const Finding& finding) { return severityOf(finding) == Severity::kError; }

/// What every list of findings promises.
void checkFindings(const Findings& findings) {
  expect(std::ranges::is_partitioned(findings, isError), "an error behind a warning");
  for (const Finding& finding : findings) {
    const std::string line = asGccLine(finding);
    expect(std::ranges::count(line, '\n') == 1 && line.ends_with("]\n"), "not one line");
    expect(asText(finding, true).ends_with("\n"), "no text");
    if (!finding.place || finding.place->line == 0) continue;
    const Place& place = *finding.place;
    expect(place.column >= 1 && place.line >= 1, "a place outside its file");
    expect(characterColumn(place.text, place.column) <= place.column, "more characters than bytes");
  }
  expect(asJson(findings).ends_with("}\n") && asSarif(findings).ends_with("}\n"), "no document");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string_view> texts = splitInput(textOf(data, size), 4);
  const bool hasTemplate = !texts[2].empty();
  if (!hasTemplate) texts = {kTemplate, kTable, textOf(data, size), "$\n"};
  const RunPaths paths{writeScratch("casa.bdl", texts[0]), writeScratch("casa.tip", texts[2]),
                       scratchFolder() + "salida.bdl", scratchFolder() + "fin.txt"};
  writeScratch("casa.tbl", texts[1]);
  writeScratch("defectos.inp", texts[3]);

  const std::optional<Fault> fault = faultOf([&] {
    Bar bar;
    RunGeneration(bar, paths);
  });
  PathTable::Release();
  std::filesystem::remove(paths.outputFile);
  const Ending ending = endingOf([&] {
    const Findings findings = Checker(paths.dataFile).check(paths.typologyFile);
    checkFindings(findings);
    const bool anyError = !findings.empty() && isError(findings.front());
    expect(anyError == fault.has_value(), "run and check do not agree");
    expect(!fault || findings.front().message == fault->message, "another message than the run's");
    checkFindings(Checker().check(paths.typologyFile));
  });
  expect(!ending.stopped, "the check ended the run");
  expect(!std::filesystem::exists(paths.outputFile), "the check has written");
  return 0;
}
