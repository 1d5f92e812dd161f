#include "stock/stock_run.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <random>

#include "check/codes.h"
#include "house_list.h"
#include "stock/folder_lock.h"
#include "stock/outcome.h"
#include "stock/summary.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"

namespace fs = std::filesystem;

using stock::StockEnd;
using stock::StockOptions;

namespace {

long rowsOf(const std::string& results) { return static_cast<long>(linesOf(results).size()) - 1; }

}  // namespace

TEST(StockRun, EveryRowHasAResultInTheListsOrder) {
  const HouseList list;
  const StockEnd end = runStock(list.options());
  EXPECT_TRUE(end.complete());
  EXPECT_EQ(60, end.counts.rows);
  const std::vector<std::string> lines = linesOf(list.results());
  ASSERT_EQ(61U, lines.size());
  std::map<std::string, long> states;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const auto cells = stock::cellsOf(lines[i].substr(0, lines[i].size() - 1));
    ASSERT_TRUE(cells);
    const bool repeated = i % 20 == 19;
    EXPECT_EQ("V" + std::to_string(repeated ? 1 : i), (*cells)[stock::kResultId]);
    ++states[(*cells)[stock::kResultState]];
    const std::string output = (*cells)[stock::kResultOutput];
    EXPECT_EQ((*cells)[stock::kResultState] == "correcta", !output.empty());
    EXPECT_TRUE(output.empty() || list.folder().has("r/" + output));
  }
  EXPECT_EQ(end.counts.correct, states["correcta"]);
  EXPECT_EQ(end.counts.refused, states["rechazada"]);
  EXPECT_EQ(6 + 6 + 3 + 3, end.counts.refused);
  EXPECT_EQ(6, end.faultsByCode.at("medida-de-planta"));
  EXPECT_EQ(6, end.faultsByCode.at("numero-no-valido"));
  EXPECT_EQ(3, end.faultsByCode.at("id-repetido"));
  EXPECT_EQ(3, end.faultsByCode.at("falta-fichero"));
}

TEST(StockRun, NotesCanBeFilteredBy) {
  const HouseList list(3);
  const StockEnd end = runStock(list.options());
  for (const std::string& line : linesOf(list.results())) {
    if (!line.starts_with("V2;")) continue;
    const auto cells = stock::cellsOf(line.substr(0, line.size() - 1));
    ASSERT_TRUE(cells);
    // The smallest template defines no construction and has no windows.
    // One of decimal digits alone would be a number for a spreadsheet.
    EXPECT_EQ('x', (*cells)[stock::fingerprintColumn()].front());
    EXPECT_EQ("nombre-no-definido fachada-sin-ventanas valor-por-defecto",
              (*cells)[stock::kResultNotes]);
  }
  EXPECT_EQ(3, end.notesByCode.at("valor-por-defecto"));
  EXPECT_EQ(3, end.notesByCode.at("nombre-no-definido"));
  // A filter for one word finds no other.
  for (const CodeRow& a : allCodes()) {
    if (a.severity == Severity::kError) continue;
    EXPECT_EQ(std::string_view::npos, a.word.find(' '));
    for (const CodeRow& b : allCodes()) {
      if (&a == &b || b.severity == Severity::kError) continue;
      EXPECT_EQ(std::string_view::npos, b.word.find(a.word)) << a.word << " in " << b.word;
    }
  }
}

TEST(StockRun, GivesTheSameFilesWhateverTheWorkers) {
  const HouseList list;
  for (const unsigned workers : {1U, 2U, 7U}) {
    StockOptions options = list.options(std::to_string(workers));
    options.workers = workers;
    options.keepTypologies = true;
    options.summaryPage = true;
    runStock(options);
    EXPECT_EQ(list.files("1"), list.files(std::to_string(workers)));
    EXPECT_TRUE(list.folder().has(std::to_string(workers) + "/resumen.html"));
  }
}

