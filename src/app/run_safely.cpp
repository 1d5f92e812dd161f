#include "app/run_safely.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <string>
#include <string_view>

#include "app/failing_writes.h"
#include "app/message_lines.h"
#include "core/concat.h"
#include "core/cp1252.h"
#include "core/fault.h"
#include "core/report_error.h"
#include "core/run_ended.h"

namespace {

/// What the exception says that nobody can catch. Where there is none, it is the memory for one
/// that was missing.
std::string messageOfException() {
  try {
    // cppcheck-suppress rethrowNoCurrentException
    if (std::current_exception() != nullptr) throw;
  } catch (const std::bad_alloc&) {
  } catch (const std::exception& error) {
    return concat(kUnexpected, error.what());
  } catch (...) {
    return concat(kUnexpected, "excepción de tipo desconocido"_cp1252);
  }
  return std::string(kNoMemory);
}

/// Ends the process, whichever thread this is: a worker may have no application, or that of one of
/// many runs, which tells nobody and ends nothing but its run.
[[noreturn]] void endWithMessage(std::string_view message) {
  try {
    if (Application != nullptr) ReportFailure(ErrorLog, message);
  } catch (const RunEnded&) {
  }
  sayMessage(message, kErrorCaption);
  std::_Exit(kExitError);
}

[[noreturn]] void endWithoutCatch() {
  static std::atomic_flag tried;  // by any thread
  try {
    if (!tried.test_and_set()) endWithMessage(messageOfException());
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
