#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <sstream>

#include "support/run_program.h"
#include "support/temporary_folder.h"

namespace fs = std::filesystem;

// The work `lote` as a caller starts it.

namespace {

/// A list of the sample buildings, every 20th row with a fault.
class SampleList {
 public:
  explicit SampleList(long rows, long faults = 20) {
    const ProgramResult made = runProgram(
        PYTHON, {MAKE_LIST, folder_.path(), SAMPLES, std::to_string(rows), std::to_string(faults)});
    EXPECT_EQ(0, made.status) << made.err;
  }

  ProgramResult lote(std::vector<std::string> arguments,
                     const std::map<std::string, std::string>& environment = {}) const {
    arguments.insert(arguments.begin(), "lote");
    return runProgram(TIP2BDL_CLI, arguments, inFolder(environment));
  }
  /// The same, sent `signal` after so many seconds.
  ProgramResult loteUntil(const std::string& signal, double seconds,
                          std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(),
                     {"-s", signal, std::to_string(seconds), TIP2BDL_CLI, "lote"});
    return runProgram("/usr/bin/timeout", arguments, inFolder({}));
  }

  const TemporaryFolder& folder() const { return folder_; }
  std::string read(const std::string& name) const { return readFile(folder_ / name); }
  /// The files of the results but the journal, whose times differ, and the lock.
  std::set<std::string> files(const std::string& name) const {
    std::set<std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(folder_ / name)) {
      const std::string file = entry.path().filename().string();
      if (!entry.is_regular_file() || file.starts_with("diario") || file == ".lote") continue;
      found.insert(entry.path().lexically_relative(folder_ / name).string());
    }
    return found;
  }

 private:
  ProgramOptions inFolder(const std::map<std::string, std::string>& environment) const {
    ProgramOptions options;
    options.folder = folder_.path();
    options.environment = environment;
    return options;
  }

  TemporaryFolder folder_;
};

bool says(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

/// The words of a cell of AVISOS.
std::set<std::string> words(const std::string& cell) {
  std::istringstream in(cell);
  return {std::istream_iterator<std::string>(in), {}};
}

/// The codes of the warnings and notes of `comprobar`.
std::set<std::string> codesByComprobar(const std::string& plantilla, const std::string& tip) {
  const ProgramResult result =
      runProgram(TIP2BDL_CLI, {"comprobar", plantilla, tip, "--formato", "gcc"});
  std::set<std::string> codes;
  for (const std::string& line : linesOf(result.out)) {
    if (says(line, ": error: ") || !line.ends_with(']')) continue;
    const std::size_t begin = line.rfind('[') + 1;
    codes.insert(line.substr(begin, line.size() - 1 - begin));
  }
  return codes;
}

/// The cells of a results row whose cells hold no separators.
std::vector<std::string> cellsOfResult(const std::string& line) {
  std::istringstream in(line);
  std::vector<std::string> cells;
  for (std::string cell; std::getline(in, cell, ';');) cells.push_back(cell);
  return cells;
}
constexpr std::size_t kAvisos = 5;

}  // namespace

TEST(LoteProgram, EachOutputIsThatOfARunWithFourPaths) {
  const SampleList list(62, 0);
  const ProgramResult result = list.lote({"lista.csv", "--salida", "r", "--guardar-tip"});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_TRUE(says(result.err, "62 viviendas: 62 correctas")) << result.err;
  const std::vector<std::string> rows = linesOf(list.read("lista.csv"));
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const std::string id = rows[i].substr(0, rows[i].find(';'));
    SCOPED_TRACE(id);
    const std::string plantilla =
        rows[i].substr(id.size() + 1, rows[i].find(';', id.size() + 1) - id.size() - 1);
    const std::string place = list.folder() / ("r/000000/" + id);
    const std::string output = list.folder() / "salida.bdl";
    ASSERT_EQ(
        0, runProgram(TIP2BDL_CLI, {plantilla, place + ".tip", output, list.folder() / "fin.txt"})
               .status);
    EXPECT_TRUE(readFile(output) == readFile(place + ".bdl"));
  }
}

TEST(LoteProgram, ATypologyOfItsOwnGivesTheSampleRunsBytes) {
  const TemporaryFolder folder;
  std::string text = "id,plantilla,tipología\n";
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(SAMPLES)) {
    if (entry.path().extension() != ".tip") continue;
    const fs::path parent = entry.path().parent_path();
    names.push_back(parent.filename().string() + "/" + entry.path().stem().string());
    text += entry.path().stem().string() + "," +
            (parent / (parent.filename().string() + ".bdl")).string() + "," +
            entry.path().string() + "\n";
  }
  ProgramOptions options;
  options.folder = folder.path();
  folder.write("lista.csv", text);
  const ProgramResult result =
      runProgram(TIP2BDL_CLI, {"lote", "lista.csv", "--salida", "r"}, options);
  EXPECT_EQ(0, result.status) << result.err;
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    EXPECT_TRUE(readFile(std::string(GOLDEN) + "/" + name + ".bdl") ==
                folder.read("r/000000" + name.substr(name.find('/')) + ".bdl"));
  }
  EXPECT_GT(names.size(), 20U);
}

