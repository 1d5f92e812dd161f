#include <windows.h>

#include "app/desktop/platform_command_line.h"
#include "app/wide_text.h"

/// The system hands over one text; the arguments that the C library makes of it are not asked.
std::string platformCommandLine(int, const char* const[]) {
  const wchar_t* rest = GetCommandLineW();
  // The program's name comes first; it is quoted when it has blanks.
  bool quoted = false;
  for (; *rest != L'\0' && (quoted || (*rest != L' ' && *rest != L'\t')); ++rest) {
    if (*rest == L'"') quoted = !quoted;
  }
  while (*rest == L' ' || *rest == L'\t') ++rest;
  return toUtf8(rest);
}
