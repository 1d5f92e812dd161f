#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What a finished file of results adds up to: counts, sums, percentiles and histograms.
namespace stock {

enum class StockMeasure {
  kOpenings,      // %, of all façades, to the street and to courtyards
  kDwellingArea,  // m2, floor area of the model by its dwellings
  kCompactness    // m3/m2
};

/// What a row counts for.
enum class RowWeight {
  kRow,       // each row the same
  kDwelling,  // each dwelling
  kArea       // each m2 of floor area
};

/// One building. 16 bytes: to find percentiles, those of all rows have to be held.
struct BuildingSample {
  float openings = 0;      // %
  float compactness = 0;   // m3/m2
  std::uint32_t area = 0;  // hundredths of a m2, all storeys
  std::uint16_t dwellings = 1;
  std::int16_t tipo = 0;

  double value(StockMeasure measure) const;
  /// In rows, dwellings or hundredths of a m2.
  std::int64_t weight(RowWeight weight) const;
};

/// Of the values of a measure. Percentiles are interpolated linearly, as if each value were there
/// as many times as it weighs.
struct Percentiles {
  std::int64_t weight = 0;  // of all; 0: there is no value
  double min = 0, p5 = 0, p25 = 0, median = 0, p75 = 0, p95 = 0, max = 0, mean = 0;
};

/// Of samples in the rising order of the measure: of all, or of those of one typology number.
Percentiles percentilesOf(std::span<const BuildingSample> sorted, StockMeasure measure,
                          RowWeight weight, std::optional<int> tipo = std::nullopt);

/// A class of a histogram: values above the one before it, up to and including `to`.
struct HistogramClass {
  double to = 0;
  std::string_view label;  // UTF-8
};
/// Fixed, so that two lists can be compared. Openings count rounded to a whole per cent.
std::span<const HistogramClass> classesOf(StockMeasure measure);

/// How often a code is there, and where first.
struct CodeCount {
  long rows = 0;
  std::string firstId;
};

/// What the buildings of a typology number add up to.
struct TipoSums {
  long rows = 0;
  std::int64_t dwellings = 0;
  std::int64_t area = 0;  // hundredths of a m2
};

class StockStatistics {
 public:
  /// Reads a file of results. One that cannot be read, or is none, ends the run.
  explicit StockStatistics(const std::string& path);

  long rows() const { return correct + refused + failed; }
  long correct = 0, refused = 0, failed = 0;
  std::int64_t dwellings = 0;
  double area = 0;                          // m2
  double volume = 0;                        // m3
  std::map<std::string, CodeCount> faults;  // of rows that are not correct
  std::map<std::string, CodeCount> notes;
  std::set<std::string> versions;  // of the program
  std::string fingerprint;         // of the file
  std::map<int, TipoSums> byTipo;

  /// Of all buildings, or of those of one typology number. Sorts the samples.
  Percentiles percentiles(StockMeasure measure, RowWeight weight,
                          std::optional<int> tipo = std::nullopt);
  /// Rows a class.
  std::vector<long> histogram(StockMeasure measure) const;

 private:
  void add(const std::vector<std::string>& cells);

  std::vector<BuildingSample> samples_;
  std::int64_t areaSum_ = 0, volumeSum_ = 0;  // hundredths
  std::optional<StockMeasure> sortedBy_;
};

}  // namespace stock
