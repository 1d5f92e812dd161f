#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <tuple>

#include "support/run_program.h"
#include "support/temporary_folder.h"

namespace fs = std::filesystem;

// The outputs of all samples, byte for byte. A golden file changes only on purpose:
// scripts/update-goldens rewrites them, and the commit says why each changed line is right.

namespace {

const fs::path kSamples = fs::path(SOURCE_FOLDER) / "samples";
const fs::path kGoldens = fs::path(SOURCE_FOLDER) / "tests" / "golden";

struct Sample {
  std::string building;  // folder and base name of the template
  std::string typology;  // typology file without its extension
};

/// How a test's listing names its sample.
void PrintTo(const Sample& sample, std::ostream* out) {
  *out << sample.building << "/" << sample.typology;
}

std::vector<Sample> allSamples() {
  std::vector<Sample> samples;
  for (const auto& folder : fs::directory_iterator(kSamples)) {
    if (!folder.is_directory()) continue;
    for (const auto& file : fs::directory_iterator(folder)) {
      if (file.path().extension() != ".tip") continue;
      samples.push_back({folder.path().filename().string(), file.path().stem().string()});
    }
  }
  std::sort(samples.begin(), samples.end(), [](const Sample& a, const Sample& b) {
    return std::tie(a.building, a.typology) < std::tie(b.building, b.typology);
  });
  return samples;
}

std::string testName(const testing::TestParamInfo<Sample>& info) {
  std::string name = info.param.building + "_" + info.param.typology;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

/// The first line in which two texts differ, for a reader of the test's report.
std::string firstDifference(const std::string& expected, const std::string& actual) {
  const std::vector<std::string> a = linesOf(expected);
  const std::vector<std::string> b = linesOf(actual);
  for (std::size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
    const std::string left = i < a.size() ? a[i] : "(end)";
    const std::string right = i < b.size() ? b[i] : "(end)";
    if (left != right) {
      return "line " + std::to_string(i + 1) + "\n  golden: " + left + "\n  output: " + right;
    }
  }
  return "in the line ends";
}

class Golden : public testing::TestWithParam<Sample> {};

}  // namespace

TEST_P(Golden, OutputIsTheSameByteForByte) {
  const Sample& sample = GetParam();
  const fs::path building = kSamples / sample.building;
  TemporaryFolder folder;
  const ProgramResult result = runProgram(
      TIP2BDL_CLI, {building / (sample.building + ".bdl"), building / (sample.typology + ".tip"),
                    folder / "salida.bdl", folder / "fin.txt"});
  ASSERT_EQ(0, result.status) << result.err;
  const std::string output = folder.read("salida.bdl");

  const fs::path golden = kGoldens / sample.building / (sample.typology + ".bdl");
  if (std::getenv("TIP2BDL_UPDATE_GOLDENS") != nullptr) {
    fs::create_directories(golden.parent_path());
    writeFile(golden.string(), output);
    GTEST_SKIP() << "golden file written";
  }
  const std::string expected = readFile(golden.string());
  EXPECT_TRUE(expected == output) << firstDifference(expected, output);
}

TEST(GoldenRun, LocaleAndLineEndsDoNotChangeAByte) {
  const fs::path building = kSamples / "casa-adosada";
  const std::string golden = readFile((kGoldens / "casa-adosada" / "tipo-02.bdl").string());
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
                                            {folder / "casa-adosada.bdl", building / "tipo-02.tip",
                                             folder / "salida.bdl", folder / "fin.txt"},
                                            options);
    EXPECT_EQ(0, result.status) << result.err;
    EXPECT_TRUE(golden == folder.read("salida.bdl"))
        << firstDifference(golden, folder.read("salida.bdl"));
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, Golden, testing::ValuesIn(allSamples()), testName);