TEST(LoteProgram, NotesWhatComprobarSaysOfTheSameFiles) {
  const SampleList list(31, 0);
  EXPECT_EQ(0, list.lote({"lista.csv", "--salida", "r", "--guardar-tip"}).status);
  const std::vector<std::string> rows = linesOf(list.read("lista.csv"));
  const std::vector<std::string> results = linesOf(list.read("r/resultados.csv"));
  ASSERT_EQ(rows.size(), results.size());
  std::size_t notes = 0;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const std::vector<std::string> cells = cellsOfResult(results[i]);
    SCOPED_TRACE(cells[0]);
    const std::string plantilla = cellsOfResult(rows[i])[1];
    EXPECT_EQ(codesByComprobar(plantilla, list.folder() / ("r/000000/" + cells[0] + ".tip")),
              words(cells[kAvisos]));
    notes += words(cells[kAvisos]).size();
  }
  EXPECT_GT(notes, 20U);
}

TEST(LoteProgram, NotesOfATypologyOfItsOwnMayTellWhyItIsRefused) {
  const TemporaryFolder folder;
  const std::string plantilla = std::string(SAMPLES) + "/casa-adosada/casa-adosada.bdl";
  std::string tip = readFile(std::string(SAMPLES) + "/casa-adosada/tipo-05.tip");
  folder.write("buena.tip", tip);
  tip.replace(tip.find("LONGITUD-FACHADA\t=\t8"), 20, "LONGITUD-FACHADA\t=\t0,8");
  folder.write("mala.tip", tip);
  folder.write("lista.csv", "ID;PLANTILLA;TIPOLOGIA\nbuena;" + plantilla + ";buena.tip\nmala;" +
                                plantilla + ";mala.tip\n");
  ProgramOptions options;
  options.folder = folder.path();
  const ProgramResult result =
      runProgram(TIP2BDL_CLI, {"lote", "lista.csv", "--salida", "r"}, options);
  EXPECT_EQ(1, result.status) << result.err;
  const std::vector<std::string> rows = linesOf(folder.read("r/resultados.csv"));
  const std::vector<std::string> good = cellsOfResult(rows.at(1)), bad = cellsOfResult(rows.at(2));
  EXPECT_EQ("rechazada", bad[1]);
  EXPECT_EQ(codesByComprobar(plantilla, folder / "buena.tip"), words(good[kAvisos]));
  EXPECT_EQ(codesByComprobar(plantilla, folder / "mala.tip"), words(bad[kAvisos]));
  EXPECT_TRUE(bad[kAvisos].starts_with("coma-decimal")) << bad[kAvisos];
  EXPECT_FALSE(words(good[kAvisos]).contains("coma-decimal"));
}

