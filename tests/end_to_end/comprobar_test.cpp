#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>

#include "end_to_end/samples.h"
#include "support/minimal_building.h"
#include "support/run_program.h"
#include "support/temporary_folder.h"

// `tip2bdl-cli comprobar` as a user starts it.

namespace fs = std::filesystem;

using testing::HasSubstr;
using testing::StartsWith;

namespace {

const fs::path kSamples = fs::path(SOURCE_FOLDER) / "samples";
const fs::path kGolden = fs::path(SOURCE_FOLDER) / "tests" / "golden" / "comprobar.txt";

/// The house of the samples in a folder of its own.
class Comprobar : public testing::Test {
 protected:
  Comprobar() {
    const fs::path house = kSamples / "casa-una-planta";
    folder_.write("casa.bdl", readFile((house / "casa-una-planta.bdl").string()));
    folder_.write("casa.tbl", readFile((house / "casa-una-planta.tbl").string()));
    folder_.write("defectos.inp", readFile((house / "defectos.inp").string()));
    folder_.write("casa.tip", typology_);
  }

  /// Its typology with one piece changed, in the file `name`.
  void writeWith(const char* name, const std::string& from, const std::string& to) const {
    std::string text = typology_;
    ASSERT_NE(std::string::npos, text.find(from));
    folder_.write(name, text.replace(text.find(from), from.size(), to));
  }

  ProgramResult check(std::vector<std::string> arguments, ProgramOptions options = {}) const {
    arguments.insert(arguments.begin(), "comprobar");
    options.folder = folder_.path();
    return runProgram(TIP2BDL_CLI, arguments, options);
  }

  const std::string typology_ = readFile((kSamples / "casa-una-planta" / "tipo-01.tip").string());
  TemporaryFolder folder_;
};

std::string inSamples(const std::string& file) {
  return fs::path(file).lexically_relative(kSamples).string();
}

}  // namespace

TEST_F(Comprobar, TheExitCodeTellsErrorsWarningsAndNeither) {
  writeWith("aviso.tip", "CUBIERTA = PLANA", "CUBIERTA = INCLINADA");
  writeWith("error.tip", "AREA-PLANTA = 110", "AREA-PLANTA = 20");
  const struct {
    const char* why;
    std::vector<std::string> arguments;
    int status;
  } cases[] = {
      {"notes alone", {"casa.bdl", "casa.tip"}, 0},
      {"notes alone, strictly", {"--estricto", "casa.bdl", "casa.tip"}, 0},
      {"a warning", {"casa.bdl", "aviso.tip"}, 0},
      {"a warning, strictly", {"--estricto", "casa.bdl", "aviso.tip"}, 1},
      {"a warning of the second, strictly", {"casa.bdl", "casa.tip", "aviso.tip", "--estricto"}, 1},
      {"an error", {"casa.bdl", "error.tip"}, 3},
      {"an error and a warning, strictly", {"--estricto", "casa.bdl", "error.tip", "aviso.tip"}, 3},
      {"an error without a template", {"error.tip"}, 3},
      {"a file that is not there", {"casa.bdl", "no.tip"}, 3},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const ProgramResult result = check(c.arguments);
    EXPECT_EQ(c.status, result.status) << result.out;
    EXPECT_EQ("", result.err);
  }
}

TEST_F(Comprobar, AWrongCommandLineEndsWithTwoAndTheUsage) {
  const struct {
    std::vector<std::string> arguments;
    const char* problem;
  } cases[] = {
      {{}, "se esperaba al menos 1 fichero y se han dado 0"},
      {{"casa.bdl"}, "falta la tipología"},
      {{"--formato", "xml", "casa.tip"},
       "la opción --formato no admite «xml»; admite: texto, gcc, json, sarif"},
      {{"--rapido", "casa.tip"}, "opción desconocida: --rapido"},
      {{"-x", "casa.tip"}, "opción desconocida: -x"},
      {{"casa.tip", "--formato"}, "a la opción --formato le falta su valor"},
      {{"--salida"}, "a la opción --salida le falta su valor"},
  };
  for (const auto& c : cases) {
    const ProgramResult result = check(c.arguments);
    EXPECT_EQ(2, result.status) << c.problem;
    EXPECT_EQ("", result.out);
    EXPECT_THAT(result.err, StartsWith(std::string("tip2bdl-cli comprobar: ") + c.problem));
    EXPECT_THAT(result.err, HasSubstr("\nUso: tip2bdl-cli comprobar [opciones] [PLANTILLA.bdl]"));
  }
}

TEST_F(Comprobar, BehindTwoDashesThereAreOnlyFiles) {
  folder_.write("-casa.tip", typology_);
  folder_.write("--casa.tip", typology_);
  EXPECT_EQ(0, check({"--estricto", "--", "casa.bdl", "-casa.tip", "--casa.tip"}).status);
  EXPECT_EQ(2, check({"casa.bdl", "-casa.tip"}).status);
}

