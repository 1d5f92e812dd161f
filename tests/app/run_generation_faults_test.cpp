#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "app/run_generation_fixture.h"
#include "support/new_files.h"
#include "support/skip_for_lack_of.h"

// What a run is stopped by, where that stands, and what it leaves.

using RunFaults = RunGenerationTest;

TEST_F(RunFaults, AFaultHasItsPlaceAndLeavesTheOutputAsFarAsTheRunCame) {
  constexpr auto kOpened = "";
  constexpr auto kUntouched = "de antes";
  const std::string nul("A\n B\0C", 7);
  const std::string longLine(3001, 'x');
  const std::string building(MinimalBuilding::kTemplate);
  const auto typologyWith = [](std::string_view value, std::string_view other) {
    std::string text(MinimalBuilding::kTypology);
    return text.replace(text.find(value), value.size(), other);
  };
  const struct {
    const char* why;
    const char* input;
    std::string bytes;
    const char* message;  // behind the path, where it names one
    std::string place;
    const char* output;
  } cases[] = {
      {"a NUL in the library", "defectos.inp", nul, ", línea 2: contiene un carácter nulo",
       ":2:  B[]", kUntouched},
      {"a fault in the library", "defectos.inp", "\n\tSPACER-TYPE = \"A",
       ": SPACER-TYPE: faltan las comillas de cierre del valor", ":2: \tSPACER-TYPE = [\"A]",
       kUntouched},
      {"a NUL in the template", "casa.bdl", nul, ", línea 2: contiene un carácter nulo", ":2:  B[]",
       kUntouched},
      {"a NUL in the table", "casa.tbl", nul, ", línea 2: contiene un carácter nulo", ":2:  B[]",
       kUntouched},
      {"a table that is too short", "casa.tbl", "A\nB\n",
       ", línea 2: el fichero tiene menos líneas de las anunciadas", ":2: [B]", kOpened},
      {"a table without counts", "casa.tbl", "A\nB\n dos\n",
       ", línea 3: debe contener el número de superficies y el de zonas", ":3:  [dos]", kOpened},
      {"a surface without its numbers", "casa.tbl", "A\r\nB\r\n1 0\r\n\"Muro\"\r\n1 2 x\r\n",
       ", línea 5: los datos de una superficie deben ser siete números reales y su clase",
       ":5: 1 2 [x]", kOpened},
      {"a NUL in the typology", "casa.tip", nul, ", línea 2: contiene un carácter nulo", ":2:  B[]",
       kOpened},
      {"no house in the typology", "casa.tip", "\n",
       "En el fichero *.tip debe existir un COMMAND VIVIENDA", "", kOpened},
      {"a keyword that is missing", "casa.tip", typologyWith("AREA-PLANTA", "AREA"),
       "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD AREA-PLANTA",
       ":1: \"T\" = [VIVIENDA]", kOpened},
      {"a value that the typology's check rejects", "casa.tip",
       typologyWith("NUMERO-PLANTAS = 1", "NUMERO-PLANTAS = 2"),
       "En el COMMAND VIVIENDA del fichero *.tip el NUMERO-PLANTAS debe ser 1",
       ":3:   NUMERO-PLANTAS = [2]", kOpened},
      {"a value that the plan's check rejects", "casa.tip",
       typologyWith("AREA-PLANTA = 100", "AREA-PLANTA = 10,5"),
       "Área de planta no válida. Debe ser >30 y <1000", ":4:   AREA-PLANTA = [10,5]", kOpened},
      {"a template without a command that it must have", "casa.bdl", "\"Planta\" = POLYGON\n..\n",
       "Error al generar el edificio. No se ha encontrado la clave: BUILD-PARAMETERS", ":2: [..]",
       kOpened},
      {"a template line that is too long", "casa.bdl", "$\n" + longLine + "\n" + building,
       ", línea 2: la línea es demasiado larga", ":2: [" + longLine + "]", kOpened},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const MinimalBuilding whole(folder_);
    folder_.write("salida.bdl", "de antes");
    const std::string path = folder_.write(c.input, c.bytes);
    const Fault fault = stopOf(whole.as<RunPaths>());
    const bool namesTheFile = c.message[0] == ',' || c.message[0] == ':';
    EXPECT_EQ(namesTheFile ? "Error en el fichero " + path + c.message : c.message, fault.message);
    EXPECT_EQ(path + c.place, marked(fault.place));
    EXPECT_EQ(c.output, folder_.read("salida.bdl"));
    EXPECT_EQ("", folder_.read("Error.log"));
    EXPECT_FALSE(folder_.has("fin.txt"));
  }
}

