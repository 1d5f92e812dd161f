#include "app/desktop/platform_command_line_win32.h"

#include <windows.h>

#include <algorithm>

#include "app/desktop/platform_command_line.h"
#include "core/wide_text.h"

std::string behindProgramName(std::wstring_view commandLine) {
  constexpr std::wstring_view kGap = L" \t";
  std::size_t end = 0;
  bool quoted = false;
  for (; end < commandLine.size(); ++end) {
    if (commandLine[end] == L'"') quoted = !quoted;
    if (!quoted && kGap.find(commandLine[end]) != std::wstring_view::npos) break;
  }
  const std::size_t rest = commandLine.find_first_not_of(kGap, end);
  return toUtf8(commandLine.substr(std::min(rest, commandLine.size())));
}

/// The system hands over one text; the arguments that the C library makes of it are not asked.
std::string platformCommandLine(int, const char* const[]) {
  return behindProgramName(GetCommandLineW());
}
