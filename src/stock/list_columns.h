#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/fault.h"
#include "stock/list_reader.h"
#include "typology/vivienda_keywords.h"

namespace stock {

/// The columns that say which dwelling a row is and where its files lie.
inline constexpr std::string_view kIdColumn = "ID";
inline constexpr std::string_view kTemplateColumn = "PLANTILLA";
inline constexpr std::string_view kTypologyColumn = "TIPOLOGIA";
inline constexpr std::string_view kTextsColumn = "TEXTOS";

/// Behind the keyword of a value a façade, in the order of the façades.
inline constexpr std::array<std::string_view, 4> kFacadeSuffixes = {"-SUR", "-ESTE", "-NORTE",
                                                                    "-OESTE"};

/// A keyword of VIVIENDA and its columns: one, or four for one with a value a façade.
struct KeywordColumns {
  const ViviendaKeyword* keyword = nullptr;
  std::vector<std::string> names;
  std::vector<int> at;  // index in the list; -1: the list does not have it
};

/// All that a list may have, in the order in which a typology is written.
std::vector<KeywordColumns> keywordColumns();

/// What the columns of one list are for. An index of -1: the list does not have it.
struct ListColumns {
  std::size_t count = 0;
  int id = -1;
  int plantilla = -1;
  int tipologia = -1;
  int textos = -1;
  bool describe = true;  // hold all that a row without TIPOLOGIA must have
  std::vector<KeywordColumns> keywords;
  char separator = ';';
  /// So that none is a decimal mark.
  bool commaSeparates() const { return separator == ','; }
  std::vector<Fault> warnings;  // columns that nobody reads, each with what may have been meant
};

/// Reads the first line of a list. Names are compared without case and accents. A column that is
/// missing or there twice ends the run. `needsTemplate`: no template was given for all rows.
ListColumns readHeader(ListReader& list, bool needsTemplate);

/// The columns, one a line, for people: name, unit, range, default, whether it is required.
std::string columnsForPeople();

}  // namespace stock
