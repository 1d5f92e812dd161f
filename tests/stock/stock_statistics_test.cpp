#include "stock/stock_statistics.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "check/codes.h"
#include "stock/outcome.h"
#include "stock/summary_page.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"
#include "typology/tipo.h"

using stock::BuildingSample;
using stock::Outcome;
using stock::Percentiles;
using stock::RowWeight;
using stock::State;
using stock::StockMeasure;
using stock::StockStatistics;

namespace {

/// Buildings of one dwelling with these openings, %.
std::vector<BuildingSample> samplesOf(const std::vector<float>& openings) {
  std::vector<BuildingSample> samples;
  for (const float value : openings) {
    samples.push_back(
        {.openings = value, .compactness = 1, .area = 10000, .dwellings = 1, .tipo = 1});
  }
  return samples;
}

Percentiles openingsOf(const std::vector<BuildingSample>& samples,
                       RowWeight weight = RowWeight::kRow) {
  return percentilesOf(samples, StockMeasure::kOpenings, weight);
}

Outcome correct(const std::string& id, int tipo, double dwellingArea, double openings,
                double compactness) {
  Outcome outcome;
  outcome.id = id;
  outcome.state = State::kCorrecta;
  outcome.output = "000000/" + id + ".bdl";
  stock::BuildingMeasures& m = outcome.measures.emplace();
  m.tipo = tipo;
  m.measures.dwellings = 2;
  m.measures.floorArea = 2 * dwellingArea;
  m.measures.volume = 6 * dwellingArea;
  m.measures.facade = 75;
  m.measures.courtyard = 25;
  m.measures.openings = openings;
  m.measures.compactness = compactness;
  return outcome;
}

Outcome refused(const std::string& id, const std::string& code, const std::string& notes = "") {
  Outcome outcome;
  outcome.id = id;
  outcome.state = State::kRechazada;
  outcome.code = code;
  outcome.message = "mensaje";
  outcome.notes = notes;
  return outcome;
}

/// A folder with finished results.
class Results {
 public:
  explicit Results(const std::vector<Outcome>& outcomes) {
    std::string text = stock::resultsHeading();
    for (const Outcome& outcome : outcomes) text += resultsRow(outcome, "1.0");
    folder_.write("resultados.csv", text);
  }
  StockStatistics statistics() const { return StockStatistics(folder_ / "resultados.csv"); }
  std::string page() const {
    StockStatistics all = statistics();
    return summaryPage(all);
  }
  const TemporaryFolder& folder() const { return folder_; }

