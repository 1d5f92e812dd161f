#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/minimal_building.h"
#include "support/run_program.h"
#include "support/skip_for_lack_of.h"
#include "support/temporary_folder.h"

namespace {

const std::string kCli = TIP2BDL_CLI;
const std::string kError = "Se ha producido un error: ";

class ConsoleProgram : public testing::Test {
 protected:
  ProgramResult run(const ProgramOptions& options = {}) const {
    return runProgram(kCli, building_.as<std::vector<std::string>>(), options);
  }
  ProgramResult runWith(const std::vector<std::string>& arguments) const {
    ProgramOptions options;
    options.folder = folder_.path();
    return runProgram(kCli, arguments, options);
  }
  TemporaryFolder folder_;
  MinimalBuilding building_{folder_};
};

bool haveLocale(const std::string& name) {
  return std::filesystem::exists(std::string(TEST_LOCALES) + "/" + name + "/LC_NUMERIC");
}

}  // namespace

TEST_F(ConsoleProgram, ARunEndsWithZeroAnEmptyMarkerAndNothingSaid) {
  const ProgramResult result = run();
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("", result.out);
  EXPECT_EQ("", result.err);
  EXPECT_EQ("", folder_.read("fin.txt"));
  EXPECT_EQ("", folder_.read("Error.log"));
  EXPECT_TRUE(folder_.read("salida.bdl").starts_with("$\t*****"));
}

TEST_F(ConsoleProgram, TheTypologyTextStandsAtTheEndOfTheOutput) {
  run();
  EXPECT_TRUE(folder_.read("salida.bdl").ends_with(std::string(MinimalBuilding::kTypology) + "\n"));
}

TEST_F(ConsoleProgram, TakesTheDesktopFormInOneArgument) {
  EXPECT_EQ(0, runWith({"#casa.bdl, casa.tip,salida.bdl,fin.txt"}).status);
  EXPECT_TRUE(folder_.has("fin.txt"));
}

TEST_F(ConsoleProgram, ATrailingBlankOfAnItemBelongsToThePath) {
  const ProgramResult result = runWith({"#casa.bdl ,casa.tip,salida.bdl,fin.txt"});
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(kError + "No existe el fichero de datos *.bdl\n", result.err);
}

TEST_F(ConsoleProgram, AMissingItemFailsAtTheCheckThatConcernsIt) {
  EXPECT_EQ(kError + "No existe el fichero de datos *.bdl\n", runWith({"#"}).err);
  EXPECT_EQ(kError + "No existe el fichero de datos *.tip\n", runWith({"#casa.bdl"}).err);
  EXPECT_EQ(kError + "Error al abrir fichero de escritura: \n",
            runWith({"#casa.bdl,casa.tip"}).err);
  const ProgramResult result = runWith({"#casa.bdl,casa.tip,salida.bdl"});
  EXPECT_EQ(kError + "Error al abrir fichero de escritura: \n", result.err);
  EXPECT_EQ(3, result.status);
}

TEST_F(ConsoleProgram, APathWithACommaCannotBePassedInTheDesktopForm) {
  std::filesystem::rename(folder_ / "casa.tip", folder_ / "ca,sa.tip");
  EXPECT_EQ(kError + "No existe el fichero de datos *.tip\n",
            runWith({"#casa.bdl,ca,sa.tip,salida.bdl,fin.txt"}).err);
  EXPECT_EQ(0, runWith({"casa.bdl", "ca,sa.tip", "salida.bdl", "fin.txt"}).status);
}

TEST_F(ConsoleProgram, ATemplateWithoutADotHasItsTableUnderTheNameWithTbl) {
  std::filesystem::rename(folder_ / "casa.bdl", folder_ / "casa");
  EXPECT_EQ(0, runWith({"casa", "casa.tip", "salida.bdl", "fin.txt"}).status);
  // A dot in a folder's name is taken for the extension's.
  EXPECT_EQ(kError + "No existe el fichero de datos *.tbl\n",
            runWith({"./casa", "casa.tip", "salida.bdl", "fin.txt"}).err);
}

TEST_F(ConsoleProgram, WithEveryInputMissingOnlyTheFirstMessageIsShown) {
  const ProgramResult result = runWith({"a.bdl", "b.tip", "salida.bdl", "fin.txt"});
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(kError + "No existe el fichero de datos *.bdl\n", result.err);
  EXPECT_FALSE(folder_.has("salida.bdl"));
}

