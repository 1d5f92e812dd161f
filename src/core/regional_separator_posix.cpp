#include <langinfo.h>
#include <locale.h>

#include "core/regional_separator.h"

char askRegionalSeparator() {
  const locale_t regional = newlocale(LC_NUMERIC_MASK, "", nullptr);
  if (regional == nullptr) return '.';
  const char separator = *nl_langinfo_l(RADIXCHAR, regional);
  freelocale(regional);
  return separator != '\0' ? separator : '.';
}
