#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <set>
#include <sstream>

#include "check/checker.h"
#include "house_list.h"
#include "stock/outcome.h"
#include "stock/result_files.h"
#include "support/recording_application.h"

namespace fs = std::filesystem;

using stock::StockOptions;

// What stands in the folder of the results, before a work on a list and after it.

namespace {

/// What a list of these rows says when it is worked on.
std::string messageOf(const HouseList& list, const std::string& rows,
                      const std::string& listName = "otra.csv") {
  StockOptions options = list.options();
  options.list = list.folder().write(listName, HouseList::kHeading + rows);
  return stopMessage([&] { runStock(options); });
}

/// The cells of the row of an ID.
std::vector<std::string> resultOf(const HouseList& list, const std::string& id) {
  for (const std::string& line : linesOf(list.results())) {
    if (line.starts_with(id + ";")) return *stock::cellsOf(line.substr(0, line.size() - 1));
  }
  ADD_FAILURE() << "no result of " << id;
  return std::vector<std::string>(100);
}

}  // namespace

TEST(StockFolder, InputsAmongTheResultsAreNotLost) {
  HouseList list(5);
  StockOptions options = list.options();
  options.keepTypologies = true;
  runStock(options);
  const auto before = list.files();
  const char* const kMessage = "El fichero está donde se escriben los resultados y se perdería: ";

  for (const char* const cells : {"V1;r/000000/V1.bdl;;", "V1;casa.bdl;r/000000/V1.tip;",
                                  "V9;casa.bdl;r/./000000/../000000/V2.tip;"}) {
    const std::string message = messageOf(list, cells + std::string(16, ';') + "\n");
    EXPECT_TRUE(message.starts_with(kMessage)) << message;
  }
  EXPECT_TRUE(messageOf(list, "V1;casa.bdl;" + std::string(17, ';') + "r/000000/V1.tip\n")
                  .starts_with(kMessage));
  // The results themselves as a list.
  fs::copy_file(list.folder() / "lista.csv", list.folder() / "r/diario-2-de-3.csv");
  options.list = list.folder() / "r/diario-2-de-3.csv";
  EXPECT_TRUE(stopMessage([&] { runStock(options); }).starts_with(kMessage));
  options.list = list.folder() / "lista.csv";
  options.plantilla = options.folder + "/000000/V1.bdl";
  EXPECT_TRUE(stopMessage([&] { runStock(options); }).starts_with(kMessage));
  EXPECT_EQ(before, list.files());
}

TEST(StockFolder, AListMayLieBesideItsResults) {
  const HouseList list;
  StockOptions options = list.options(".");
  EXPECT_TRUE(runStock(options).complete());
  EXPECT_TRUE(list.folder().has("casa.bdl") && list.folder().has("000000/V1.bdl"));
}

TEST(StockFolder, RowsThatAreGoneLeaveNoOutput) {
  HouseList list;
  list.writeList(40);
  runStock(list.options("fresh"));
  for (const auto mode : {StockOptions::Mode::kAnew, StockOptions::Mode::kResume}) {
    list.writeList(60);
    StockOptions options = list.options();
    options.keepTypologies = true;
    runStock(options);
    ASSERT_TRUE(list.folder().has("r/000000/V41.bdl") && list.folder().has("r/000000/V41.tip"));
    list.writeList(40);
    options.mode = mode;
    options.keepTypologies = false;
    runStock(options);
    EXPECT_FALSE(list.folder().has("r/000000/V41.bdl"));
    EXPECT_FALSE(list.folder().has("r/000000/V41.tip"));
    EXPECT_EQ(list.results("fresh"), list.results());
    // What is done already is not looked at again, nor the typologies that were kept then.
    EXPECT_EQ(mode == StockOptions::Mode::kAnew, list.files("fresh") == list.files());
  }
}

TEST(StockFolder, RowsThatAreGoneLeaveNoOutputWhenShardsAreJoined) {
  HouseList list;
  StockOptions options = list.options();
  for (const int rows : {60, 40}) {
    list.writeList(rows);
    for (const long number : {1L, 2L}) {
      options.shard = {number, 2, true};
      runStock(options);
    }
    stock::joinShards(options.folder);
    EXPECT_EQ(rows == 60, list.folder().has("r/000000/V51.bdl"));
    EXPECT_TRUE(list.folder().has("r/000000/V31.bdl"));
  }
}

