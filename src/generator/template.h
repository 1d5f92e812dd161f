#pragma once

#include <array>
#include <string>

#include "core/source_text.h"
#include "generator/name_list.h"
#include "generator/table_file.h"

/// Sums over a table's surfaces and zones. State that nothing reads: they belong to the preparation
/// of a run, and nothing depends on them.
struct SurfaceSums {
  explicit SurfaceSums(const TableFile& table);

  float meanSurfaceValue = 0;                    // per m2 of the flagged zones; 0 without area
  std::array<float, 8> wallAreaByOrientation{};  // m2, index as kOrientationNames
  std::array<float, 8> windowAreaByOrientation{};
  float kind2Area = 0;
  float kindMinus2Area = 0;
};

/// A template building and its table, read and interpreted once: all that a run needs besides the
/// typology. It never changes, and any number of runs in any number of threads may share it.
///
/// Errors: what readTableFile reports.
class Template {
 public:
  /// `building`: the text of the *.bdl file; `table`: that of the *.tbl file beside it.
  Template(SourceText building, SourceText table);
  Template(const Template&) = delete;
  Template& operator=(const Template&) = delete;

  const SourceText& building() const { return building_; }
  const SourceText& tableText() const { return tableText_; }
  const TableFile& table() const { return table_; }

  /// What the lines of rewritten commands are known by: the surfaces of the table, in its order,
  /// and behind them SPACE and FLOOR.
  const NameList& commandNames() const { return commandNames_; }
  int spaceEntry() const { return static_cast<int>(table_.surfaces.size()); }
  int floorEntry() const { return spaceEntry() + 1; }

  /// The template's file name without folder and extension. State that nothing reads, as `sums` is.
  const std::string& templateBaseName() const { return templateBaseName_; }
  const SurfaceSums& sums() const { return sums_; }

 private:
  SourceText building_;
  SourceText tableText_;  // whose bytes the table's names are
  TableFile table_;
  NameList commandNames_;
  std::string templateBaseName_;
  SurfaceSums sums_;
};
