#include "app/qt/platform_command_line.h"

#ifdef _WIN32

#include <windows.h>

std::string platformCommandLine(int, const char* const[]) {
  const char* rest = GetCommandLineA();
  // The program's name comes first; it is quoted when it has blanks.
  bool quoted = false;
  for (; *rest != '\0' && (quoted || (*rest != ' ' && *rest != '\t')); ++rest) {
    if (*rest == '"') quoted = !quoted;
  }
  while (*rest == ' ' || *rest == '\t') ++rest;
  return rest;
}

#else

std::string platformCommandLine(int argc, const char* const argv[]) {
  std::string commandLine;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) commandLine += ' ';
    commandLine += argv[i];
  }
  return commandLine;
}

#endif