TEST_F(Comprobar, HelpBeginsWithAnExample) {
  const ProgramResult result = check({"--help"});
  EXPECT_EQ(0, result.status);
  EXPECT_THAT(result.out, StartsWith("Ejemplo:\n  tip2bdl-cli comprobar casa.bdl casa.tip\n"));
  for (const char* option :
       {"--formato", "--estricto", "--salida", "--salida-prevista", "--marca"}) {
    EXPECT_THAT(result.out, HasSubstr(std::string("\n  ") + option));
  }
}

TEST_F(Comprobar, APipeGetsLinesAndATerminalATextWithColoursAndACount) {
  writeWith("aviso.tip", "CUBIERTA = PLANA", "CUBIERTA = INCLINADA");
  const ProgramResult piped = check({"aviso.tip"});
  EXPECT_EQ(
      "aviso.tip:9:15: aviso: CUBIERTA no tiene efecto: todos los edificios tienen cubierta plana "
      "[sin-efecto]\n",
      piped.out);
  ProgramOptions terminal;
  terminal.outOnTerminal = true;
  const ProgramResult shown = check({"aviso.tip"}, terminal);
  EXPECT_THAT(shown.out, HasSubstr("\x1B[1;35maviso:\x1B[0m"));
  EXPECT_THAT(shown.out, HasSubstr("   CUBIERTA = INCLINADA"));
  EXPECT_THAT(shown.out, testing::EndsWith("0 errores, 1 aviso, 0 notas\r\n"));
  const ProgramResult plain = check({"--formato", "texto", "aviso.tip"});
  EXPECT_EQ(std::string::npos, plain.out.find('\x1B'));
  EXPECT_THAT(plain.out, testing::EndsWith("0 errores, 1 aviso, 0 notas\n"));
  EXPECT_EQ(piped.out,
            check({"--formato", "gcc", "aviso.tip"}, terminal).out.substr(0, piped.out.size() - 1) +
                "\n");
}

TEST_F(Comprobar, AResultInAFileIsWhole) {
  const std::string lines = check({"casa.bdl", "casa.tip"}).out;
  ASSERT_NE("", lines);
  folder_.write("faltas.txt", "de antes");
  const ProgramResult result = check({"--salida", "faltas.txt", "casa.bdl", "casa.tip"});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("", result.out);
  EXPECT_EQ(lines, folder_.read("faltas.txt"));
  EXPECT_FALSE(folder_.has("faltas.txt.parcial"));
  // A link to it keeps what was there: the new file takes the old one's name.
  fs::create_hard_link(folder_ / "faltas.txt", folder_ / "otra.txt");
  check({"--formato", "json", "--salida", "faltas.txt", "casa.bdl", "casa.tip"});
  EXPECT_EQ(lines, folder_.read("otra.txt"));
  EXPECT_THAT(folder_.read("faltas.txt"), StartsWith("{\n  \"version\": 1,"));
}

TEST_F(Comprobar, AResultThatCannotBeWrittenIsAnError) {
  for (const char* file : {"nada/faltas.txt", "."}) {
    const ProgramResult result = check({"--salida", file, "casa.bdl", "casa.tip"});
    EXPECT_EQ(3, result.status);
    EXPECT_EQ(std::string("Se ha producido un error: Error al abrir fichero de escritura: ") +
                  file + "\n",
              result.err);
  }
  const ProgramResult full = check({"--salida", "/dev/full", "casa.bdl", "casa.tip"});
  EXPECT_EQ(3, full.status);
  EXPECT_EQ("Se ha producido un error: Error al escribir fichero: /dev/full\n", full.err);
}

TEST_F(Comprobar, NothingIsWritten) {
  const std::vector<std::string> before = folder_.names();
  check({"casa.bdl", "casa.tip"});
  check({"#casa.bdl,casa.tip,salida.bdl,fin.txt"});
  check({"--salida-prevista", "salida.bdl", "--marca", "fin.txt", "casa.bdl", "casa.tip"});
  EXPECT_EQ(before, folder_.names());
}