TEST(LoteProgram, SaysWithItsExitCodeHowItEnded) {
  const SampleList list(40);
  const ProgramResult faults = list.lote({"lista.csv", "--salida", "r", "--trabajos", "2"});
  EXPECT_EQ(1, faults.status);
  EXPECT_TRUE(says(faults.err, "40 viviendas: 38 correctas, 2 rechazadas, 0 fallidas\n"))
      << faults.err;
  EXPECT_EQ("", faults.out);

  const struct {
    const char* why;
    std::vector<std::string> arguments;
    int status;
    const char* words;
  } cases[] = {
      {"no list", {"--salida", "r"}, 2, "falta la lista"},
      {"two lists",
       {"a.csv", "b.csv", "--salida", "r"},
       2,
       "se esperaba 1 fichero como máximo y se han dado 2"},
      {"no folder", {"lista.csv"}, 2, "falta --salida CARPETA"},
      {"no shard",
       {"lista.csv", "--salida", "r", "--fragmento", "3/2"},
       2,
       "--fragmento debe ser K/N"},
      {"no workers",
       {"lista.csv", "--salida", "r", "--trabajos", "0"},
       2,
       "--trabajos debe ser un número de 1 a 1024"},
      {"two ways to go on",
       {"lista.csv", "--salida", "r", "--reanudar", "--reintentar"},
       2,
       "no van juntas"},
      {"no such file", {"no.csv", "--salida", "r"}, 3, "Error al abrir fichero de lectura: no.csv"},
      {"a list to join", {"lista.csv", "--unir", "--salida", "r"}, 2, "--unir no lleva lista"},
      {"joining is no work",
       {"--unir", "--salida", "r", "--guardar-tip"},
       2,
       "--guardar-tip no dice nada a --unir"},
      {"columns of no folder",
       {"--esquema", "--salida", "r"},
       2,
       "--salida no dice nada a --esquema"},
      {"nothing to join", {"--unir", "--salida", "r"}, 3, "No hay resultados de partes"},
      {"a folder that is a file",
       {"lista.csv", "--salida", "lista.csv"},
       3,
       "No se ha podido crear la carpeta: lista.csv"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const ProgramResult result = list.lote(c.arguments);
    EXPECT_EQ(c.status, result.status);
    EXPECT_TRUE(says(result.err, c.words)) << result.err;
  }
  const ProgramResult schema = list.lote({"--esquema"});
  EXPECT_EQ(0, schema.status);
  EXPECT_TRUE(says(schema.out, "\nALTURA-PLANTA;m;mayor que 0;3\n"));
}

TEST(LoteProgram, SaysThatItBeginsAgain) {
  const SampleList list(8, 0);
  EXPECT_FALSE(says(list.lote({"lista.csv", "--salida", "r"}).err, "de nuevo"));
  EXPECT_FALSE(says(list.lote({"lista.csv", "--salida", "r", "--reanudar"}).err, "de nuevo"));
  EXPECT_TRUE(says(list.lote({"lista.csv", "--salida", "r"}).err,
                   "La carpeta ya tiene resultados de 8 viviendas: se hacen todas de nuevo."));
}

TEST(LoteProgram, WorksWithTheWorkersThatTheSystemHasRoomFor) {
#ifdef SANITIZED
  GTEST_SKIP() << "a sanitizer reserves terabytes of addresses";
#endif
  const SampleList list(40, 0);
  ProgramOptions options;
  options.folder = list.folder().path();
  // Each thread has some megabytes of addresses for its stack.
  const ProgramResult result =
      runProgram("/bin/bash",
                 {"-c", "ulimit -v 3000000; exec \"$0\" lote lista.csv --salida r --trabajos 1024",
                  TIP2BDL_CLI},
                 options);
  EXPECT_NE(3, result.status) << result.err;
  EXPECT_TRUE(says(result.err, "40 viviendas: ")) << result.err;
  EXPECT_EQ(0, list.lote({"lista.csv", "--salida", "r", "--reanudar"}).status);
}

// As a full disk would.
TEST(LoteProgram, SaysHowFarItCameWhenTheResultsCannotBeWritten) {
  const SampleList list(400, 0);
  ProgramOptions options;
  options.folder = list.folder().path();
  const std::vector<std::string> lote = {"lista.csv", "--salida", "r", "--trabajos", "2"};
  std::vector<std::string> limited = {"-c", "trap '' XFSZ; ulimit -f 64; exec \"$0\" \"$@\"",
                                      TIP2BDL_CLI, "lote"};
  limited.insert(limited.end(), lote.begin(), lote.end());
  const ProgramResult result = runProgram("/bin/bash", limited, options);
  EXPECT_EQ(3, result.status);
  EXPECT_TRUE(says(result.err, " por hacer: repita la orden con --reanudar para seguir.\n"))
      << result.err;
  EXPECT_TRUE(says(result.err, "Error al escribir fichero: r/resultados.csv")) << result.err;
  EXPECT_EQ(0, list.lote({"lista.csv", "--salida", "r", "--reanudar"}).status);
  EXPECT_EQ(0, list.lote({"lista.csv", "--salida", "entera"}).status);
  EXPECT_EQ(list.read("entera/resultados.csv"), list.read("r/resultados.csv"));
}

TEST(LoteProgram, WarnsOfAColumnThatNobodyReads) {
  const TemporaryFolder folder;
  folder.write("lista.csv", "ID;PLANTILLA;TIPOLOGIA;PLANTILA\n");
  ProgramOptions options;
  options.folder = folder.path();
  const ProgramResult result =
      runProgram(TIP2BDL_CLI, {"lote", "lista.csv", "--salida", "r"}, options);
  EXPECT_EQ(0, result.status);
  EXPECT_TRUE(says(result.err,
                   "lista.csv:1:24: aviso: Columna desconocida: \"PLANTILA\". No se leerá. "
                   "¿Quería decir PLANTILLA?\n"))
      << result.err;
}

// LOTE_ROWS asks for more rows than an ordinary test has time for (scripts/test killed).
TEST(LoteProgram, EndsInTheSameBytesHoweverOftenItIsKilled) {
  const char* const wanted = std::getenv("LOTE_ROWS");
  const long rows = wanted == nullptr ? 2000 : std::atol(wanted);
  const SampleList list(rows);
  const auto start = std::chrono::steady_clock::now();
  ASSERT_EQ(
      1, list.lote({"lista.csv", "--salida", "entera", "--trabajos", "1", "--informe", "--quiet"})
             .status);
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

  std::mt19937 random(3);
  std::uniform_real_distribution<double> moment(0.02, seconds / 8);
  const std::vector<std::string> again = {"lista.csv",  "--salida",  "r",
                                          "--reanudar", "--informe", "--quiet"};
  int killed = 0;
  for (int i = 0; i < 10; ++i) {
    killed += list.loteUntil("KILL", moment(random), again).status == 128 + 9 ? 1 : 0;
  }
  EXPECT_GT(killed, 5);
  const ProgramResult last = list.lote(again);
  EXPECT_EQ(1, last.status);
  std::printf("%ld rows, undisturbed in %.1f s; killed %d times, then: %s\n", rows, seconds, killed,
              last.err.substr(0, last.err.find('\n')).c_str());
  const std::set<std::string> whole = list.files("entera");
  EXPECT_TRUE(whole.contains("resumen.html"));
  EXPECT_EQ(whole, list.files("r"));
  for (const std::string& file : whole) {
    ASSERT_TRUE(list.read("entera/" + file) == list.read("r/" + file)) << file;
  }
}

TEST(LoteProgram, FinishesWhatIsBegunOnCtrlC) {
  const SampleList list(4000, 0);
  // Once the first rows are done; a shell's background has Ctrl-C ignored until somebody asks for
  // it.
  constexpr auto kScript =
      "\"$0\" lote lista.csv --salida r --trabajos 2 & "
      "until [ \"$(wc -l 2>/dev/null <r/resultados.csv || echo 0)\" -gt 3 ]; do sleep 0.01; done; "
      "kill -INT $!; wait $!";
  ProgramOptions options;
  options.folder = list.folder().path();
  const ProgramResult result = runProgram("/bin/bash", {"-c", kScript, TIP2BDL_CLI}, options);
  EXPECT_EQ(130, result.status);
  EXPECT_TRUE(says(result.err, "repita la orden con --reanudar para seguir")) << result.err;
  const auto lines = linesOf(list.read("r/resultados.csv"));
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const std::string id = lines[i].substr(0, lines[i].find(';'));
    const std::string thousand = std::to_string((std::atol(id.substr(1).c_str()) - 1) / 1000);
    EXPECT_TRUE(list.folder().has("r/00000" + thousand + "/" + id + ".bdl")) << id;
  }
  EXPECT_LT(lines.size(), 4001U);
}