TEST_F(RunFaults, OfSeveralFaultsTheFirstOnTheWayIsReported) {
  const std::string nul("\0", 1);
  RunPaths paths = building_.as<RunPaths>();
  const struct {
    const char* why;
    std::function<void()> spoil;
    std::string message;
  } lastFirst[] = {
      {"the template's lines", [&] { folder_.write("casa.bdl", "A\n"); },
       "Error al generar el edificio. No se ha encontrado la clave: POLYGON"},
      {"the typology", [&] { folder_.write("casa.tip", "A\n"); },
       "En el fichero *.tip debe existir un COMMAND VIVIENDA"},
      {"the table's lines", [&] { folder_.write("casa.tbl", "A\n"); },
       "Error en el fichero " + folder_ / "casa.tbl" +
           ", línea 1: el fichero tiene menos líneas de las anunciadas"},
      {"the output", [&] { paths.outputFile = folder_ / "no/salida.bdl"; },
       "Error al abrir fichero de escritura: " + folder_ / "no/salida.bdl"},
      {"the table's bytes", [&] { folder_.write("casa.tbl", nul); },
       "Error en el fichero " + folder_ / "casa.tbl" + ", línea 1: contiene un carácter nulo"},
      {"the template's bytes", [&] { folder_.write("casa.bdl", nul); },
       "Error en el fichero " + folder_ / "casa.bdl" + ", línea 1: contiene un carácter nulo"},
      {"the library", [&] { folder_.write("defectos.inp", "\nSPACER-TYPE = \""); },
       "Error en el fichero " + folder_ / "defectos.inp" +
           ": SPACER-TYPE: faltan las comillas de cierre del valor"},
      {"an input that is missing", [&] { std::filesystem::remove(paths.typologyFile); },
       "No existe el fichero de datos *.tip"},
  };
  for (const auto& c : lastFirst) {
    SCOPED_TRACE(c.why);
    c.spoil();
    EXPECT_EQ(c.message, messageOf(paths));
  }
}

TEST_F(RunFaults, AnInputThatIsThereAndCannotBeReadEndsTheRun) {
  for (const char* input : {"casa.bdl", "casa.tbl", "casa.tip", "defectos.inp"}) {
    const MinimalBuilding whole(folder_);
    const std::string path = folder_ / input;
    std::filesystem::remove(path);
    if (!makePipe(path)) GTEST_SKIP() << "no pipes with names here";
    const Fault fault = stopOf(whole.as<RunPaths>());
    EXPECT_EQ("Error al abrir fichero de lectura: " + path, fault.message);
    EXPECT_EQ(path, marked(fault.place));
    std::filesystem::remove(path);
  }
}

TEST_F(RunFaults, AnOutputThatCannotBeWrittenEndsTheRun) {
  if (!std::filesystem::exists("/dev/full")) SKIP_FOR_LACK_OF("/dev/full");
  RunPaths paths = building_.as<RunPaths>();
  paths.outputFile = "/dev/full";
  const Fault fault = stopOf(paths);
  EXPECT_EQ("Error al escribir fichero: /dev/full", fault.message);
  EXPECT_EQ("/dev/full", marked(fault.place));
}

TEST_F(RunFaults, AFaultThatIsOnItsWayIsNotHiddenByTheOutputs) {
  if (!std::filesystem::exists("/dev/full")) SKIP_FOR_LACK_OF("/dev/full");
  folder_.write("casa.tip", "");
  RunPaths paths = building_.as<RunPaths>();
  paths.outputFile = "/dev/full";
  EXPECT_EQ("En el fichero *.tip debe existir un COMMAND VIVIENDA", messageOf(paths));
}
