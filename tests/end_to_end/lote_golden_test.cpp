#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "end_to_end/samples.h"
#include "support/run_program.h"
#include "support/temporary_folder.h"

namespace fs = std::filesystem;

// The summary page of a list made from the samples, byte for byte (see golden_test.cpp). The
// manual's example is the golden one.

TEST(LoteGolden, SummaryPageIsTheSameByteForByte) {
  const std::string golden = SOURCE_FOLDER "/docs/resumen-ejemplo.html";
  const std::string samples = SOURCE_FOLDER "/samples";
  const TemporaryFolder folder;
  ASSERT_EQ(
      0, runProgram(PYTHON, {SOURCE_FOLDER "/bench/make_list", folder.path(), samples, "620", "12"})
             .status);
  // The fingerprints are of paths, too: the samples lie beside the list, wherever that is.
  fs::create_directory_symlink(samples, folder / "samples");
  std::string list = readFile(folder / "lista.csv");
  const std::string absolute = fs::canonical(samples).string();
  for (std::size_t at = list.find(absolute); at != std::string::npos; at = list.find(absolute)) {
    list.replace(at, absolute.size(), "samples");
  }
  folder.write("lista.csv", list);
  ProgramOptions options;
  options.folder = folder.path();
  const ProgramResult result =
      runProgram(TIP2BDL_CLI, {"lote", "lista.csv", "--salida", "r", "--informe"}, options);
  EXPECT_EQ(1, result.status) << result.err;
  const std::string page = folder.read("r/resumen.html");
  EXPECT_LE(page.size(), 200U * 1024);
  if (std::getenv("TIP2BDL_UPDATE_GOLDENS") != nullptr) {
    writeFile(golden, page);
    return;
  }
  const std::string expected = readFile(golden);
  EXPECT_TRUE(expected == page) << golden << "\n" << firstDifference(expected, page);
}