TEST(LoteProgram, JoiningSaysHowManyShardsAndDwellingsThereAre) {
  const struct {
    long rows;
    std::vector<const char*> shards;
    const char* words;
  } cases[] = {
      {1, {"1/1"}, "Unida 1 parte: 1 vivienda\n"},
      {3, {"1/2", "2/2"}, "Unidas 2 partes: 3 viviendas\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.words);
    const SampleList list(c.rows, 0);
    for (const char* shard : c.shards) {
      EXPECT_EQ(0, list.lote({"lista.csv", "--salida", "r", "--fragmento", shard}).status);
    }
    EXPECT_EQ(c.words, list.lote({"--unir", "--salida", "r"}).err);
  }
}

TEST(LoteProgram, ASlurmArrayChoosesTheShard) {
  const SampleList list(40, 0);
  const ProgramResult result =
      list.lote({"lista.csv", "--salida", "r"}, {{"SLURM_ARRAY_TASK_ID", "2"},
                                                 {"SLURM_ARRAY_TASK_MIN", "0"},
                                                 {"SLURM_ARRAY_TASK_MAX", "3"},
                                                 {"SLURM_ARRAY_TASK_COUNT", "4"}});
  EXPECT_EQ(0, result.status);
  EXPECT_TRUE(says(result.err, "Serie de Slurm: se trabaja en la parte 3/4\n")) << result.err;
  EXPECT_TRUE(list.folder().has("r/resultados-3-de-4.csv"));
  EXPECT_TRUE(says(list.read("r/resultados-3-de-4.csv"), "\nV0000003;correcta;"));
  for (const char* shard : {"1/4", "2/4", "4/4"}) {
    EXPECT_EQ(0, list.lote({"lista.csv", "--salida", "r", "--fragmento", shard}).status);
  }
  EXPECT_EQ(0, list.lote({"--unir", "--salida", "r"}).status);
  EXPECT_EQ(0, list.lote({"lista.csv", "--salida", "entera"}).status);
  EXPECT_EQ(list.read("entera/resultados.csv"), list.read("r/resultados.csv"));
}
