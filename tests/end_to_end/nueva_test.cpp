#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "core/cp1252.h"
#include "end_to_end/samples.h"
#include "support/run_program.h"
#include "support/temporary_folder.h"
#include "typology/tipo.h"
#include "typology/vivienda_keywords.h"

// The work nueva: a typology file to start from, for every number.

namespace {

using testing::HasSubstr;
using testing::StartsWith;

ProgramResult run(const std::vector<std::string>& arguments) {
  return runProgram(TIP2BDL_CLI, arguments);
}

/// A sample whose template is that of the number.
Sample sampleOf(int tipo) {
  const std::string name = (tipo < 10 ? "tipo-0" : "tipo-") + std::to_string(tipo);
  const std::vector<Sample> samples = allSamples();
  const auto found = std::ranges::find(samples, name, &Sample::typology);
  return found == samples.end() ? Sample{} : *found;
}

class NuevaTest : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    const ProgramResult written =
        run({"nueva", std::to_string(GetParam()), "--salida", folder_ / "casa.tip"});
    ASSERT_EQ(0, written.status) << written.err;
    ASSERT_EQ("", written.out + written.err);
  }
  const TemporaryFolder folder_;
};

INSTANTIATE_TEST_SUITE_P(Tipos, NuevaTest, testing::Range(1, kLastTipo + 1),
                         testing::PrintToStringParamName());

}  // namespace

TEST_P(NuevaTest, TheCheckHasNothingToSayOfIt) {
  const Sample sample = sampleOf(GetParam());
  for (const std::vector<std::string>& inputs :
       {std::vector{folder_ / "casa.tip"},
        std::vector{sample.templateFile(), folder_ / "casa.tip"}}) {
    std::vector<std::string> arguments = {"comprobar", "--estricto", "--formato", "gcc"};
    arguments.insert(arguments.end(), inputs.begin(), inputs.end());
    const ProgramResult checked = run(arguments);
    EXPECT_EQ(0, checked.status);
    EXPECT_EQ("", checked.out + checked.err);
  }
}

TEST_P(NuevaTest, ARunGivesABuildingOfTheNumber) {
  const ProgramResult generated = run({sampleOf(GetParam()).templateFile(), folder_ / "casa.tip",
                                       folder_ / "salida.bdl", folder_ / "fin.txt"});
  EXPECT_EQ(0, generated.status) << generated.err;
  EXPECT_TRUE(std::filesystem::exists(folder_ / "fin.txt"));
  EXPECT_THAT(folder_.read("salida.bdl"),
              HasSubstr("TIPOLOGIA = " + std::to_string(tipoRow(GetParam()).buildingClass)));
}

TEST_P(NuevaTest, EveryKeywordStandsInItWithAWordAboutIt) {
  const std::vector<std::string> lines = linesOf(cp1252::toUtf8(folder_.read("casa.tip")));
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    const std::string start = "   " + std::string(keyword.name) + " = ";
    const auto line = std::ranges::find_if(
        lines, [&](const std::string& text) { return text.starts_with(start); });
    ASSERT_NE(lines.end(), line) << keyword.name;
    EXPECT_THAT(*std::prev(line), HasSubstr(std::string(keyword.meaning.substr(1))));
    // Its unit, and what becomes of a building without it.
    if (!keyword.unit.empty()) {
      const std::string unit = keyword.unit == "m2"  ? "m²"
                               : keyword.unit == "°" ? "grados"
                                                     : std::string(keyword.unit);
      EXPECT_THAT(*std::prev(line), HasSubstr(", en " + unit));
    }
    const bool needed = std::prev(line)->ends_with("; obligatorio");
    EXPECT_NE(needed, std::prev(line)->find("; si falta, ") != std::string::npos)
        << *std::prev(line);
    // What it calls so is what there is no building without.
    std::string without = folder_.read("casa.tip");
    const std::size_t at = without.find(start);
    ASSERT_NE(std::string::npos, at);
    without.erase(at, without.find('\n', at) - at);
    folder_.write("sin.tip", without);
    EXPECT_EQ(run({"comprobar", folder_ / "sin.tip"}).status == 3, needed) << *std::prev(line);
  }
}

TEST_P(NuevaTest, EveryKeywordOfFrameShadeAndPlaceHasAWordAboutIt) {
  const std::string text = cp1252::toUtf8(folder_.read("casa.tip"));
  const std::size_t behind = text.find("\n   ..\n");
  ASSERT_NE(std::string::npos, behind);
  int keywords = 0;
  for (const std::string& line : linesOf(text.substr(behind + 6))) {
    if (!line.starts_with("   ") || line.find(" = ") == std::string::npos) continue;
    ++keywords;
    const std::string keyword = line.substr(3, line.find(" = ") - 3);
    EXPECT_THAT(text, HasSubstr("\n$   " + keyword + ": ")) << line;
  }
  EXPECT_EQ(13, keywords);
}

TEST_P(NuevaTest, StandardOutputHasTheSameBytes) {
  EXPECT_EQ(folder_.read("casa.tip"), run({"nueva", std::to_string(GetParam())}).out);
}

TEST(Nueva, ATerminalGetsItsOwnAccents) {
  ProgramOptions options;
  options.outOnTerminal = true;
  EXPECT_THAT(runProgram(TIP2BDL_CLI, {"nueva", "13"}, options).out,
              StartsWith("$ Tipología 13: bloque con patio central"));
}

TEST(Nueva, AFileThatIsThereIsKept) {
  const TemporaryFolder folder;
  folder.write("casa.tip", "mi casa");
  const std::string path = folder / "casa.tip";
  const ProgramResult result = run({"nueva", "13", "--salida", path});
  EXPECT_EQ(2, result.status);
  EXPECT_THAT(result.err, StartsWith("tip2bdl-cli nueva: --salida sobrescribiría " + path +
                                     ", que ya existe\n"));
  EXPECT_EQ("mi casa", folder.read("casa.tip"));
  EXPECT_EQ(0, run({"nueva", "13", "--salida", "/dev/null"}).status);
}

TEST(Nueva, AnyOtherNumberIsAWrongCommandLine) {
  for (const char* number : {"0", "24", "-1", "", "13x", "trece", "99999999999"}) {
    const ProgramResult result = run({"nueva", "--", number});
    EXPECT_EQ(2, result.status) << number;
    EXPECT_EQ("", result.out);
    EXPECT_EQ("tip2bdl-cli nueva: no existe la tipología «" + std::string(number) +
                  "»; van de 1 a 23\nUso: tip2bdl-cli nueva [opciones] TIPO\n",
              result.err);
  }
  EXPECT_THAT(run({"nueva"}).err,
              StartsWith("tip2bdl-cli nueva: se esperaba 1 número y se han dado 0\n"));
}
