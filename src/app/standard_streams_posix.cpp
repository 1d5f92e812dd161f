#include <fcntl.h>
#include <unistd.h>

#include "app/standard_streams.h"

bool standardErrorIsTerminal() { return isatty(STDERR_FILENO) != 0; }
bool standardOutputIsTerminal() { return isatty(STDOUT_FILENO) != 0; }

void openStandardStreams() {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    // The lowest free number is the one that was found closed.
    if (fcntl(stream, F_GETFD) == -1) open("/dev/null", O_RDWR);
  }
}

void letStandardOutputBeBytes() {}  // text is the same
