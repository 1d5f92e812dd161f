#pragma once

#include <memory>
#include <optional>
#include <string>

#include "check/checked_template.h"
#include "core/output_lines.h"
#include "generator/template.h"
#include "report/original_building.h"
#include "stock/note_codes.h"
#include "stock/outcome.h"
#include "stock/read_once.h"
#include "stock/row_typology.h"

namespace stock {

/// A template with its table and library, read once; or what a run says of them.
struct SharedTemplate {
  std::optional<Fault> missing;                              // asked for before the typology
  std::optional<Fault> missingLibrary;                       // and behind it
  std::optional<Fault> fault;                                // of reading them
  std::unique_ptr<const Template> plantilla;                 // null with any of these
  std::unique_ptr<const report::OriginalBuilding> original;  // of it
  std::unique_ptr<const CheckedTemplate> checked;            // likewise
  NoteCodes notes;                                           // about it, whatever the typology
  std::string fingerprint;
};

/// A file of texts, or a typology of its own.
struct SharedText {
  std::optional<Fault> fault;
  std::string bytes;
  std::string fingerprint;
};

/// Where the outputs go, and what they are made with.
struct DwellingOptions {
  std::string folder;                    // of the results, ending in "/"
  std::string listName;                  // as messages call it
  std::string listFolder;                // what paths of the list are relative to
  std::optional<std::string> plantilla;  // of the rows that name none
  bool keepTypologies = false;
  std::string version;
};

/// A row on its way: its inputs are read, nothing is made of them yet.
struct PreparedDwelling {
  std::string output;  // from the folder of the results
  std::shared_ptr<const SharedTemplate> plantilla;
  std::string typologyName;
  RowTypology typology;
  bool ownFile = false;      // the typology is a file that the list names
  std::string textsName;     // the path of the texts
  std::string fingerprint;   // of all inputs
  std::string refusedPrint;  // the same and where the row stands, which a refusal's place tells
};

/// Room for one dwelling, which the next one uses again. Each thread has its own.
struct DwellingRoom {
  OutputLines lines;
  std::string text;
};

/// Makes dwellings of rows. Any number of threads share one; they share the templates and texts and
/// nothing else. What goes wrong with a row becomes its outcome.
class Dwellings {
 public:
  explicit Dwellings(DwellingOptions options) : options_(std::move(options)) {}

  /// Reads what a row names. `number`: of the row in the list, from 1; `repeated`: its ID has been
  /// there before. Throws Refusal.
  PreparedDwelling prepare(const ListRow& row, long number, bool repeated);
  /// Generates the building and puts it in its place. Throws Refusal, and DiskFault when the output
  /// cannot be written.
  void make(const ListRow& row, const PreparedDwelling& prepared, DwellingRoom& room,
            Outcome& outcome) const;
  /// The fingerprint of a row that `prepare` refused: of all that is said of it.
  std::string printOf(const Outcome& refused) const;
  /// Makes sure that nothing stands where the output of a row would.
  void removeOutput(const std::string& output) const;

  /// Where the output of a row goes, from the folder of the results: 1000 rows a folder.
  static std::string outputOf(std::string_view id, long number);
  static std::string typologyOf(const std::string& output);

 private:
  SharedTemplate readTemplate(const std::string& path) const;
  std::string pathInList(std::string_view path) const;
  void readTypology(const ListRow& row, PreparedDwelling& prepared);
  void putInPlace(const std::string& path, std::string_view bytes) const;

  DwellingOptions options_;
  ReadOnce<SharedTemplate> templates_;
  ReadOnce<SharedText> texts_;
};

/// Thrown when a file cannot be written.
struct DiskFault {
  std::string message;
};

}  // namespace stock
