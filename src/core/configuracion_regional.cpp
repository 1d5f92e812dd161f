#include "core/configuracion_regional.h"

#include <algorithm>
#include <charconv>

#ifdef _WIN32
#include <windows.h>
#else
#include <langinfo.h>
#include <locale.h>
#endif

#include "core/numbers.h"

namespace {

char askRegionalSeparator() {
#ifdef _WIN32
  char text[8] = ".";
  GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, text, sizeof text);
  return text[0];
#else
  const locale_t regional = newlocale(LC_NUMERIC_MASK, "", nullptr);
  if (regional == nullptr) return '.';
  const char separator = *nl_langinfo_l(RADIXCHAR, regional);
  freelocale(regional);
  return separator != '\0' ? separator : '.';
#endif
}

}  // namespace

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
