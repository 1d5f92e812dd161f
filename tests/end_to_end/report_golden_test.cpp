#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "end_to_end/samples.h"
#include "support/run_program.h"
#include "support/temporary_folder.h"

namespace fs = std::filesystem;

// Plans and reports of the samples, byte for byte, as their goldens are (see golden_test.cpp). The
// page of a report is large: the first sample of each building has one, the others their data.

namespace {

std::string goldenBeside(const Sample& sample, const std::string& extension) {
  return fs::path(sample.goldenFile()).replace_extension(extension);
}

void expectGolden(const std::string& golden, const std::string& output) {
  if (std::getenv("TIP2BDL_UPDATE_GOLDENS") != nullptr) {
    fs::create_directories(fs::path(golden).parent_path());
    writeFile(golden, output);
    return;
  }
  const std::string expected = readFile(golden);
  EXPECT_TRUE(expected == output) << golden << "\n" << firstDifference(expected, output);
}

std::string outputOf(const std::vector<std::string>& arguments) {
  const ProgramResult result = runProgram(TIP2BDL_CLI, arguments);
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ("", result.err);
  return result.out;
}

std::string testName(const testing::TestParamInfo<Sample>& info) {
  std::string name = info.param.building + "_" + info.param.typology;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

bool isFirstOfItsBuilding(const Sample& sample) {
  for (const Sample& other : allSamples()) {
    if (other.building == sample.building) return other.typology == sample.typology;
  }
  return false;
}

class ReportGolden : public testing::TestWithParam<Sample> {};

}  // namespace

TEST_P(ReportGolden, PlanIsTheSameByteForByte) {
  expectGolden(goldenBeside(GetParam(), ".plano.svg"),
               outputOf({"plano", GetParam().typologyFile()}));
}

TEST_P(ReportGolden, ReportIsTheSameByteForByte) {
  const Sample& sample = GetParam();
  expectGolden(
      goldenBeside(sample, ".informe.json"),
      outputOf({"informe", "--formato", "json", sample.templateFile(), sample.typologyFile()}));
  if (!isFirstOfItsBuilding(sample)) return;
  const std::string page = outputOf({"informe", sample.templateFile(), sample.typologyFile()});
  EXPECT_LE(page.size(), 200U * 1024);
  // The manual's report is the golden one of its sample.
  expectGolden(sample.typology == "tipo-14" ? SOURCE_FOLDER "/docs/informe-ejemplo.html"
                                            : goldenBeside(sample, ".informe.html"),
               page);
}

INSTANTIATE_TEST_SUITE_P(Samples, ReportGolden, testing::ValuesIn(allSamples()), testName);
