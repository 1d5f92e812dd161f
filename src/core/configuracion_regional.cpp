#include "core/configuracion_regional.h"

#include <algorithm>
#include <charconv>

#include "core/numbers.h"
#include "core/regional_separator.h"

char separadorDecimalRegional() {
  static const char separator = askRegionalSeparator();
  return separator;
}

bool AjustarSeparadorDecimal(std::string& text) {
  return AjustarSeparadorDecimal(text, separadorDecimalRegional());
}

bool AjustarSeparadorDecimal(std::string& text, char separator) {
  const char from = separator == '.' ? ',' : '.';
  const char to = separator == '.' ? '.' : ',';
  if (!text.empty()) std::replace(text.begin(), text.end() - 1, from, to);
  return true;
}

float pasarPorConversionRegional(float value) {
  char buffer[64];
  std::string text(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
  AjustarSeparadorDecimal(text);
  std::replace(text.begin(), text.end(), ',', '.');  // the regional conversion reads its own mark
  std::string_view rest = text;
  scanReal(rest, value);
  return value;
}
