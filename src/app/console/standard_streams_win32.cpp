#include <io.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "app/console/standard_streams.h"

namespace {
UINT consolesEncoding = 0;
}

bool standardErrorIsTerminal() { return _isatty(_fileno(stderr)) != 0; }
bool standardOutputIsTerminal() { return _isatty(_fileno(stdout)) != 0; }

/// The C library keeps the streams' numbers free. A console is told for our time that texts are
/// UTF-8; a pipe takes them as they are.
void openStandardStreams() {
  consolesEncoding = GetConsoleOutputCP();
  if (consolesEncoding == 0) return;  // no console
  SetConsoleOutputCP(CP_UTF8);
  std::atexit([] { SetConsoleOutputCP(consolesEncoding); });
}
