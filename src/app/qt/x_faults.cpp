#include "app/qt/x_faults.h"

// Apart from the framework, whose names its macros spoil.
#include <X11/Xlib.h>

#include <cstdlib>

#include "core/report_error.h"

void dropWordsOfALostXServer() {
  XSetIOErrorHandler([](Display*) -> int { std::exit(kExitError); });
}
