#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/source_text.h"
#include "generator/name_list.h"
#include "generator/table_file.h"
#include "generator/template_stops.h"

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
  /// How many buildings will be made of it. For many, what its lines are to a generation is found
  /// out now; for one, when the lines are read. The buildings are the same.
  enum class Use { kOnce, kOften };

  /// `building`: the text of the *.bdl file; `table`: that of the *.tbl file beside it.
  Template(SourceText building, SourceText table, Use use = Use::kOnce);
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

  /// Null for a template that is used once, or that is too large for them.
  const TemplateStops* stops() const { return stops_ ? &*stops_ : nullptr; }
  /// The text that copied lines of an output are views of.
  std::string_view copiedText() const { return stops_ ? stops_->text() : building_.bytes(); }

  /// The template's file name without folder and extension. State that nothing reads, as `sums` is.
  const std::string& templateBaseName() const { return templateBaseName_; }
  const SurfaceSums& sums() const { return sums_; }

 private:
  SourceText building_;
  SourceText tableText_;  // whose bytes the table's names are
  TableFile table_;
  NameList commandNames_;
  std::optional<TemplateStops> stops_;
  std::string templateBaseName_;
  SurfaceSums sums_;
};

/// Where the lines of a template stand, found out when somebody first asks.
class TemplatePlaces {
 public:
  /// `building` must outlive this.
  explicit TemplatePlaces(const SourceText& building) : building_(building) {}

  /// The place of line `number`, from 1, as a LineReader counts.
  Place placeOf(long number);

 private:
  const SourceText& building_;
  std::optional<LineIndex> index_;
  std::vector<Span> lines_;
};