TEST(StockRun, GoesOnFromWhateverIsLeft) {
  const HouseList list;
  runStock(list.options("r"));
  const auto whole = list.files("r");
  const std::string results = list.results("r");
  std::mt19937 random(2);
  for (int i = 0; i < 25; ++i) {
    SCOPED_TRACE(i);
    const auto below = [&](std::size_t most) { return random() % (most + 1); };
    // What a kill leaves: a piece of the results, outputs without a row, pieces beside their place.
    writeFile(list.folder() / "r/resultados.csv", results.substr(0, below(results.size())));
    for (const auto& [name, bytes] : whole) {
      if (name == "resultados.csv" || below(5) != 0) continue;
      if (below(1) == 0) fs::remove(list.folder() / ("r/" + name));
      if (below(1) == 0) writeFile(list.folder() / ("r/" + name + ".parcial"), "x");
    }
    StockOptions options = list.options();
    options.mode = StockOptions::Mode::kResume;
    EXPECT_TRUE(runStock(options).complete());
    auto files = list.files("r");
    // A piece beside a place whose row was done already is not looked for.
    std::erase_if(files, [](const auto& file) { return file.first.ends_with(".parcial"); });
    EXPECT_EQ(whole, files);
  }
}

TEST(StockRun, DoesNothingAgainThatHasNotChanged) {
  HouseList list;
  StockOptions options = list.options();
  const StockEnd first = runStock(options);
  options.mode = StockOptions::Mode::kResume;
  StockEnd again = runStock(options);
  EXPECT_EQ(first.counts.rows, again.counts.skipped);
  options.mode = StockOptions::Mode::kRetry;
  again = runStock(options);
  EXPECT_EQ(first.counts.correct, again.counts.skipped);
  EXPECT_EQ(first.counts.refused, again.counts.refused);

  options.mode = StockOptions::Mode::kResume;
  const std::string before = list.results();
  list.folder().write("textos.inp", "\"M\" = NAME-FRAME\n  FRAME-WIDTH = 0.2\n  ..\n");
  again = runStock(options);
  EXPECT_EQ(6 + 12, again.counts.skipped)
      << "the rows with a typology of their own, and those that are wrong in themselves";
  EXPECT_NE(before, list.results());
  list.folder().write("casa.tbl", std::string(MinimalBuilding::kTable) + "\n");
  EXPECT_EQ(12, runStock(options).counts.skipped);
  options.version = "1.1";
  EXPECT_EQ(0, runStock(options).counts.skipped);
}

TEST(StockRun, ARowThatIsRefusedNowLeavesNoOutput) {
  HouseList list;
  StockOptions options = list.options();
  options.keepTypologies = true;
  runStock(options);
  ASSERT_TRUE(list.folder().has("r/000000/V3.bdl") && list.folder().has("r/000000/V3.tip"));
  list.writeList(60, "V3;casa.bdl;;1;1;5;10;20;0;0;0;M;P;M;S;P;C;V;;");
  options.mode = StockOptions::Mode::kResume;
  runStock(options);
  EXPECT_FALSE(list.folder().has("r/000000/V3.bdl"));
  EXPECT_FALSE(list.folder().has("r/000000/V3.tip"));
}

TEST(StockRun, ShardsJoinedAreTheWholeList) {
  const HouseList list;
  runStock(list.options("r"));
  for (const long count : {2L, 4L, 70L}) {
    SCOPED_TRACE(count);
    const std::string name = "s" + std::to_string(count);
    StockOptions options = list.options(name);
    for (long number = count; number >= 1; --number) {
      options.shard = {number, count, true};
      EXPECT_TRUE(runStock(options).complete());
    }
    EXPECT_EQ(60, stock::joinShards(options.folder).rows);
    EXPECT_EQ(list.results("r"), list.results(name));
    EXPECT_EQ(readFile(list.folder() / "r/000000/V41.bdl"),
              readFile(list.folder() / (name + "/000000/V41.bdl")));
  }
}

TEST(StockRun, TheSummaryPageIsThatOfTheResultsBesideIt) {
  const HouseList list;
  StockOptions options = list.options("r");
  options.summaryPage = true;
  runStock(options);
  const std::string whole = readFile(list.folder() / "r/resumen.html");
  options = list.options("s");
  options.summaryPage = true;
  for (long number = 1; number <= 3; ++number) {
    options.shard = {number, 3, true};
    runStock(options);
  }
  EXPECT_TRUE(list.folder().has("s/resumen-2-de-3.html"));
  stock::joinShards(options.folder, true);
  EXPECT_TRUE(whole == readFile(list.folder() / "s/resumen.html"));
  stock::joinShards(options.folder);
  EXPECT_FALSE(list.folder().has("s/resumen.html")) << "one of older results would be left";

  options = list.options("r");
  options.mode = StockOptions::Mode::kRetry;
  options.maxFaults = 1;
  options.summaryPage = true;
  EXPECT_FALSE(runStock(options).complete());
  EXPECT_FALSE(list.folder().has("r/resumen.html"));
  options.maxFaults = 0;
  options.mode = StockOptions::Mode::kResume;
  runStock(options);
  EXPECT_TRUE(whole == readFile(list.folder() / "r/resumen.html"));
}

