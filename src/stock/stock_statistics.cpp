#include "stock/stock_statistics.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "core/concat.h"
#include "core/report_error.h"
#include "stock/hash.h"
#include "stock/outcome.h"
#include "stock/results_file.h"

namespace stock {

namespace {

constexpr double kHundredths = 100;
constexpr double kNoLimit = std::numeric_limits<double>::infinity();

// Those of the regulation's tables of 2006.
constexpr HistogramClass kOpeningClasses[] = {
    {10, "0 a 10 %"},  {20, "11 a 20 %"}, {30, "21 a 30 %"},         {40, "31 a 40 %"},
    {50, "41 a 50 %"}, {60, "51 a 60 %"}, {kNoLimit, "más de 60 %"},
};
// Those of the census of dwellings.
constexpr HistogramClass kAreaClasses[] = {
    {30, "hasta 30 m²"},         {45, "30 a 45 m²"},    {60, "45 a 60 m²"},
    {75, "60 a 75 m²"},          {90, "75 a 90 m²"},    {105, "90 a 105 m²"},
    {120, "105 a 120 m²"},       {150, "120 a 150 m²"}, {180, "150 a 180 m²"},
    {kNoLimit, "más de 180 m²"},
};
constexpr HistogramClass kCompactnessClasses[] = {
    {0.5, "hasta 0,5"}, {1, "0,5 a 1"}, {1.5, "1 a 1,5"},       {2, "1,5 a 2"},
    {2.5, "2 a 2,5"},   {3, "2,5 a 3"}, {3.5, "3 a 3,5"},       {4, "3,5 a 4"},
    {4.5, "4 a 4,5"},   {5, "4,5 a 5"}, {kNoLimit, "más de 5"},
};

double numberIn(const std::string& cell) {
  std::string text = cell;
  std::ranges::replace(text, ',', '.');
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return std::isfinite(value) ? value : 0;
}

/// A number of so many hundredths, or of ones, within what `T` holds: no building has more.
template <typename T>
T clampedTo(double value) {
  using Limits = std::numeric_limits<T>;
  const double inside = std::clamp(value, double{Limits::min()}, double{Limits::max()});
  return static_cast<T>(std::llround(inside));
}

/// Hands out the value that stands at a place when each stands there as often as it weighs. The
/// places must rise.
class WeighedValues {
 public:
  WeighedValues(std::span<const BuildingSample> sorted, StockMeasure measure, RowWeight weight,
                std::optional<int> tipo)
      : sorted_(sorted), measure_(measure), weight_(weight), tipo_(tipo) {}

  double at(std::int64_t place) {
    while (next_ < sorted_.size() && behind_ <= place) {
      const BuildingSample& sample = sorted_[next_++];
      if (tipo_ && sample.tipo != *tipo_) continue;
      if (sample.weight(weight_) <= 0) continue;
      behind_ += sample.weight(weight_);
      value_ = sample.value(measure_);
    }
    return value_;
  }

