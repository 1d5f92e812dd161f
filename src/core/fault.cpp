#include "core/fault.h"

#include <algorithm>

#include "core/concat.h"

std::string asOneLine(const Place& place) {
  constexpr std::size_t kLongest = 200;  // bytes of the line
  if (place.line == 0) return {};
  const std::size_t start = place.text.find_first_not_of(" \t");
  std::string text = start == std::string::npos ? std::string() : place.text.substr(start);
  if (text.size() > kLongest) text = text.substr(0, kLongest) + " ...";
  // A terminal takes other control characters for orders.
  std::ranges::replace_if(
      text,
      [](char c) { return (static_cast<unsigned char>(c) < ' ' && c != '\t') || c == '\x7F'; },
      '?');
  return concat(place.file, ":", std::to_string(place.line), ":", std::to_string(place.column),
                text.empty() ? ":" : ": ", text);
}