TEST(StockRun, ShardsThatAreNotAllThereAreNotJoined) {
  HouseList list;
  StockOptions options = list.options();
  const auto join = [&] { return stopMessage([&] { stock::joinShards(options.folder); }); };
  EXPECT_EQ("No hay resultados de partes en la carpeta " + options.folder, join());
  EXPECT_FALSE(list.folder().has("r")) << "a folder that was not there";
  options.shard = {1, 3, true};
  runStock(options);
  options.shard = {3, 3, true};
  options.maxFaults = 1;
  EXPECT_FALSE(runStock(options).complete());
  EXPECT_EQ(
      "Faltan los resultados de la parte 2/3. No está acabada la parte 3/3. Ejecute "
      "cada una con --fragmento K/3 --reanudar",
      join());
  options.maxFaults = 0;
  options.mode = StockOptions::Mode::kResume;
  runStock(options);
  list.writeList(61);
  options.shard = {2, 3, true};
  runStock(options);
  EXPECT_TRUE(join().starts_with("La parte 2/3 no se hizo con lo mismo que las anteriores"));
  EXPECT_FALSE(list.folder().has("r/resultados.csv"));
  list.folder().write("r/resultados-1-de-2.csv", "");
  EXPECT_TRUE(join().starts_with("Hay resultados de repartos distintos"));
}

TEST(StockRun, ShardsToBeDoneAreToldByTheirNumber) {
  const HouseList list;
  StockOptions options = list.options();
  const auto join = [&] { return stopMessage([&] { stock::joinShards(options.folder); }); };
  const auto work = [&](long number, long maxFaults) {
    options.shard = {number, 4, true};
    options.maxFaults = maxFaults;
    runStock(options);
  };
  work(1, 0);
  EXPECT_EQ(
      "Faltan los resultados de las partes 2/4, 3/4, 4/4. Ejecute cada una con --fragmento "
      "K/4 --reanudar",
      join());
  work(2, 1);
  work(3, 1);
  EXPECT_EQ(
      "Faltan los resultados de la parte 4/4. No están acabadas las partes 2/4, 3/4. Ejecute "
      "cada una con --fragmento K/4 --reanudar",
      join());
  work(4, 0);
  options.mode = StockOptions::Mode::kResume;
  work(2, 0);
  EXPECT_EQ("No está acabada la parte 3/4. Ejecútela con --fragmento 3/4 --reanudar", join());
  work(3, 0);
  fs::remove(list.folder() / "r/resultados-2-de-4.csv");
  EXPECT_EQ("Faltan los resultados de la parte 2/4. Ejecútela con --fragmento 2/4 --reanudar",
            join());
  work(2, 0);
  EXPECT_EQ(4, stock::joinShards(options.folder).shards);
}

TEST(StockRun, StopsAfterSoManyFaults) {
  const HouseList list;
  StockOptions options = list.options();
  options.workers = 1;
  options.maxFaults = 2;
  const StockEnd end = runStock(options);
  EXPECT_TRUE(end.tooManyFaults);
  EXPECT_EQ(2, end.counts.refused);
  EXPECT_EQ(8, end.counts.done()) << "rows 7 and 8 have faults";
  EXPECT_NE(std::string::npos, summaryText(end).find("Quedan 52 viviendas por hacer"));
}

TEST(StockRun, GoesOnBehindTheFaultsThatStoppedItBefore) {
  const HouseList list;
  runStock(list.options("whole"));
  StockOptions options = list.options();
  options.workers = 1;
  options.maxFaults = 5;
  int starts = 1;
  for (StockEnd end = runStock(options); !end.complete(); end = runStock(options)) {
    ASSERT_LT(++starts, 10);
    options.mode = StockOptions::Mode::kResume;
  }
  EXPECT_GT(starts, 2);
  EXPECT_EQ(list.files("whole"), list.files());
}

