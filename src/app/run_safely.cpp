#include "app/run_safely.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <string_view>
#include <utility>

#include "core/concat.h"
#include "core/cp1252.h"
#include "core/report_error.h"

namespace {

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

/// Reports the exception that nobody can catch. Where there is none, it is the memory for one that
/// was missing.
[[noreturn]] void reportException() {
  try {
    // cppcheck-suppress rethrowNoCurrentException
    if (std::current_exception() != nullptr) throw;
  } catch (const std::bad_alloc&) {
  } catch (const std::exception& error) {
    ReportFailure(ErrorLog, concat(kUnexpected, error.what()));
  } catch (...) {
    ReportFailure(ErrorLog, concat(kUnexpected, "excepción de tipo desconocido"_cp1252));
  }
  ReportFailure(ErrorLog, kNoMemory);
}

[[noreturn]] void endWithoutCatch() {
  static bool tried = false;
  try {
    if (!std::exchange(tried, true)) reportException();
  } catch (...) {
  }
  // Not even a message box: no memory is left for the message.
  endWithLastWords({kNoMemory});
}

}  // namespace

void endWithLastWords(std::initializer_list<std::string_view> message) {
  const auto say = [](std::string_view text) { std::fwrite(text.data(), 1, text.size(), stderr); };
  say(kErrorCaption);
  say(": ");
  for (const std::string_view part : message) say(part);
  say("\n");
  std::_Exit(kExitError);
}

int runSafely(const std::function<int()>& body) {
  letWritesFail();
  std::set_terminate(endWithoutCatch);
  try {
    return body();
  } catch (const std::bad_alloc&) {
    ReportFailure(ErrorLog, kNoMemory);
  } catch (const std::exception& error) {
    ReportFailure(ErrorLog, concat(kUnexpected, error.what()));
  }
}