 private:
  std::span<const BuildingSample> sorted_;
  StockMeasure measure_;
  RowWeight weight_;
  std::optional<int> tipo_;
  std::size_t next_ = 0;
  std::int64_t behind_ = 0;  // the place behind the last one of `value_`
  double value_ = 0;
};

}  // namespace

double BuildingSample::value(StockMeasure measure) const {
  switch (measure) {
    case StockMeasure::kOpenings:
      return openings;
    case StockMeasure::kDwellingArea:
      return static_cast<double>(area) / kHundredths / dwellings;
    case StockMeasure::kCompactness:
      return compactness;
  }
  return 0;
}

std::int64_t BuildingSample::weight(RowWeight weight) const {
  switch (weight) {
    case RowWeight::kRow:
      return 1;
    case RowWeight::kDwelling:
      return dwellings;
    case RowWeight::kArea:
      return area;
  }
  return 0;
}

Percentiles percentilesOf(std::span<const BuildingSample> sorted, StockMeasure measure,
                          RowWeight weight, std::optional<int> tipo) {
  Percentiles p;
  double sum = 0;
  for (const BuildingSample& sample : sorted) {
    if (tipo && sample.tipo != *tipo) continue;
    p.weight += sample.weight(weight);
    sum += sample.value(measure) * static_cast<double>(sample.weight(weight));
  }
  if (p.weight == 0) return p;
  p.mean = sum / static_cast<double>(p.weight);
  // Two walks: the place behind one percentile's may lie behind the next one's.
  WeighedValues values(sorted, measure, weight, tipo), following(sorted, measure, weight, tipo);
  const std::int64_t last = p.weight - 1;
  const auto at = [&](std::int64_t percent) {
    constexpr std::int64_t kAll = 100;
    const std::int64_t rest = last % kAll * percent;
    const std::int64_t place = last / kAll * percent + rest / kAll;
    const double share = static_cast<double>(rest % kAll) / static_cast<double>(kAll);
    const double low = values.at(place);
    return low + share * (following.at(std::min(place + 1, last)) - low);
  };
  p.min = at(0);
  p.p5 = at(5);
  p.p25 = at(25);
  p.median = at(50);
  p.p75 = at(75);
  p.p95 = at(95);
  p.max = at(100);
  return p;
}

std::span<const HistogramClass> classesOf(StockMeasure measure) {
  switch (measure) {
    case StockMeasure::kOpenings:
      return kOpeningClasses;
    case StockMeasure::kDwellingArea:
      return kAreaClasses;
    case StockMeasure::kCompactness:
      return kCompactnessClasses;
  }
  return {};
}

StockStatistics::StockStatistics(const std::string& path) {
  RunningHash hash;
  const long count = ResultsFile::countRows(path);
  samples_.reserve(static_cast<std::size_t>(std::max(count, 0L)));
  bool heading = true;
  const bool ours = ResultsFile::readLines(path, [&](const std::string& line) {
    hash.add(line);
    hash.add("\r\n");
    const auto cells = cellsOf(line);
    if (!heading && cells) add(*cells);
    heading = false;
  });
  if (!ours) {
    ReportFailure(ErrorLog, {concat("No se han podido leer los resultados: ", path), std::nullopt});
  }
  fingerprint = hash.text();
  area = static_cast<double>(areaSum_) / kHundredths;
  volume = static_cast<double>(volumeSum_) / kHundredths;
}

void StockStatistics::add(const std::vector<std::string>& cells) {
  static const struct Columns {
    std::size_t tipo = resultColumn("tipo");
    std::size_t dwellings = resultColumn("viviendas");
    std::size_t area = resultColumn("superficie_total_m2");
    std::size_t volume = resultColumn("volumen_m3");
    std::size_t compactness = resultColumn("compacidad_m3_m2");
    std::size_t facade = resultColumn("fachada_m2");
    std::size_t courtyard = resultColumn("patio_m2");
    std::size_t openings = resultColumn("huecos_m2");
    std::size_t version = resultColumn("version");
  } kColumns;
  const auto count = [&](std::map<std::string, CodeCount>& codes, const std::string& code) {
    CodeCount& found = codes[code];
    if (found.rows++ == 0) found.firstId = cells[kResultId];
  };
  for (std::string_view left = cells[kResultNotes]; !left.empty();) {
    const std::size_t end = std::min(left.find(' '), left.size());
    count(notes, std::string(left.substr(0, end)));
    left.remove_prefix(std::min(end + 1, left.size()));
  }
  versions.insert(cells[kColumns.version]);
  const std::string& state = cells[kResultState];
  if (state != wordOf(State::kCorrecta)) {
    ++(state == wordOf(State::kRechazada) ? refused : failed);
    count(faults, cells[kResultCode]);
    return;
  }
  ++correct;
  BuildingSample sample;
  sample.tipo = clampedTo<std::int16_t>(numberIn(cells[kColumns.tipo]));
  // A building without any would be none.
  sample.dwellings =
      std::max<std::uint16_t>(clampedTo<std::uint16_t>(numberIn(cells[kColumns.dwellings])), 1);
  sample.area = clampedTo<std::uint32_t>(kHundredths * numberIn(cells[kColumns.area]));
  sample.compactness = static_cast<float>(numberIn(cells[kColumns.compactness]));
  const double wall = numberIn(cells[kColumns.facade]) + numberIn(cells[kColumns.courtyard]);
  if (wall > 0) {
    sample.openings = static_cast<float>(kHundredths * numberIn(cells[kColumns.openings]) / wall);
  }
  dwellings += sample.dwellings;
  areaSum_ += sample.area;
  volumeSum_ += clampedTo<std::uint32_t>(kHundredths * numberIn(cells[kColumns.volume]));
  TipoSums& sums = byTipo[sample.tipo];
  ++sums.rows;
  sums.dwellings += sample.dwellings;
  sums.area += sample.area;
  samples_.push_back(sample);
}

Percentiles StockStatistics::percentiles(StockMeasure measure, RowWeight weight,
                                         std::optional<int> tipo) {
  if (sortedBy_ != measure) {
    std::ranges::sort(samples_, {}, [&](const auto& sample) { return sample.value(measure); });
    sortedBy_ = measure;
  }
  return percentilesOf(samples_, measure, weight, tipo);
}

std::vector<long> StockStatistics::histogram(StockMeasure measure) const {
  const auto classes = classesOf(measure);
  std::vector<long> counts(classes.size());
  for (const BuildingSample& sample : samples_) {
    double value = sample.value(measure);
    if (measure == StockMeasure::kOpenings) value = std::floor(value + 0.5);
    const auto found = std::ranges::lower_bound(classes, value, {}, &HistogramClass::to);
    ++counts.at(static_cast<std::size_t>(found - classes.begin()));
  }
  return counts;
}

}  // namespace stock