TEST(StockRun, WhatIsBegunIsFinishedWhenItIsInterrupted) {
  const HouseList list;
  std::atomic<bool> interrupted = true;
  stock::StockWatch watch;
  watch.interrupted = &interrupted;
  const StockEnd end = runStock(list.options(), watch);
  EXPECT_TRUE(end.interrupted);
  EXPECT_EQ(end.counts.done(), rowsOf(list.results()));
}

TEST(StockRun, AFullDiskIsTheRowsFaultAndNoRefusal) {
  const HouseList list(5);
  StockOptions options = list.options();
  fs::create_directories(options.folder);
  // A file where the folder of the outputs should be.
  list.folder().write("r/000000", "");
  const StockEnd end = runStock(options);
  EXPECT_TRUE(end.complete());
  EXPECT_EQ(5, end.counts.failed);
  EXPECT_EQ(5, end.faultsByCode.at("disco"));
  fs::remove(list.folder() / "r/000000");
  options.mode = StockOptions::Mode::kResume;
  EXPECT_EQ(5, runStock(options).counts.correct);
}

TEST(StockRun, AListThatCannotBeWorkedOnLeavesNothingBehind) {
  const HouseList list;
  StockOptions options = list.options();
  const auto message = [&] { return stopMessage([&] { runStock(options); }); };
  options.list = list.folder() / "no.csv";
  EXPECT_EQ("Error al abrir fichero de lectura: " + options.list, message());
  options.list = list.folder().write("mala.csv", "ID;TIPOLOGIA\na;b\n");
  EXPECT_EQ("Falta la columna PLANTILLA en la lista", message());
  options.list = list.folder().write("mala.csv", "ID;PLANTILLA;TIPOLOGIA\na;\"b\n");
  EXPECT_TRUE(message().ends_with("línea 2: faltan las comillas de cierre")) << message();
  EXPECT_FALSE(list.folder().has("r"));
}

TEST(StockRun, ASecondWorkOnTheSameFolderIsRefused) {
  const HouseList list;
  StockOptions options = list.options();
  runStock(options);
  const stock::FolderLock lock(options.folder + "/.lote");
  EXPECT_EQ("Otro proceso está trabajando en esta carpeta: " + options.folder + "/.lote",
            stopMessage([&] { runStock(options); }));
  options.shard = {1, 2, true};
  EXPECT_TRUE(runStock(options).complete()) << "another shard is another work";
}

TEST(StockRun, AnEmptyListIsDone) {
  const HouseList list(0);
  const StockEnd end = runStock(list.options());
  EXPECT_TRUE(end.complete());
  EXPECT_EQ(stock::resultsHeading(), list.results());
}

TEST(Summary, CountsInWords) {
  StockEnd end;
  end.counts.rows = 2;
  end.counts.failed = 1;
  EXPECT_EQ(
      "1 vivienda: 0 correctas, 0 rechazadas, 1 fallida\n0,0 s\n"
      "Queda 1 vivienda por hacer: repita la orden con --reanudar para seguir.\n",
      summaryText(end));
}

TEST(Summary, SaysHowItGoes) {
  stock::StockCounts counts;
  counts.rows = 10000;
  counts.correct = 2000;
  counts.refused = 500;
  counts.skipped = 500;
  EXPECT_EQ("2500 de 10000 viviendas (25 %), 1000 por segundo, quedan 7 s",
            stock::progressText(counts, 2));
  StockEnd end;
  end.counts = counts;
  end.counts.rows = 2500;
  end.seconds = 2;
  end.faultsByCode = {{"plantas", 100}, {"id-repetido", 400}};
  EXPECT_EQ(
      "2500 viviendas: 2000 correctas, 500 rechazadas, 0 fallidas; 500 ya estaban hechas\n"
      "2,0 s, 1000 por segundo\n"
      "Rechazadas o fallidas en esta ejecución, por código:\n"
      "  400  id-repetido: Un ID está en dos filas\n"
      "  100  plantas: El número de plantas no es el de la tipología\n",
      summaryText(end));
}
