// A whole run over any four files: template, table, typology and defaults library, in this order,
// with a line "%%" between them. Either the output is complete, or there is one message and the
// output is empty; nothing else of the run is left.
#include <filesystem>

#include "app/run_generation.h"
#include "core/path_table.h"
#include "core/platform.h"
#include "core/report_error.h"
#include "fuzz_support.h"
#include "run_checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::string_view> texts = splitInput(textOf(data, size), 4);
  const RunPaths paths{writeScratch("casa.bdl", texts[0]), writeScratch("casa.tip", texts[2]),
                       scratchFolder() + "salida.bdl", scratchFolder() + "fin.txt"};
  std::filesystem::remove(paths.outputFile);
  writeScratch("casa.tbl", texts[1]);
  writeScratch("defectos.inp", texts[3]);

  const Ending ending = endingOf([&] {
    Bar bar;
    expect(RunGeneration(bar, paths) == 1, "another result than 1");
  });
  expectOneLine(ending);
  expect(ErrorLog == nullptr, "the error log outlives its run");
  expect(PathTable::Instance().Get("Dat").empty(), "the folders outlive their run");
  PathTable::Release();
  expect(!std::filesystem::exists(paths.markerFile), "a marker");
  expect(std::filesystem::file_size(scratchFolder() + "Error.log") == 0, "a log with contents");

  const std::string output = readFile(paths.outputFile);
  if (ending.stopped) {
    expect(output.empty(), "a stopped run left an output");
  } else {
    checkOutput(output, texts[2]);
  }
  return 0;
}