TEST_F(ConsoleProgram, WrongArgumentsEndWithTwoAndTheUsage) {
  const ProgramResult result = runWith({"casa.bdl"});
  EXPECT_EQ(2, result.status);
  EXPECT_EQ("", result.out);
  EXPECT_TRUE(result.err.starts_with(
      "tip2bdl-cli: se esperaban cuatro rutas y se ha dado 1\nUso: tip2bdl-cli "));
  EXPECT_FALSE(folder_.has("Error.log"));
}

TEST_F(ConsoleProgram, AnUnknownOptionIsNamedInFrontOfTheUsage) {
  const ProgramResult result = runWith({"--rapido", "a.bdl", "b.tip", "salida.bdl", "fin.txt"});
  EXPECT_EQ(2, result.status);
  EXPECT_EQ("", result.out);
  EXPECT_EQ("tip2bdl-cli: opción desconocida: --rapido", linesOf(result.err).at(0));
  EXPECT_TRUE(linesOf(result.err).at(1).starts_with("Uso: tip2bdl-cli "));
}

TEST_F(ConsoleProgram, HelpAndVersionGoToStandardOutput) {
  const ProgramResult help = runWith({"--help"});
  EXPECT_EQ(0, help.status);
  EXPECT_EQ("", help.err);
  EXPECT_TRUE(help.out.starts_with("Ejemplo:\n  tip2bdl-cli casa.bdl"));
  const ProgramResult version = runWith({"--version"});
  EXPECT_EQ(0, version.status);
  EXPECT_EQ("", version.err);
  EXPECT_THAT(version.out,
              testing::MatchesRegex("tip2bdl-cli [0-9]+\\.[0-9]+\\.[0-9]+\n"
                                    "commit ([0-9a-f]+\\+?|desconocido), [A-Za-z]+ [0-9.]+\n"));
}

TEST_F(ConsoleProgram, AFaultEndsWithThreeItsMessageAnEmptyOutputAndNoMarker) {
  folder_.write("casa.tip", "\"T\" = VIVIENDA\n..\n");
  const ProgramResult result = run();
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(kError + "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD TIPO\n  " +
                (folder_ / "casa.tip") + ":1:7: \"T\" = VIVIENDA\n",
            result.err);
  EXPECT_EQ("", folder_.read("salida.bdl"));
  EXPECT_EQ("", folder_.read("Error.log"));
  EXPECT_FALSE(folder_.has("fin.txt"));
}

TEST_F(ConsoleProgram, AFaultInTheMiddleOfTheGenerationLeavesAnEmptyOutputToo) {
  std::string source(MinimalBuilding::kTemplate);
  source.replace(source.find("BUILD-PARAMETERS"), 16, "OTHER-PARAMETERS");
  folder_.write("casa.bdl", source);
  folder_.write("salida.bdl", "de antes");
  const ProgramResult result = run();
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(kError +
                "Error al generar el edificio. No se ha encontrado la clave: BUILD-PARAMETERS\n  " +
                (folder_ / "casa.bdl") + ":22:1: END ..\n",
            result.err);
  EXPECT_EQ("", folder_.read("salida.bdl"));
  EXPECT_FALSE(folder_.has("fin.txt"));
}

TEST_F(ConsoleProgram, AFaultWithALineShowsItBelowItsMessage) {
  folder_.write("casa.tip",
                toCp1252("$ Año\n") + "\"T\" = VIVIENDA\n  TIPO = 1 NUMERO-PLANTAS = 0\n..");
  EXPECT_EQ(
      kError +
          "En el COMMAND VIVIENDA del fichero *.tip el NUMERO-PLANTAS debe ser mayor que 0\n  " +
          (folder_ / "casa.tip") + ":3:29: TIPO = 1 NUMERO-PLANTAS = 0\n",
      run().err);
}

TEST_F(ConsoleProgram, AnEarlierMarkerIsNotTakenAwayByAFault) {
  folder_.write("fin.txt", "de antes");
  folder_.write("casa.tip", "");
  EXPECT_EQ(3, run().status);
  EXPECT_EQ("de antes", folder_.read("fin.txt"));
}

TEST_F(ConsoleProgram, AFullDeviceIsAnErrorLikeAnyOther) {
  const ProgramResult result = runWith({"casa.bdl", "casa.tip", "/dev/full", "fin.txt"});
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(kError + "Error al escribir fichero: /dev/full\n", result.err);
  EXPECT_FALSE(folder_.has("fin.txt"));
}

