#include "core/fault.h"

#include <algorithm>

#include "core/concat.h"

std::string asOneLine(const Place& place) {
  constexpr std::size_t kLongest = 200;  // bytes of the line
  constexpr std::size_t kInFront = 100;  // of them, before a column that would not be shown
  if (place.line == 0) return {};
  const std::size_t start = std::min(place.text.find_first_not_of(" \t"), place.text.size());
  std::string text = place.text.substr(start);
  const auto column = static_cast<std::size_t>(place.column - 1);
  // Of a line that is not at hand there is a column all the same.
  if (column > start + kLongest && column - kInFront < place.text.size()) {
    text = "... " + place.text.substr(column - kInFront);
  }
  if (text.size() > kLongest) text.replace(kLongest, std::string::npos, " ...");
  std::string line = concat(place.file, ":", std::to_string(place.line), ":",
                            std::to_string(place.column), text.empty() ? ":" : ": ", text);
  // A terminal takes other control characters for orders, and one line is one line.
  std::ranges::replace_if(
      line,
      [](char c) { return (static_cast<unsigned char>(c) < ' ' && c != '\t') || c == '\x7F'; },
      '?');
  return line;
}
