#include <gtest/gtest.h>

#include <filesystem>

#include "end_to_end/samples.h"
#include "support/run_program.h"
#include "support/temporary_folder.h"

namespace fs = std::filesystem;

// The works plano and informe of the console program, as a caller sees them.

namespace {

const Sample kSample{"casa-adosada", "tipo-02"};

ProgramResult run(const std::vector<std::string>& arguments) {
  return runProgram(TIP2BDL_CLI, arguments);
}

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

}  // namespace

TEST(Works, TheProgramsHelpNamesThem) {
  const ProgramResult result = run({"--help"});
  EXPECT_EQ(0, result.status);
  for (const char* work : {"tip2bdl-cli plano", "tip2bdl-cli informe"}) {
    EXPECT_TRUE(contains(result.out, work)) << work;
  }
}

TEST(Works, EachHasItsHelp) {
  for (const char* work : {"plano", "informe"}) {
    const ProgramResult result = run({work, "--help"});
    EXPECT_EQ(0, result.status) << work;
    EXPECT_TRUE(contains(result.out, "--salida FICHERO")) << work;
    EXPECT_EQ("", result.err) << work;
  }
}

TEST(Works, AWrongCommandLineIsTwoAndTellsTheUsage) {
  const struct {
    std::vector<std::string> arguments;
    const char* says;
  } cases[] = {
      {{"plano"}, "se esperaba 1 fichero y se han dado 0"},
      {{"informe", "a.bdl"}, "se esperaban 2 ficheros y se ha dado 1"},
      {{"plano", "--nada", "a.tip"}, "opción desconocida: --nada\n"},
      {{"plano", "--sailda", "a.tip"}, "opción desconocida: --sailda; ¿quería decir --salida?\n"},
      {{"plano", "a.tip", "--salida"}, "a la opción --salida le falta su valor"},
      {{"plano", "--salida", "a", "--salida", "b", "a.tip"}, "la opción --salida se repite"},
      {{"plano", "a.tip", "--salida", "./a.tip"}, "--salida sobrescribiría a.tip"},
      {{"informe", "a.bdl", "a.tip", "--salida", "./a.tbl"}, "--salida sobrescribiría a.tbl"},
      {{"comprobar", "c/a.bdl", "a.tip", "--salida", "c/defectos.inp"},
       "--salida sobrescribiría c/defectos.inp"},
      {{"plano", "--help=1"}, "la opción --help no lleva valor"},
      {{"informe", "--formato", "pdf", "a.bdl", "a.tip"}, "admite: html, json"},
  };
  for (const auto& c : cases) {
    const ProgramResult result = run(c.arguments);
    EXPECT_EQ(2, result.status) << c.says;
    EXPECT_TRUE(contains(result.err, c.says)) << result.err;
    EXPECT_TRUE(contains(result.err, "Uso: tip2bdl-cli")) << result.err;
    EXPECT_EQ("", result.out);
  }
}

TEST(Works, ANameThatIsNearlyOneIsAskedFor) {
  const struct {
    std::vector<std::string> arguments;
    const char* says;
  } cases[] = {
      {{"comprobr", "a.bdl", "a.tip"},
       "se esperaban cuatro rutas y se han dado 3; ¿quería decir comprobar?\n"},
      {{"comprobr"}, "se esperaban cuatro rutas y se ha dado 1; ¿quería decir comprobar?\n"},
      {{"lotes", "a.csv", "--salida", "b"}, "opción desconocida: --salida; ¿quería decir lote?\n"},
      {{"a.tip"}, "se esperaban cuatro rutas y se ha dado 1\n"},
      {{}, "se esperaban cuatro rutas y se han dado 0\n"},
  };
  for (const auto& c : cases) {
    const ProgramResult result = run(c.arguments);
    EXPECT_EQ(2, result.status) << c.says;
    EXPECT_TRUE(contains(result.err, c.says)) << result.err;
  }
}

TEST(Works, BehindTwoDashesEverythingIsAFile) {
  const ProgramResult result = run({"plano", "--", "--salida"});
  EXPECT_EQ(3, result.status);
  EXPECT_EQ("Se ha producido un error: No existe el fichero de datos *.tip\n", result.err);
}

TEST(Works, AValueMayStandBehindAnEqualsSign) {
  TemporaryFolder folder;
  EXPECT_EQ(0, run({"plano", "--salida=" + (folder / "p.svg"), kSample.typologyFile()}).status);
  EXPECT_TRUE(fs::exists(folder / "p.svg"));
}

TEST(Works, ATypologyThatARunRefusesHasNoPlan) {
  TemporaryFolder folder;
  std::string text = readFile(kSample.typologyFile());
  text.replace(text.find("AREA-PLANTA = 54"), 16, "AREA-PLANTA = 10");
  folder.write("casa.tip", text);
  const ProgramResult result = run({"plano", folder / "casa.tip", "--salida", folder / "p.svg"});
  EXPECT_EQ(3, result.status);
  EXPECT_TRUE(result.err.starts_with(
      "Se ha producido un error: Área de planta no válida. Debe ser >30 y <1000\n"))
      << result.err;
  EXPECT_FALSE(fs::exists(folder / "p.svg"));
}

