#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "stock/list_columns.h"
#include "stock/list_reader.h"
#include "typology/typology_record.h"

namespace stock {

/// One row of a list with what its columns are for. A view: both must outlive it.
class ListRow {
 public:
  ListRow(const ListColumns& columns, const Record& record, std::string_view listName)
      : columns_(columns), record_(record), listName_(listName) {}

  /// The text of a column without blanks around it; empty where the list or the row lacks it.
  std::string_view text(int column) const;
  std::string_view id() const { return text(columns_.id); }
  /// Where a column stands in this row; the row's first cell for one that it lacks.
  Place placeOf(int column) const;
  Place place() const { return placeOf(0); }
  const ListColumns& columns() const { return columns_; }
  const Record& record() const { return record_; }

 private:
  const ListColumns& columns_;
  const Record& record_;
  std::string_view listName_;
};

/// The text of the typology file that a row stands for, and where its lines come from.
struct RowTypology {
  std::string bytes;               // Windows-1252, as --guardar-tip keeps them
  std::vector<int> columnOfLine;   // of the lines before the texts; -1: of none
  long textsLine = 0;              // the line of `bytes` in which the texts begin
  std::vector<std::string> notes;  // codes of what is worth knowing
  std::string form;                // what the row says, but for the digits of its numbers
};

/// Whether an ID is one: letters without accents, digits, "-", "_", ".", at most 100, and no name
/// that the system keeps to itself.
bool isGoodId(std::string_view id);

/// Writes the VIVIENDA command of a row, with the line ends of `texts`, and these, the bytes of its
/// file of texts, behind it.
/// Throws Refusal.
RowTypology writeTypology(const ListRow& row, std::string_view texts);

/// Whether a row has data of its own typology, or texts for it.
bool describesItself(const ListRow& row);

/// The cell of the first datum that must be there and is not; nothing when all are.
std::optional<Place> placeOfMissing(const ListRow& row);

/// Makes sure that reading the typology gave what the row says: the reading goes by search, and a
/// name may hold what looks like a keyword. Throws Refusal.
void requireReadAsWritten(const ListRow& row, const TypologyRecord& read);

/// Puts the numbers of a row into a record of one that says the same but for their digits. False
/// where a run might refuse them.
bool setNumbers(const ListRow& row, TypologyRecord& typology);

/// The code of a note about a number such as "1.200".
inline constexpr const char* kPointNote = "punto-decimal";
/// That of a row with cells that its typology file stands for.
inline constexpr const char* kUnreadNote = "celdas-no-leidas";

}  // namespace stock
