#include "app/console/program.h"
#include "core/wide_text.h"

/// The system's own texts: its older versions know no code page for the names of all files.
extern "C" int wmain(int argc, wchar_t* argv[]) {
  return consoleProgram([&] {
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) arguments.push_back(toUtf8(argv[i]));
    return arguments;
  });
}