TEST_F(ConsoleProgram, AMarkerThatCannotBeCreatedIsAnError) {
  const ProgramResult result = runWith({"casa.bdl", "casa.tip", "salida.bdl", "no/fin.txt"});
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(kError + "Error al abrir fichero de escritura: no/fin.txt\n", result.err);
}

TEST_F(ConsoleProgram, AFileNameKeepsItsAccentsInAMessage) {
  const ProgramResult result = runWith({"casa.bdl", "casa.tip", "año/salida.bdl", "fin.txt"});
  EXPECT_EQ(kError + "Error al abrir fichero de escritura: año/salida.bdl\n", result.err);
}

TEST_F(ConsoleProgram, MessagesAreUtf8WhereTheLocaleSaysNothing) {
  std::filesystem::remove(folder_ / "defectos.inp");
  ProgramOptions options;
  options.environment = {{"LC_ALL", "C"}};
  EXPECT_EQ(kError + "No existe el fichero de librería defectos.inp\n", run(options).err);
}

TEST_F(ConsoleProgram, MessagesComeInTheEncodingOfTheTerminal) {
  if (!haveLocale("es_ES.ISO-8859-1")) SKIP_FOR_LACK_OF("localedef");
  std::filesystem::remove(folder_ / "defectos.inp");
  ProgramOptions options;
  options.environment = localeEnvironment("es_ES.ISO-8859-1");
  EXPECT_EQ(kError +
                "No existe el fichero de librer\xED"
                "a defectos.inp\n",
            run(options).err);
}

TEST_F(ConsoleProgram, TheLocaleDoesNotChangeAByte) {
  if (!haveLocale("es_ES.UTF-8")) SKIP_FOR_LACK_OF("localedef");
  ProgramOptions options;
  options.environment = {{"LC_ALL", "C"}};
  run(options);
  const std::string plain = folder_.read("salida.bdl");
  options.environment = localeEnvironment("es_ES.UTF-8");
  EXPECT_EQ(0, run(options).status);
  EXPECT_EQ(plain, folder_.read("salida.bdl"));
  EXPECT_NE(std::string::npos, plain.find("FLOOR-HEIGHT = 3.000000"));
}

TEST_F(ConsoleProgram, ATemplateWithCrLfGivesTheSameOutput) {
  run();
  const std::string expected = folder_.read("salida.bdl");
  for (const char* name : {"casa.bdl", "casa.tbl"}) {
    std::string crLf;
    for (char c : folder_.read(name)) crLf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    folder_.write(name, crLf);
  }
  EXPECT_EQ(0, run().status);
  EXPECT_EQ(expected, folder_.read("salida.bdl"));
}

TEST_F(ConsoleProgram, ProgressIsShownOnATerminalOnly) {
  ProgramOptions options;
  options.errorOnTerminal = true;
  EXPECT_NE(std::string::npos, run(options).err.find("Generando el edificio ... 100 %"));
  EXPECT_EQ("", run().err);
}

TEST_F(ConsoleProgram, QuietShowsNoProgressOnATerminal) {
  ProgramOptions options;
  options.errorOnTerminal = true;
  std::vector<std::string> arguments = building_.as<std::vector<std::string>>();
  arguments.insert(arguments.begin(), "--quiet");
  const ProgramResult result = runProgram(kCli, arguments, options);
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("", result.err);
}

TEST_F(ConsoleProgram, AClosedStandardErrorDoesNotTurnTheOutputIntoIt) {
  folder_.write("casa.tip", "");
  ProgramOptions options;
  options.errorClosed = true;
  EXPECT_EQ(3, run(options).status);
  EXPECT_EQ("", folder_.read("salida.bdl"));
  EXPECT_EQ("", folder_.read("Error.log"));
}

TEST_F(ConsoleProgram, LinksNoGuiLibrary) {
  const ProgramResult result = runProgram("/bin/sh", {"-c", "ldd '" + kCli + "'"});
  ASSERT_EQ(0, result.status);
  EXPECT_NE(std::string::npos, result.out.find("libc.so"));
  for (const char* gui : {"Qt", "X11", "xcb", "wayland", "GL"}) {
    EXPECT_EQ(std::string::npos, result.out.find(gui)) << gui;
  }
}

#if defined(__OPTIMIZE__) && defined(NDEBUG)
// The compilers prove all calls of the programs harmless that it checks, so that none shows it.
TEST(Hardening, FortifiesTheCallsOfTheCLibrary) { EXPECT_GE(_FORTIFY_SOURCE, 2); }
#endif
