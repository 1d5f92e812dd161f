#include "app/run_generation.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "app/run_generation_fixture.h"
#include "core/path_table.h"
#include "core/report_error.h"

TEST_F(RunGenerationTest, ReturnsOneAndWritesTheBuilding) {
  EXPECT_EQ(1, run(building_.as<RunPaths>()));
  EXPECT_TRUE(folder_.read("salida.bdl").starts_with("$\t***"));
  EXPECT_TRUE(folder_.has("Error.log"));
}

TEST_F(RunGenerationTest, LeavesTheMarkerToItsCaller) {
  run(building_.as<RunPaths>());
  EXPECT_FALSE(folder_.has("fin.txt"));
}

TEST_F(RunGenerationTest, ReleasesWhatBelongsToTheRun) {
  run(building_.as<RunPaths>());
  EXPECT_EQ(nullptr, ErrorLog);
  EXPECT_EQ("", PathTable::Instance().Get("Dat"));
  PathTable::Release();
}

TEST_F(RunGenerationTest, ReleasesItWhenItIsStoppedToo) {
  folder_.write("casa.tip", "");
  messageOf(building_.as<RunPaths>());
  EXPECT_EQ(nullptr, ErrorLog);
  EXPECT_EQ("", PathTable::Instance().Get("Dat"));
  PathTable::Release();
  EXPECT_EQ(1, runAgain());
}

TEST_F(RunGenerationTest, MissingInputsAreReportedInTheirOrder) {
  const struct {
    const char* missing;
    const char* message;
  } lastFirst[] = {
      {"defectos.inp", "No existe el fichero de librería defectos.inp"},
      {"casa.tip", "No existe el fichero de datos *.tip"},
      {"casa.tbl", "No existe el fichero de datos *.tbl"},
      {"casa.bdl", "No existe el fichero de datos *.bdl"},
  };
  for (const auto& c : lastFirst) {
    std::filesystem::remove(folder_ / c.missing);
    const Fault fault = stopOf(building_.as<RunPaths>());
    EXPECT_EQ(c.message, fault.message);
    EXPECT_EQ(folder_ / c.missing, marked(fault.place));
  }
}

TEST_F(RunGenerationTest, AFailedCheckLeavesTheOutputUntouched) {
  folder_.write("salida.bdl", "de antes");
  std::filesystem::remove(folder_ / "casa.tip");
  messageOf(building_.as<RunPaths>());
  EXPECT_EQ("de antes", folder_.read("salida.bdl"));
}

TEST_F(RunGenerationTest, AFolderIsNoInputFile) {
  std::filesystem::remove(folder_ / "casa.tip");
  std::filesystem::create_directory(folder_ / "casa.tip");
  EXPECT_EQ("No existe el fichero de datos *.tip", messageOf(building_.as<RunPaths>()));
}

TEST_F(RunGenerationTest, AnEarlierErrorLogIsEmptied) {
  folder_.write("Error.log", "de antes");
  run(building_.as<RunPaths>());
  EXPECT_EQ("", folder_.read("Error.log"));
}

TEST_F(RunGenerationTest, TheErrorLogIsEmptiedEvenWhenTheFirstCheckFails) {
  folder_.write("Error.log", "de antes");
  std::filesystem::remove(folder_ / "casa.bdl");
  messageOf(building_.as<RunPaths>());
  EXPECT_EQ("", folder_.read("Error.log"));
}

TEST_F(RunGenerationTest, TheErrorLogLiesInTheMarkersFolder) {
  std::filesystem::create_directory(folder_ / "tmp");
  RunPaths paths = building_.as<RunPaths>();
  paths.markerFile = folder_ / "tmp/fin.txt";
  run(paths);
  EXPECT_TRUE(folder_.has("tmp/Error.log"));
  EXPECT_FALSE(folder_.has("Error.log"));
}

TEST_F(RunGenerationTest, AMarkerWithoutFolderPutsTheErrorLogIntoTheCurrentFolder) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  RunPaths paths = building_.as<RunPaths>();
  paths.markerFile = "fin.txt";
  run(paths);
  std::filesystem::current_path(before);
  EXPECT_TRUE(folder_.has("Error.log"));
}

TEST_F(RunGenerationTest, AnErrorLogThatCannotBeOpenedIsNoError) {
  RunPaths paths = building_.as<RunPaths>();
  paths.markerFile = folder_ / "no/existe/fin.txt";
  EXPECT_EQ(1, run(paths));
}

TEST_F(RunGenerationTest, TheDefaultsLibraryIsSoughtInTheTemplatesFolder) {
  std::filesystem::create_directory(folder_ / "tip");
  std::filesystem::rename(folder_ / "casa.tip", folder_ / "tip/casa.tip");
  std::filesystem::rename(folder_ / "defectos.inp", folder_ / "tip/defectos.inp");
  RunPaths paths = building_.as<RunPaths>();
  paths.typologyFile = folder_ / "tip/casa.tip";
  EXPECT_EQ("No existe el fichero de librería defectos.inp", messageOf(paths));
}

