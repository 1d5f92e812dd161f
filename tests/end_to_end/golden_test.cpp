#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "end_to_end/samples.h"
#include "support/run_program.h"
#include "support/skip_for_lack_of.h"
#include "support/temporary_folder.h"

namespace fs = std::filesystem;

// The outputs of all samples, byte for byte. A golden file changes only on purpose:
// scripts/update-goldens rewrites them, and the commit says why each changed line is right.

namespace {

std::string testName(const testing::TestParamInfo<Sample>& info) {
  std::string name = info.param.building + "_" + info.param.typology;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

class Golden : public testing::TestWithParam<Sample> {};

}  // namespace

TEST_P(Golden, OutputIsTheSameByteForByte) {
  const Sample& sample = GetParam();
  TemporaryFolder folder;
  const ProgramResult result = runProgram(
      TIP2BDL_CLI,
      {sample.templateFile(), sample.typologyFile(), folder / "salida.bdl", folder / "fin.txt"});
  ASSERT_EQ(0, result.status) << result.err;
  const std::string output = folder.read("salida.bdl");

  const std::string golden = sample.goldenFile();
  if (std::getenv("TIP2BDL_UPDATE_GOLDENS") != nullptr) {
    if (onBuildServer()) FAIL() << "a build server compares with the golden files";
    fs::create_directories(fs::path(golden).parent_path());
    writeFile(golden, output);
    GTEST_SKIP() << "golden file written";
  }
  const std::string expected = readFile(golden);
  EXPECT_TRUE(expected == output) << firstDifference(expected, output);
}

TEST(GoldenRun, LocaleAndLineEndsDoNotChangeAByte) {
  const Sample sample{"casa-adosada", "tipo-02"};
  const fs::path building = fs::path(sample.templateFile()).parent_path();
  const std::string golden = readFile(sample.goldenFile());
  TemporaryFolder folder;
  for (const char* name : {"casa-adosada.bdl", "casa-adosada.tbl", "defectos.inp"}) {
    std::string crLf;
    for (const char c : readFile((building / name).string())) {
      crLf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    }
    folder.write(name, crLf);
  }
  for (const char* locale : {"C", "es_ES.UTF-8"}) {
    SCOPED_TRACE(locale);
    ProgramOptions options;
    options.environment = localeEnvironment(locale);
    const ProgramResult result = runProgram(TIP2BDL_CLI,
                                            {folder / "casa-adosada.bdl", sample.typologyFile(),
                                             folder / "salida.bdl", folder / "fin.txt"},
                                            options);
    EXPECT_EQ(0, result.status) << result.err;
    EXPECT_TRUE(golden == folder.read("salida.bdl"))
        << firstDifference(golden, folder.read("salida.bdl"));
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, Golden, testing::ValuesIn(allSamples()), testName);
