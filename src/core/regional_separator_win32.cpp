#include <windows.h>

#include "core/regional_separator.h"

char askRegionalSeparator() {
  wchar_t text[8] = L"";
  const int length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, text, 8);
  // A separator beyond ASCII is no point, which is all that is asked of it.
  return length < 2 ? '.' : text[0] < 0x80 ? static_cast<char>(text[0]) : ',';
}
