#include "app/run_safely.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <string_view>
#include <utility>

#include "app/failing_writes.h"
#include "core/concat.h"
#include "core/cp1252.h"
#include "core/fault.h"
#include "core/report_error.h"

namespace {

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
