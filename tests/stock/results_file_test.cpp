#include "stock/results_file.h"

#include <gtest/gtest.h>

#include <thread>

#include "stock/disk_fault.h"
#include "stock/journal.h"
#include "stock/outcome.h"
#include "stock/refusal.h"
#include "stock/shard.h"
#include "support/temporary_folder.h"

using stock::Outcome;
using stock::ResultsFile;
using stock::Shard;
using stock::State;

namespace {

Outcome outcomeOf(const std::string& id) {
  Outcome outcome;
  outcome.id = id;
  outcome.state = State::kRechazada;
  outcome.code = "plantas";
  outcome.message = "dos; \"tres\"\ny \xF1";
  outcome.place = Place{.file = "lista.csv", .line = 3, .column = 7, .text = {}};
  outcome.fingerprint = "00ff";
  return outcome;
}

std::string rowOf(const std::string& id) { return resultsRow(outcomeOf(id), "1.0"); }

const std::vector<std::string> kIds = {"a", "b", "c", "d"};

/// Adds the rows that a file lacks, in any order, and puts it in order.
void resume(const std::string& path) {
  ResultsFile results(path, true);
  std::vector<std::uint64_t> offsets(kIds.size());
  for (std::size_t i = kIds.size(); i-- > 0;) {
    const auto known = results.find(kIds[i]);
    offsets[i] = known ? known->offset : results.append(rowOf(kIds[i]));
  }
  results.arrange(offsets);
}

}  // namespace

TEST(Outcome, ARowIsOneLineThatASpreadsheetReads) {
  const std::string row = rowOf("a");
  EXPECT_TRUE(row.starts_with("a;rechazada;plantas;\"dos; \"\"tres\"\" y ñ\";lista.csv:3:7;;;;"))
      << row;
  EXPECT_TRUE(row.ends_with(";00ff;1.0\r\n")) << row;
  const auto cells = stock::cellsOf(row.substr(0, row.size() - 2));
  ASSERT_TRUE(cells);
  EXPECT_EQ("dos; \"tres\" y ñ", (*cells)[stock::kResultMessage]);
  EXPECT_EQ("00ff", (*cells)[stock::fingerprintColumn()]);
  EXPECT_TRUE(
      stock::resultsHeading().starts_with("\xEF\xBB\xBF"
                                          "ID;ESTADO;CODIGO;MENSAJE;LUGAR;AVISOS;SALIDA;"));
}

TEST(Outcome, AnIdThatLooksLikeAFormulaIsText) {
  for (const char* id : {"=1+1", "+1", "@SUM(A1)", "-1+1"}) {
    EXPECT_TRUE(rowOf(id).starts_with(std::string("'") + id + ";")) << id;
  }
  EXPECT_TRUE(rowOf("-1").starts_with("-1;")) << "an ID that a dwelling may have stays as it is";
}

TEST(Outcome, MeasuresHaveADecimalComma) {
  Outcome outcome = outcomeOf("a");
  outcome.measures.emplace();
  outcome.measures->tipo = 22;
  outcome.measures->measures.storeys = 3;
  outcome.measures->measures.volume = 1234567.891;
  outcome.measures->measures.compactness = 1.23456;
  outcome.measures->measures.facades.push_back(
      {.side = kEast, .courtyard = true, .asked = 12.5, .obtained = 13.333, .reasons = {}});
  const std::string row = resultsRow(outcome, "1");
  const auto cells = stock::cellsOf(row.substr(0, row.size() - 2));
  const std::string head = stock::resultsHeading();
  const auto names = stock::cellsOf(head.substr(0, head.size() - 2));
  ASSERT_TRUE(cells && names);
  const auto of = [&](std::string_view name) {
    const auto at = std::find(names->begin(), names->end(), name) - names->begin();
    return cells->at(static_cast<std::size_t>(at));
  };
  EXPECT_EQ("22", of("tipo"));
  EXPECT_EQ("3", of("plantas"));
  EXPECT_EQ("1234567,89", of("volumen_m3"));
  EXPECT_EQ("1,235", of("compacidad_m3_m2"));
  EXPECT_EQ("12,50", of("patio_este_pedido_pct"));
  EXPECT_EQ("13,33", of("patio_este_obtenido_pct"));
  EXPECT_EQ("", of("fachada_este_pedido_pct")) << "a side without a wall is unknown, not 0";
}

TEST(ResultsFile, ResumedFromAnyLengthEndsInTheSameBytes) {
  const TemporaryFolder folder;
  const std::string path = folder / "resultados.csv";
  resume(path);
  const std::string whole = readBytes(path);
  EXPECT_EQ(stock::resultsHeading() + rowOf("a") + rowOf("b") + rowOf("c") + rowOf("d"), whole);
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    SCOPED_TRACE(length);
    writeFile(path, whole.substr(0, length));
    resume(path);
    ASSERT_EQ(whole, readBytes(path));
  }
  EXPECT_EQ(std::vector<std::string>{"resultados.csv"}, folder.names());
}

TEST(ResultsFile, TheLastLineOfAnIdCounts) {
  const TemporaryFolder folder;
  const std::string path = folder / "resultados.csv";
  {
    ResultsFile results(path, false);
    results.append(rowOf("a"));
    Outcome later = outcomeOf("a");
    later.code = "tabla";
    results.append(resultsRow(later, "1.0"));
    Outcome repeated = outcomeOf("a");
    repeated.code = stock::kRepeatedId;
    results.append(resultsRow(repeated, "1.0"));
    EXPECT_FALSE(results.find("a")) << "only what was there when it was opened";
  }
  ResultsFile results(path, true);
  ASSERT_TRUE(results.find("a"));
  EXPECT_EQ("tabla", results.find("a")->cells[stock::kResultCode]);
  EXPECT_FALSE(results.find("b"));
  EXPECT_EQ(3, ResultsFile::countRows(path));
}