TEST_F(RunGenerationTest, TheTablesPathIsTheTemplatesWithAnotherExtension) {
  std::filesystem::rename(folder_ / "casa.bdl", folder_ / "casa.bd");
  RunPaths paths = building_.as<RunPaths>();
  paths.dataFile = folder_ / "casa.bd";
  EXPECT_EQ("No existe el fichero de datos *.tbl", messageOf(paths));
  std::filesystem::rename(folder_ / "casa.tbl", folder_ / "casa.tb");
  EXPECT_EQ(1, run(paths));
}

TEST_F(RunGenerationTest, AnOutputThatCannotBeOpenedIsReportedBeforeTheTableIsRead) {
  folder_.write("casa.tbl", "roto");
  RunPaths paths = building_.as<RunPaths>();
  paths.outputFile = folder_ / "no/salida.bdl";
  EXPECT_EQ("Error al abrir fichero de escritura: " + paths.outputFile, messageOf(paths));
}

TEST_F(RunGenerationTest, TheTableIsReadBeforeTheTypology) {
  folder_.write("casa.tbl", "roto");
  folder_.write("casa.tip", "roto");
  EXPECT_EQ("Error en el fichero " + folder_ / "casa.tbl" +
                ", línea 1: el fichero tiene menos líneas de las anunciadas",
            messageOf(building_.as<RunPaths>()));
}

TEST_F(RunGenerationTest, AnOutputThatIsTheTypologyHasEmptiedItBeforeItIsRead) {
  RunPaths paths = building_.as<RunPaths>();
  paths.outputFile = paths.typologyFile;
  EXPECT_EQ("En el fichero *.tip debe existir un COMMAND VIVIENDA", messageOf(paths));
  EXPECT_EQ("", folder_.read("casa.tip"));
}

TEST_F(RunGenerationTest, AnOutputThatIsAnInputReadBeforeItWorks) {
  run(building_.as<RunPaths>());
  for (const char* input : {"casa.bdl", "casa.tbl", "defectos.inp"}) {
    SCOPED_TRACE(input);
    const MinimalBuilding whole(folder_);
    RunPaths paths = whole.as<RunPaths>();
    paths.outputFile = folder_ / input;
    EXPECT_EQ(1, run(paths));
    EXPECT_EQ(folder_.read("salida.bdl"), folder_.read(input));
  }
}

// A fault that is met before the output is opened leaves the one of an earlier run.

TEST_F(RunGenerationTest, ATemplateWithCrLfGivesTheSameOutput) {
  run(building_.as<RunPaths>());
  const std::string expected = folder_.read("salida.bdl");
  std::string crLf;
  for (char c : folder_.read("casa.bdl"))
    crLf += c == '\n' ? std::string("\r\n") : std::string(1, c);
  folder_.write("casa.bdl", crLf);
  run(building_.as<RunPaths>());
  EXPECT_EQ(expected, folder_.read("salida.bdl"));
}

TEST_F(RunGenerationTest, ALastLineWithALineEndStandsTwiceInTheOutput) {
  const std::string source = folder_.read("casa.bdl");
  folder_.write("casa.bdl", source + "\nULTIMA\n");
  run(building_.as<RunPaths>());
  EXPECT_NE(std::string::npos, folder_.read("salida.bdl").find("ULTIMA\nULTIMA\n"));
  folder_.write("casa.bdl", source + "\nULTIMA");
  run(building_.as<RunPaths>());
  EXPECT_EQ(std::string::npos, folder_.read("salida.bdl").find("ULTIMA\nULTIMA\n"));
}

TEST_F(RunGenerationTest, APathHasLessThan3000Bytes) {
  for (std::string RunPaths::*path : {&RunPaths::dataFile, &RunPaths::typologyFile,
                                      &RunPaths::outputFile, &RunPaths::markerFile}) {
    RunPaths paths = building_.as<RunPaths>();
    paths.*path = std::string(3000, 'x');
    EXPECT_EQ("La ruta es demasiado larga (3000 caracteres; debe tener menos de 3000): " +
                  std::string(3000, 'x'),
              messageOf(paths));
  }
}

TEST_F(RunGenerationTest, ThePathOfTheErrorLogHasLessThan2000Bytes) {
  const std::string log = "Error.log";
  RunPaths paths = building_.as<RunPaths>();
  const std::string longFolder = std::string(1990, 'x') + "/";
  paths.markerFile = longFolder + "fin.txt";
  EXPECT_EQ(
      "La ruta es demasiado larga (2000 caracteres; debe tener menos de 2000): " + longFolder + log,
      messageOf(paths));
  paths.markerFile = longFolder.substr(1) + "fin.txt";
  EXPECT_EQ(1, run(paths));
}

TEST_F(RunGenerationTest, AFaultyTypologyLeavesAnEmptyOutputAndNoMarker) {
  folder_.write("casa.tip", "");
  EXPECT_EXIT(
      {
        ExitingApplication exiting;
        run(building_.as<RunPaths>());
      },
      testing::ExitedWithCode(3), "debe existir un COMMAND VIVIENDA");
  EXPECT_EQ("", folder_.read("salida.bdl"));
  EXPECT_EQ("", folder_.read("Error.log"));
  EXPECT_FALSE(folder_.has("fin.txt"));
}