TEST_F(Comprobar, ThePathsOfARunAreCheckedInBothForms) {
  folder_.write("antes.txt", "");
  const struct {
    const char* why;
    std::string output, marker;
    std::vector<std::string> said;  // what of the lines is about paths
  } cases[] = {
      {"as it should be", "salida.bdl", "fin.txt", {}},
      {"the output is the template, which may be so and is then lost",
       "casa.bdl",
       "fin.txt",
       {"casa.bdl: aviso: La ruta de la salida es la de la plantilla, que se perderá "
        "[rutas-iguales]"}},
      {"the output is the typology",
       "./casa.tip",
       "fin.txt",
       {"./casa.tip: aviso: La ruta de la salida es la de la tipología, que se perderá "
        "[rutas-iguales]"}},
      {"the marker is the output",
       "salida.bdl",
       "salida.bdl",
       {"salida.bdl: aviso: La ruta de la marca es la de la salida, que se perderá "
        "[rutas-iguales]"}},
      {"a marker of an earlier run",
       "salida.bdl",
       "antes.txt",
       {"antes.txt: aviso: Ya existe la marca de fin, de una ejecución anterior: no dirá si esta "
        "acaba bien "
        "[marca-anterior]"}},
      {"no folders",
       "a/salida.bdl",
       "b/fin.txt",
       {"a/salida.bdl: aviso: No existe la carpeta de la salida: la ejecución se "
        "detendrá [falta-carpeta]",
        "b/fin.txt: aviso: No existe la carpeta de la marca: la ejecución se "
        "detendrá [falta-carpeta]"}},
      {"the table, and the log of errors",
       "casa.tbl",
       "Error.log",
       {"casa.tbl: aviso: La ruta de la salida es la de la tabla, que se perderá [rutas-iguales]",
        "Error.log: aviso: La ruta de Error.log es la de la marca, que se perderá "
        "[rutas-iguales]"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const auto ofPaths = [](const ProgramResult& result) {
      std::vector<std::string> lines = linesOf(result.out);
      std::erase_if(lines, [](const std::string& line) {
        return line.find(": nota: ") != std::string::npos;
      });
      return lines;
    };
    EXPECT_EQ(c.said, ofPaths(check({"#casa.bdl,casa.tip," + c.output + "," + c.marker})));
    EXPECT_EQ(c.said, ofPaths(check({"--salida-prevista", c.output, "--marca", c.marker, "casa.bdl",
                                     "casa.tip"})));
  }
}

TEST_F(Comprobar, APathThatTheDesktopFormLacksIsAFileThatIsNotThere) {
  const ProgramResult noTemplate = check({"#,casa.tip,salida.bdl,fin.txt"});
  EXPECT_EQ(3, noTemplate.status);
  EXPECT_THAT(noTemplate.out, HasSubstr("error: No existe el fichero de datos *.bdl"));
  const ProgramResult noTypology = check({"#casa.bdl"});
  EXPECT_EQ(3, noTypology.status);
  EXPECT_THAT(noTypology.out, HasSubstr("error: No existe el fichero de datos *.tip"));
}

TEST_F(Comprobar, TheFirstErrorIsTheMessageOfTheRun) {
  writeWith("error.tip", "AREA-PLANTA = 110", "AREA-PLANTA = 20");
  ProgramOptions options;
  options.folder = folder_.path();
  const ProgramResult run =
      runProgram(TIP2BDL_CLI, {"casa.bdl", "error.tip", "salida.bdl", "fin.txt"}, options);
  EXPECT_EQ(3, run.status);
  const std::string message = "Área de planta no válida. Debe ser >30 y <1000";
  EXPECT_THAT(run.err, StartsWith("Se ha producido un error: " + message + "\n"));
  EXPECT_THAT(check({"casa.bdl", "error.tip"}).out,
              StartsWith("error.tip:7:18: error: " + message + " [medida-de-planta]\n"));
}

// Every finding about the samples. Each aviso has its reason in a comment line in front of it.
// TIP2BDL_UPDATE_GOLDENS rewrites the file and keeps the comments.
TEST(ComprobarSamples, AreWithoutErrorsAndWithoutWarningsWithoutAReason) {
  std::map<std::string, std::set<std::string>> buildings;  // folder, its typologies
  for (const Sample& sample : allSamples()) {
    buildings[sample.building].insert(inSamples(sample.typologyFile()));
  }
  ASSERT_FALSE(buildings.empty());
  std::vector<std::string> lines;
  ProgramOptions options;
  options.folder = kSamples.string();
  for (const auto& [building, typologies] : buildings) {
    SCOPED_TRACE(building);
    std::vector<std::string> arguments = {"comprobar", building + "/" + building + ".bdl"};
    arguments.insert(arguments.end(), typologies.begin(), typologies.end());
    const ProgramResult result = runProgram(TIP2BDL_CLI, arguments, options);
    EXPECT_EQ(0, result.status) << result.out;
    for (const std::string& line : linesOf(result.out)) lines.push_back(line);
  }

  const std::vector<std::string> golden =
      fs::exists(kGolden) ? linesOf(readFile(kGolden.string())) : std::vector<std::string>();
  if (std::getenv("TIP2BDL_UPDATE_GOLDENS") != nullptr) {
    std::string text = golden.empty() ? "" : golden.front() + "\n";
    for (const std::string& line : lines) {
      const auto known = std::ranges::find(golden, line);
      if (known != golden.end() && known - golden.begin() > 1 && (known - 1)->starts_with("#")) {
        text += *(known - 1) + "\n";
      }
      text += line + "\n";
    }
    writeFile(kGolden.string(), text);
    GTEST_SKIP() << "golden file written";
  }
  std::string expected, found;
  for (std::size_t i = 0; i < golden.size(); ++i) {
    if (golden[i].starts_with("#")) continue;
    expected += golden[i] + "\n";
    if (golden[i].find(": aviso: ") == std::string::npos) continue;
    EXPECT_TRUE(i > 1 && golden[i - 1].size() > 10 && golden[i - 1].starts_with("# "))
        << "no reason: " << golden[i];
  }
  for (const std::string& line : lines) found += line + "\n";
  EXPECT_TRUE(expected == found) << firstDifference(expected, found)
                                 << "\nIf the samples are new or "
                                 << "changed, scripts/update-goldens writes " << kGolden
                                 << "; a warning needs its reason in a line before it.";
}
