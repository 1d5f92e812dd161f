#pragma once

#include <string>
#include <string_view>

namespace stock {

/// A number as people write it in a table: with a decimal comma or point.
struct ListNumber {
  std::string text;    // as the programs of the chain write it, with a point; empty: no number
  std::string fault;   // why not
  bool noted = false;  // "1.200", which is read as 1,2: exactly three digits behind a point
};

/// Reads a number. `commaSeparates`: the comma stands between the columns, so none is taken for a
/// decimal mark.
ListNumber readListNumber(std::string_view text, bool commaSeparates);
/// The same for a whole number; "5,0" is one, and "5.000" might be five thousand.
ListNumber readListInteger(std::string_view text, bool commaSeparates);

}  // namespace stock