TEST(ResultsFile, OneThatIsNoneOfOursIsBegunAnew) {
  const TemporaryFolder folder;
  const std::string path = folder.write("resultados.csv", "otra;cosa\r\na;b\r\n");
  { const ResultsFile results(path, true); }
  EXPECT_EQ(stock::resultsHeading(), readBytes(path));
  EXPECT_EQ(-1, ResultsFile::countRows(folder.write("otro.csv", "a;b\r\n")));
}

TEST(ResultsFile, LinesOfManyThreadsStayWhole) {
  const TemporaryFolder folder;
  const std::string path = folder / "resultados.csv";
  constexpr int kThreads = 4;
  constexpr int kRows = 200;
  {
    ResultsFile results(path, false);
    std::vector<std::jthread> threads;
    for (int t = 0; t < kThreads; ++t) {
      threads.emplace_back([&results, t] {
        for (int i = 0; i < kRows; ++i) results.append(rowOf(std::to_string(t * kRows + i)));
      });
    }
  }
  ResultsFile results(path, true);
  for (int i = 0; i < kThreads * kRows; ++i) EXPECT_TRUE(results.find(std::to_string(i))) << i;
}

TEST(ResultsFile, AFolderThatIsNotThereIsADiskFault) {
  EXPECT_THROW(ResultsFile("/no/existe/resultados.csv", false), stock::DiskFault);
}

TEST(Journal, SaysWhetherItsShardIsFinished) {
  const TemporaryFolder folder;
  const std::string path = folder / "diario.csv";
  EXPECT_FALSE(stock::Journal::endOf(path));
  {
    stock::Journal journal(path, false);
    journal.addRow("fin", "correcta", 0.25);
  }
  EXPECT_FALSE(stock::Journal::endOf(path));
  { stock::Journal(path, true).finish({10, 5, "abc"}); }
  const auto end = stock::Journal::endOf(path);
  ASSERT_TRUE(end);
  EXPECT_EQ(10, end->listRows);
  EXPECT_EQ(5, end->rows);
  EXPECT_EQ("abc", end->inputs);
  { const stock::Journal again(path, true); }
  EXPECT_FALSE(stock::Journal::endOf(path)) << "work on it has begun again";
  writeFile(path, "fin;10;5;abc");
  EXPECT_FALSE(stock::Journal::endOf(path)) << "a piece of a line";
  writeFile(path, "fin;10;x;abc\r\n");
  EXPECT_FALSE(stock::Journal::endOf(path));
}

TEST(Shard, IsKOfN) {
  const auto shard = stock::parseShard("2/4");
  ASSERT_TRUE(shard);
  EXPECT_EQ("resultados-2-de-4", shard->nameOf("resultados"));
  EXPECT_EQ("resultados", Shard{}.nameOf("resultados"));
  EXPECT_EQ("resultados-1-de-1", stock::parseShard("1/1")->nameOf("resultados"));
  for (const char* text : {"", "2", "/", "0/4", "5/4", "2/", "/4", "-1/4", "2/4x", "a/b", "1/0",
                           "1/99999999999999999999"}) {
    EXPECT_FALSE(stock::parseShard(text)) << text;
  }
}

TEST(Shard, AllOfThemHaveEveryRowOnce) {
  for (long count = 1; count < 7; ++count) {
    for (long rows = 0; rows < 20; ++rows) {
      long sum = 0;
      for (long number = 1; number <= count; ++number) {
        const Shard shard{number, count, true};
        long own = 0;
        for (long row = 1; row <= rows; ++row) own += shard.has(row) ? 1 : 0;
        EXPECT_EQ(own, shard.rowsOf(rows)) << number << " of " << count << ", " << rows;
        sum += own;
      }
      EXPECT_EQ(rows, sum);
    }
  }
}

TEST(Shard, OfASlurmArray) {
  const struct {
    const char* why;
    std::vector<const char*> values;  // ID, MIN, MAX, COUNT
    long number;                      // 0: none
    long count;
    bool problem;
  } cases[] = {
      {"from 1", {"2", "1", "4", "4"}, 2, 4, false},
      {"from 0", {"0", "0", "3", "4"}, 1, 4, false},
      {"with a step", {"6", "2", "8", "4"}, 3, 4, false},
      {"one task is the whole list", {"5", "5", "5", "1"}, 1, 1, false},
      {"not set", {nullptr, nullptr, nullptr, nullptr}, 0, 0, false},
      {"not a number", {"x", "1", "4", "4"}, 0, 0, false},
      {"gaps", {"2", "1", "9", "3"}, 0, 0, true},
      {"uneven", {"1", "1", "4", "3"}, 0, 0, true},
      {"outside", {"9", "1", "4", "4"}, 0, 0, true},
      {"none", {"0", "0", "0", "0"}, 1, 0, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    std::string problem;
    const auto shard = stock::shardOfArray(
        [&](const char* name) {
          const std::vector<std::string> names = {"SLURM_ARRAY_TASK_ID", "SLURM_ARRAY_TASK_MIN",
                                                  "SLURM_ARRAY_TASK_MAX", "SLURM_ARRAY_TASK_COUNT"};
          const auto at = std::find(names.begin(), names.end(), name) - names.begin();
          return c.values.at(static_cast<std::size_t>(at));
        },
        problem);
    EXPECT_EQ(c.problem, !problem.empty()) << problem;
    EXPECT_EQ(c.number > 0 && !c.problem, shard.has_value());
    if (shard) {
      EXPECT_EQ(c.number, shard->number);
      EXPECT_EQ(c.count, shard->count);
    }
  }
}