 private:
  TemporaryFolder folder_;
};

bool says(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

}  // namespace

TEST(Percentiles, AreInterpolatedLinearly) {
  const Percentiles p = openingsOf(samplesOf({10, 20, 30, 40}));
  EXPECT_EQ(4, p.weight);
  EXPECT_DOUBLE_EQ(10, p.min);
  EXPECT_DOUBLE_EQ(11.5, p.p5) << "0.15 of the way from the first to the second";
  EXPECT_DOUBLE_EQ(17.5, p.p25);
  EXPECT_DOUBLE_EQ(25, p.median);
  EXPECT_DOUBLE_EQ(32.5, p.p75);
  EXPECT_DOUBLE_EQ(38.5, p.p95);
  EXPECT_DOUBLE_EQ(40, p.max);
  EXPECT_DOUBLE_EQ(25, p.mean);
}

TEST(Percentiles, OfOneAndOfNone) {
  const Percentiles one = openingsOf(samplesOf({12.5F}));
  for (const double value : {one.min, one.p5, one.median, one.p95, one.max, one.mean}) {
    EXPECT_DOUBLE_EQ(12.5, value);
  }
  EXPECT_EQ(0, openingsOf({}).weight);
}

TEST(Percentiles, AValueIsThereAsOftenAsItWeighs) {
  std::vector<BuildingSample> weighed = samplesOf({10, 20, 30});
  weighed[0].dwellings = 4;
  weighed[1].dwellings = 1;
  weighed[2].dwellings = 3;
  const Percentiles byDwelling = openingsOf(weighed, RowWeight::kDwelling);
  const Percentiles repeated = openingsOf(samplesOf({10, 10, 10, 10, 20, 30, 30, 30}));
  EXPECT_EQ(8, byDwelling.weight);
  EXPECT_DOUBLE_EQ(repeated.p5, byDwelling.p5);
  EXPECT_DOUBLE_EQ(repeated.p25, byDwelling.p25);
  EXPECT_DOUBLE_EQ(15, byDwelling.median);
  EXPECT_DOUBLE_EQ(repeated.median, byDwelling.median);
  EXPECT_DOUBLE_EQ(repeated.p75, byDwelling.p75);
  EXPECT_DOUBLE_EQ(repeated.p95, byDwelling.p95);
  EXPECT_DOUBLE_EQ(repeated.mean, byDwelling.mean);

  weighed[0].area = 0;
  weighed[1].area = 99 * 10000;
  const Percentiles byArea = openingsOf(weighed, RowWeight::kArea);
  EXPECT_EQ(100 * 10000, byArea.weight);
  EXPECT_DOUBLE_EQ(20, byArea.min) << "what has no area does not count";
  EXPECT_DOUBLE_EQ(20, byArea.p95);
  EXPECT_DOUBLE_EQ(30, byArea.max);
  EXPECT_DOUBLE_EQ(20.1, byArea.mean);
}

TEST(StockStatistics, AddsUpWhatTheResultsSay) {
  StockStatistics all = Results({correct("a", 5, 100, 20, 1.5), refused("b", "plantas", "utf8 x"),
                                 correct("c", 10, 50, 60, 2), refused("d", "plantas")})
                            .statistics();
  EXPECT_EQ(4, all.rows());
  EXPECT_EQ(2, all.correct);
  EXPECT_EQ(2, all.refused);
  EXPECT_EQ(4, all.dwellings);
  EXPECT_DOUBLE_EQ(300, all.area);
  EXPECT_DOUBLE_EQ(900, all.volume);
  EXPECT_EQ(2, all.faults.at("plantas").rows);
  EXPECT_EQ("b", all.faults.at("plantas").firstId);
  EXPECT_EQ(1, all.notes.at("x").rows);
  EXPECT_EQ(std::set<std::string>{"1.0"}, all.versions);
  EXPECT_EQ(1, all.byTipo.at(10).rows);
  EXPECT_DOUBLE_EQ(40, all.percentiles(StockMeasure::kOpenings, RowWeight::kRow).median);
  EXPECT_DOUBLE_EQ(75, all.percentiles(StockMeasure::kDwellingArea, RowWeight::kRow).median);
  EXPECT_DOUBLE_EQ(1.5, all.percentiles(StockMeasure::kCompactness, RowWeight::kRow).min);
  EXPECT_DOUBLE_EQ(60, all.percentiles(StockMeasure::kOpenings, RowWeight::kRow, 10).median);
}

TEST(StockStatistics, AValueOnALimitBelongsBelowIt) {
  const struct {
    const char* why;
    double area, openings, compactness;
    std::size_t areaClass, openingsClass, compactnessClass;
  } rows[] = {
      {"nothing", 0, 0, 0, 0, 0, 0},
      {"the limits themselves", 30, 10, 0.5, 0, 0, 0},
      {"just above", 30.01, 10.5, 0.501, 1, 1, 1},
      {"openings are rounded", 60, 10.49, 1, 2, 0, 1},
      {"the highest limits", 180, 60.4, 5, 8, 5, 9},
      {"above them all", 1e6, 99, 77, 9, 6, 10},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.why);
    const StockStatistics all =
        Results({correct("a", 1, row.area, row.openings, row.compactness)}).statistics();
    EXPECT_EQ(1, all.histogram(StockMeasure::kDwellingArea).at(row.areaClass));
    EXPECT_EQ(1, all.histogram(StockMeasure::kOpenings).at(row.openingsClass));
    EXPECT_EQ(1, all.histogram(StockMeasure::kCompactness).at(row.compactnessClass));
  }
}

TEST(StockStatistics, AFileThatIsNoneOfOursEndsTheRun) {
  const TemporaryFolder folder;
  const std::string path = folder.write("resultados.csv", "a;b\r\n");
  EXPECT_EQ("No se han podido leer los resultados: " + path,
            stopMessage([&] { StockStatistics{path}; }));
}

TEST(SummaryPage, ShowsTheRefusedInABarOfTheirOwn) {
  const std::string page =
      Results({correct("a", 5, 100, 20, 1.5), refused("b", "plantas"), refused("d", "plantas")})
          .page();
  EXPECT_TRUE(says(page, "3 filas: 1\u00A0correcta, 2\u00A0rechazadas y 0\u00A0fallidas.") ||
              says(page, "3\u00A0filas: 1\u00A0correcta, 2\u00A0rechazadas y 0\u00A0fallidas."));
  EXPECT_TRUE(says(page,
                   "<th scope=\"row\">sin edificio</th><td class=\"num\">2</td>"
                   "<td class=\"num\">66,7\u00A0%</td>"));
  EXPECT_TRUE(says(page,
                   "<th scope=\"row\">plantas</th><td>El número de plantas no es el de la "
                   "tipología</td><td>b</td><td class=\"num\">2</td>"));
}

TEST(SummaryPage, StaysSmallAndWithoutMarkupOfTheList) {
  std::vector<Outcome> outcomes;
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    outcomes.push_back(correct("v" + std::to_string(tipo), tipo, 12345.67, 55, 1.234));
  }
  const std::string bad = "<script>alert('" + std::string(5000, 'x') + "')</script>";
  for (const CodeRow& row : allCodes()) {
    outcomes.push_back(refused(bad, std::string(row.word), std::string(row.word)));
  }
  const std::string page = Results(outcomes).page();
  EXPECT_LE(page.size(), 200U * 1024);
  EXPECT_FALSE(says(page, "<script"));
  EXPECT_TRUE(says(page, "&lt;script&gt;"));
  EXPECT_TRUE(says(page, "Content-Security-Policy"));
}

TEST(SummaryPage, OfAnEmptyListIsAPageToo) {
  const std::string page = Results({}).page();
  EXPECT_TRUE(says(page, "No hay filas correctas."));
  EXPECT_TRUE(page.ends_with("</html>\n"));
}