TEST(StockFolder, WhatANameInTheResultsSaysIsNoOrderToRemoveAnything) {
  HouseList list(5);
  runStock(list.options());
  list.folder().write("keep.bdl", "x");
  list.folder().write("r/keep.bdl", "x");
  std::string results = list.results();
  const std::string line = linesOf(results).at(1) + "\n";
  for (const std::string output : {"../keep.bdl", "keep.bdl", "000000/../../keep.bdl"}) {
    std::string other = line;
    other.replace(other.find("000000/V1.bdl"), std::string("000000/V1.bdl").size(), output);
    results += other;
  }
  writeFile(list.folder() / "r/resultados.csv", results);
  runStock(list.options());
  EXPECT_TRUE(list.folder().has("keep.bdl") && list.folder().has("r/keep.bdl"));
}

TEST(StockFolder, ItSaysThatItBeginsAgain) {
  const HouseList list(5);
  long told = 0;
  stock::StockWatch watch;
  watch.beginAgain = [&](long rows) { told = rows; };
  StockOptions options = list.options();
  runStock(options, watch);
  EXPECT_EQ(0, told);
  options.mode = StockOptions::Mode::kResume;
  runStock(options, watch);
  EXPECT_EQ(0, told);
  options.mode = StockOptions::Mode::kAnew;
  runStock(options, watch);
  EXPECT_EQ(5, told);
}

TEST(StockFolder, AnOutputWithoutAByteIsDoneAgain) {
  const HouseList list(5);
  StockOptions options = list.options();
  runStock(options);
  const auto whole = list.files();
  writeFile(list.folder() / "r/000000/V2.bdl", "");
  options.mode = StockOptions::Mode::kResume;
  EXPECT_EQ(4, runStock(options).counts.skipped);
  EXPECT_EQ(whole, list.files());
}

TEST(StockFolder, ACorrectDwellingsResultDoesNotDependOnWhereItsFilesLie) {
  const HouseList list(6);
  StockOptions options = list.options();
  options.workers = 1;
  runStock(options);
  options.list = list.folder() / "./lista.csv";
  options.mode = StockOptions::Mode::kResume;
  EXPECT_EQ(6, runStock(options).counts.skipped);
}

TEST(StockFolder, ATypologyKeptByAShardIsNoneOfAnotherBuilding) {
  HouseList list(5);
  StockOptions shard = list.options();
  shard.keepTypologies = true;
  shard.shard = {.number = 1, .count = 2, .part = true};
  runStock(shard);
  ASSERT_TRUE(fs::exists(list.folder() / "r/000000/V1.tip"));
  runStock(list.options());
  EXPECT_TRUE(fs::exists(list.folder() / "r/000000/V1.bdl"));
  EXPECT_FALSE(fs::exists(list.folder() / "r/000000/V1.tip"));
}

TEST(StockFolder, NotesAreThoseOfACheckOfTheSameFiles) {
  HouseList list(1);
  const auto notesOf = [&](const std::string& typology) {
    list.folder().write("uno.tip", typology);
    list.folder().write("otra.csv", HouseList::kHeading + std::string("U;casa.bdl;uno.tip") +
                                        std::string(17, ';') + "\n");
    StockOptions options = list.options();
    options.list = list.folder() / "otra.csv";
    runStock(options);
    std::set<std::string> codes;
    for (const Finding& finding :
         Checker(list.folder() / "casa.bdl").check(list.folder() / "uno.tip")) {
      if (severityOf(finding) != Severity::kError)
        codes.insert(std::string(rowOf(finding.code).word));
    }
    const std::string cell = resultOf(list, "U").at(stock::kResultNotes);
    std::istringstream words(cell);
    const std::set<std::string> told(std::istream_iterator<std::string>(words), {});
    EXPECT_EQ(codes, told) << typology;
    return told;
  };
  const std::string typology = readBytes(list.folder() / "casa.tip");
  notesOf(typology);
  // A refused one without the numbers that a plan needs.
  std::string without = typology;
  without.replace(without.find("TIPO "), 5, "TIPA ");
  notesOf(without);
  // What the bytes of the template's files show.
  for (const char* const file : {"casa.bdl", "casa.tbl", "defectos.inp"}) {
    const std::string bytes = readBytes(list.folder() / file);
    list.folder().write(file, "\xEF\xBB\xBF" + bytes);
    EXPECT_TRUE(notesOf(typology).contains("marca-de-orden")) << file;
    list.folder().write(file, bytes);
  }
}

TEST(StockFolder, PlacesAreCellsOfTheList) {
  const HouseList list;
  StockOptions options = list.options();
  std::string noArea = HouseList::rowOf("D", "casa.bdl", "");
  options.list = list.folder().write(
      "otra.csv", HouseList::kHeading + HouseList::rowOf("A", "no.bdl") + "B;casa.bdl;no.tip" +
                      std::string(17, ';') + "\n" + HouseList::rowOf("C") + noArea);
  runStock(options);
  EXPECT_EQ(options.list + ":2:3", resultOf(list, "A")[stock::kResultPlace]);
  EXPECT_EQ(options.list + ":3:12", resultOf(list, "B")[stock::kResultPlace]);
  EXPECT_EQ("correcta", resultOf(list, "C")[stock::kResultState]);
  EXPECT_EQ("falta-dato", resultOf(list, "D")[stock::kResultCode]);
  EXPECT_EQ(options.list + ":5:17", resultOf(list, "D")[stock::kResultPlace]);
}

