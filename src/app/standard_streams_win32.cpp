#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "app/standard_streams.h"

namespace {

/// A standard stream that leads to a console.
class Console {
 public:
  explicit Console(DWORD stream) : stream_(stream) {}

  /// Has it understand what rewrites and colours a line. One of old that cannot is no terminal.
  void open() {
    const HANDLE handle = GetStdHandle(stream_);
    if (GetConsoleMode(handle, &before_) == 0) return;
    isTerminal_ = SetConsoleMode(handle, before_ | ENABLE_PROCESSED_OUTPUT |
                                             ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
  }
  void putBack() const {
    if (isTerminal_) SetConsoleMode(GetStdHandle(stream_), before_);
  }
  bool isTerminal() const { return isTerminal_; }

 private:
  DWORD stream_;
  DWORD before_ = 0;
  bool isTerminal_ = false;
};

Console output(STD_OUTPUT_HANDLE);
Console error(STD_ERROR_HANDLE);
UINT encoding = 0;

void putBack() {
  error.putBack();
  output.putBack();
  SetConsoleOutputCP(encoding);
}

/// The console outlives a program that Ctrl-C ends.
BOOL WINAPI putBackAtTheEnd(DWORD) {
  putBack();
  return FALSE;
}

}  // namespace

bool standardErrorIsTerminal() { return error.isTerminal(); }
bool standardOutputIsTerminal() { return output.isTerminal(); }

/// The C library keeps the streams' numbers free. A console is told for our time that texts are
/// UTF-8; a pipe takes them as they are.
void openStandardStreams() {
  encoding = GetConsoleOutputCP();
  if (encoding == 0) return;  // no console
  SetConsoleOutputCP(CP_UTF8);
  output.open();
  error.open();
  std::atexit(putBack);
  SetConsoleCtrlHandler(putBackAtTheEnd, TRUE);
}

void letStandardOutputBeBytes() {
  if (!output.isTerminal()) _setmode(_fileno(stdout), _O_BINARY);
}