TEST(Works, AReportOfARefusedBuildingSaysSoAndShowsTheData) {
  TemporaryFolder folder;
  std::string text = readFile(kSample.typologyFile());
  text.replace(text.find("AREA-PLANTA = 54"), 16, "AREA-PLANTA = 10");
  folder.write("casa.tip", text);
  const ProgramResult result = run({"informe", kSample.templateFile(), folder / "casa.tip"});
  EXPECT_EQ(3, result.status);
  EXPECT_TRUE(contains(result.out, "El edificio no se genera"));
  EXPECT_TRUE(contains(result.out, "AREA-PLANTA"));
  EXPECT_TRUE(result.out.ends_with("</html>\n"));
  // The message is that of the run.
  const ProgramResult asRun =
      run({kSample.templateFile(), folder / "casa.tip", folder / "salida.bdl", folder / "fin.txt"});
  EXPECT_EQ(asRun.err, result.err);
}

TEST(Works, AMissingInputIsTheRunsMessage) {
  const struct {
    std::string plantilla, tip;
  } cases[] = {{"no-esta.bdl", kSample.typologyFile()}, {kSample.templateFile(), "no-esta.tip"}};
  for (const auto& c : cases) {
    TemporaryFolder folder;
    const ProgramResult asRun = run({c.plantilla, c.tip, folder / "s.bdl", folder / "fin.txt"});
    const ProgramResult result = run({"informe", c.plantilla, c.tip});
    EXPECT_EQ(3, result.status);
    EXPECT_EQ(asRun.err, result.err);
  }
}

TEST(Works, AResultIsWrittenBesideItsPlaceAndNothingElseIsLeft) {
  TemporaryFolder folder;
  folder.write("plano.svg", "antes");
  const ProgramResult result =
      run({"plano", kSample.typologyFile(), "--salida", folder / "plano.svg"});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("", result.out);
  EXPECT_TRUE(folder.read("plano.svg").ends_with("</svg>\n"));
  EXPECT_EQ(1, std::distance(fs::directory_iterator(fs::path(folder / "plano.svg").parent_path()),
                             fs::directory_iterator()));
}

TEST(Works, ALinkStaysALink) {
  TemporaryFolder folder;
  folder.write("real.svg", "antes");
  fs::create_symlink("real.svg", folder / "enlace.svg");
  EXPECT_EQ(0, run({"plano", kSample.typologyFile(), "--salida", folder / "enlace.svg"}).status);
  EXPECT_TRUE(fs::is_symlink(folder / "enlace.svg"));
  EXPECT_TRUE(folder.read("real.svg").ends_with("</svg>\n"));
}

TEST(Works, ALinkToWhatIsNotThereYetStaysALink) {
  TemporaryFolder folder;
  fs::create_directory(folder / "dentro");
  fs::create_symlink("dentro/enlace.svg", folder / "enlace.svg");
  fs::create_symlink(folder / "nuevo.svg", folder / "dentro/enlace.svg");
  EXPECT_EQ(0, run({"plano", kSample.typologyFile(), "--salida", folder / "enlace.svg"}).status);
  EXPECT_TRUE(fs::is_symlink(folder / "enlace.svg"));
  EXPECT_TRUE(fs::is_symlink(folder / "dentro/enlace.svg"));
  EXPECT_TRUE(folder.read("nuevo.svg").ends_with("</svg>\n"));
}

TEST(Works, ADeviceIsWrittenAsItIs) {
  EXPECT_EQ(0, run({"plano", kSample.typologyFile(), "--salida", "/dev/null"}).status);
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  const ProgramResult full = run({"plano", kSample.typologyFile(), "--salida", "/dev/full"});
  EXPECT_EQ(3, full.status);
  EXPECT_EQ("Se ha producido un error: Error al escribir fichero: /dev/full\n", full.err);
}

TEST(Works, AFolderThatIsNotThereIsAnError) {
  const ProgramResult result =
      run({"plano", kSample.typologyFile(), "--salida", "/no-esta/plano.svg"});
  EXPECT_EQ(3, result.status);
  EXPECT_EQ("Se ha producido un error: Error al abrir fichero de escritura: /no-esta/plano.svg\n",
            result.err);
}

TEST(Works, ATemplateNamedAsAWorkIsStillATemplateWithItsFolder) {
  TemporaryFolder folder;
  const fs::path building = fs::path(kSample.templateFile()).parent_path();
  fs::copy_file(kSample.templateFile(), folder / "plano");
  fs::copy_file(kSample.tableFile(), folder / "plano.tbl");
  fs::copy_file(building / "defectos.inp", folder / "defectos.inp");
  const ProgramResult result =
      run({folder / "plano", kSample.typologyFile(), folder / "salida.bdl", folder / "fin.txt"});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_TRUE(folder.read("salida.bdl") == readFile(kSample.goldenFile()));
}