TEST(StockFolder, ARowNeedsATypologyWhereTheListDescribesNone) {
  const HouseList list;
  StockOptions options = list.options();
  options.list =
      list.folder().write("otra.csv", "ID;PLANTILLA;TIPOLOGIA\nA;casa.bdl;\nB;casa.bdl;casa.tip\n");
  runStock(options);
  EXPECT_EQ("falta-celda", resultOf(list, "A")[stock::kResultCode]);
  EXPECT_EQ(options.list + ":2:12", resultOf(list, "A")[stock::kResultPlace]);
  EXPECT_EQ("correcta", resultOf(list, "B")[stock::kResultState]);
}

TEST(StockFolder, ARowHasAsManyCellsAsTheList) {
  const HouseList list;
  StockOptions options = list.options();
  options.list = list.folder().write(
      "otra.csv", "ID;PLANTILLA;TIPOLOGIA\nA\nB;casa.bdl\nC;casa.bdl;casa.tip;\n");
  runStock(options);
  EXPECT_EQ("La fila tiene 1 celda y la lista, 3 columnas",
            resultOf(list, "A")[stock::kResultMessage]);
  EXPECT_EQ("La fila tiene 2 celdas y la lista, 3 columnas",
            resultOf(list, "B")[stock::kResultMessage]);
  EXPECT_EQ("La fila tiene 4 celdas y la lista, 3 columnas",
            resultOf(list, "C")[stock::kResultMessage]);
}

TEST(StockFolder, CellsThatATypologyFileStandsForAreNoted) {
  const HouseList list;
  StockOptions options = list.options();
  options.list = list.folder().write(
      "otra.csv", std::string(HouseList::kHeading) + "A;casa.bdl;casa.tip" + std::string(17, ';') +
                      "\nB;casa.bdl;casa.tip;;4" + std::string(15, ';') + "\n");
  runStock(options);
  EXPECT_EQ(std::string::npos, resultOf(list, "A")[stock::kResultNotes].find("celdas-no-leidas"));
  EXPECT_TRUE(resultOf(list, "B")[stock::kResultNotes].starts_with("celdas-no-leidas "));
}

TEST(StockFolder, ShardsOfOtherMaterialAreNotJoined) {
  HouseList list;
  StockOptions options = list.options();
  const auto join = [&] { return stopMessage([&] { stock::joinShards(options.folder); }); };
  for (const long number : {1L, 2L}) {
    options.shard = {number, 2, true};
    options.version = "1." + std::to_string(number);
    runStock(options);
  }
  EXPECT_TRUE(join().starts_with("La parte 2/2 no se hizo con lo mismo")) << join();
  options.version = "1.1";
  list.folder().write("otra.bdl", MinimalBuilding::kTemplate);
  list.folder().write("otra.tbl", MinimalBuilding::kTable);
  options.plantilla = list.folder() / "otra.bdl";
  runStock(options);
  EXPECT_TRUE(join().starts_with("La parte 2/2 no se hizo con lo mismo")) << join();
  options.plantilla.reset();
  runStock(options);
  fs::remove(list.folder() / "r/000000/V5.bdl");
  EXPECT_EQ(
      "Falta la salida 000000/V5.bdl de la parte 1/2. Ejecútela con --fragmento 1/2 --reanudar",
      join());
  EXPECT_FALSE(list.folder().has("r/resultados.csv") ||
               list.folder().has("r/resultados.csv.parcial"));
}

TEST(ResultFiles, AreKnownByTheirNames) {
  using stock::isResultFile;
  for (const char* const name : {"resultados.csv", "resultados-2-de-4.csv", "diario.csv", ".lote",
                                 "resumen-1-de-1.html", "resultados.csv.parcial"}) {
    EXPECT_TRUE(isResultFile(name)) << name;
  }
  for (const char* const name : {"resultados", "mis-resultados.csv", "resultados-viejos.csv",
                                 "resultados-5-de-4.csv", "diario-1.csv", "resumen.csv", ""}) {
    EXPECT_FALSE(isResultFile(name)) << name;
  }
  EXPECT_TRUE(stock::isOutputFolder("000000") && stock::isOutputFolder("1234567"));
  EXPECT_FALSE(stock::isOutputFolder("00000") || stock::isOutputFolder("00000a"));
}
