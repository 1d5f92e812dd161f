#include <io.h>

#include <cstdio>

#include "app/console/standard_streams.h"

bool standardErrorIsTerminal() { return _isatty(_fileno(stderr)) != 0; }
bool standardOutputIsTerminal() { return _isatty(_fileno(stdout)) != 0; }

void openStandardStreams() {}  // the C library keeps their numbers free
