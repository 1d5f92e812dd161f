#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "stock/outcome.h"
#include "stock/outputs.h"
#include "stock/read_once.h"
#include "stock/row_forms.h"
#include "stock/row_typology.h"
#include "stock/shared_inputs.h"
#include "stock/template_buildings.h"

namespace stock {

/// What dwellings are made with.
struct DwellingOptions {
  std::string listName;                  // as messages call it
  std::string listFolder;                // what paths of the list are relative to
  std::optional<std::string> plantilla;  // of the rows that name none
  bool keepTypologies = false;
  bool usedFolder = false;  // an earlier work may have kept typologies in it
  std::string version;
};

/// A row on its way: its inputs are read, nothing is made of them yet.
struct PreparedDwelling {
  std::string output;  // from the folder of the results
  std::shared_ptr<const SharedTemplate> plantilla;
  std::string typologyName;
  RowTypology typology;
  bool ownFile = false;  // the typology is a file that the list names
  std::shared_ptr<const SharedText> texts;
  std::string textsName;     // the path of the texts
  std::string fingerprint;   // of all inputs, wherever they lie
  std::string refusedPrint;  // the same and where they lie, which a refusal tells
};

/// Room for one dwelling, which the next one uses again, and what earlier ones told of those alike.
/// Each thread has its own.
struct DwellingRoom {
  std::string text;
  RowForms forms;
  std::map<std::shared_ptr<const SharedTemplate>, TemplateBuildings> buildings;

  TemplateBuildings& buildingsOf(const std::shared_ptr<const SharedTemplate>& shared);
};

/// Makes dwellings of rows. Any number of threads share one; they share the templates and texts and
/// nothing else. What goes wrong with a row becomes its outcome.
class Dwellings {
 public:
  /// The outputs must outlive it.
  Dwellings(DwellingOptions options, const Outputs& outputs)
      : options_(std::move(options)), outputs_(outputs) {}

  /// Reads what a row names. `number`: of the row in the list, from 1; `repeated`: its ID has been
  /// there before. Throws Refusal.
  PreparedDwelling prepare(const ListRow& row, long number, bool repeated);
  /// Generates the building and puts it in its place. Throws Refusal, and DiskFault when the output
  /// cannot be written.
  void make(const ListRow& row, const PreparedDwelling& prepared, DwellingRoom& room,
            Outcome& outcome) const;
  /// The fingerprint of a row that `prepare` refused: of all that is said of it.
  std::string printOf(const Outcome& refused) const;
  /// The fingerprint of the template that was given for all rows; empty where none was.
  std::string printOfTemplate();

 private:
  SharedTemplate readTemplate(const std::string& path) const;
  void readTypology(const ListRow& row, PreparedDwelling& prepared);

  DwellingOptions options_;
  const Outputs& outputs_;
  ReadOnce<SharedTemplate> templates_;
  ReadOnce<SharedText> texts_;
};

}  // namespace stock
