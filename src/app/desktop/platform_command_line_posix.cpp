#include "app/desktop/platform_command_line.h"

std::string platformCommandLine(int argc, const char* const argv[]) {
  std::string commandLine;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) commandLine += ' ';
    commandLine += argv[i];
  }
  return commandLine;
}
