#include "generator/keyword_lines.h"

#include <cmath>

#include "core/numbers.h"

void KeywordLines::writeKeyword(std::string_view keyword, std::string_view value) {
  writeLine("  ", keyword, " = ", value, " ");
}

void KeywordLines::writeKeyword(std::string_view keyword, int value) {
  writeKeyword(keyword, std::to_string(value));
}

void KeywordLines::writeKeyword(std::string_view keyword, float value) {
  writeKeyword(keyword, formatFinite(keyword, value));
}

std::string KeywordLines::formatFinite(std::string_view keyword, float value) {
  if (!std::isfinite(value) && notFiniteKeyword_.empty()) {
    notFiniteKeyword_ = keyword;
    notFiniteValue_ = value;
  }
  return formatReal(value);
}
