#include "generator/keyword_lines.h"

#include <cassert>
#include <cmath>

#include "core/numbers.h"
#include "typology/vivienda_keywords.h"

void KeywordLines::writeKeyword(std::string_view keyword, std::string_view value) {
  writeLine("  ", keyword, " = ", value, " ");
}

void KeywordLines::writeKeyword(std::string_view keyword, int value) {
  writeKeyword(keyword, std::to_string(value));
}

void KeywordLines::writeKeyword(std::string_view keyword, float value, std::string_view origin) {
  writeKeyword(keyword, formatFinite(keyword, value, origin));
}

std::string KeywordLines::formatFinite(std::string_view keyword, float value,
                                       std::string_view origin) {
  assert(origin.empty() || findViviendaKeyword(origin) != nullptr);
  if (!std::isfinite(value) && !notFinite_) {
    notFinite_ = {std::string(keyword), value, std::string(origin)};
  }
  return formatReal(value);
}
