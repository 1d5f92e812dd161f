#include "app/run_safely.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <string_view>
#include <utility>

#include "core/concat.h"
#include "core/report_error.h"

namespace {

constexpr std::string_view kNoMemory = "No hay memoria suficiente";

/// A write into a closed pipe, or beyond the largest file that is allowed, is to fail as any other
/// does; left alone, the system would end the process.
void letWritesFail() {
#ifdef SIGPIPE
  std::signal(SIGPIPE, SIG_IGN);
#endif
#ifdef SIGXFSZ
  std::signal(SIGXFSZ, SIG_IGN);
#endif
}

/// Where nothing can be caught any more: no memory is left for the exception itself, or for the
/// message about it.
[[noreturn]] void endWithoutException() {
  static bool tried = false;
  try {
    if (!std::exchange(tried, true)) ReportFailure(ErrorLog, kNoMemory);
  } catch (...) {
  }
  // Not even a message box. This takes no memory.
  for (const std::string_view part : {kErrorCaption, std::string_view(": "), kNoMemory}) {
    std::fwrite(part.data(), 1, part.size(), stderr);
  }
  std::fputc('\n', stderr);
  std::_Exit(kExitError);
}

}  // namespace

int runSafely(const std::function<int()>& body) {
  letWritesFail();
  std::set_terminate(endWithoutException);
  try {
    return body();
  } catch (const std::bad_alloc&) {
    ReportFailure(ErrorLog, kNoMemory);
  } catch (const std::exception& error) {
    ReportFailure(ErrorLog, concat("Error inesperado: ", error.what()));
  }
}
