#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/fault.h"
#include "core/one_a_thread.h"

class Global2;

/// The one way to fail. Nothing is returned upwards: the first check whose outcome is false shows
/// its message and ends the run with kExitError.

inline constexpr int kExitError = 3;

/// The error-log channel of the run that this thread is working on, the `Global2` opened on
/// Error.log. Null before the run driver has created it and after it has deleted it; checks that
/// fail then only show their message.
extern constinit thread_local Global2* ErrorLog;

/// Shows the fault's message in a modal box, writes it to the log when the log's `tipoEdificio` is
/// "OBJETO" (which no run sets, so Error.log stays empty), closes the log and ends the run. For a
/// message that is only built once the check has failed.
[[noreturn]] void ReportFailure(Global2* log, const Fault& fault);
[[noreturn]] void ReportFailure(Global2* log, std::string_view message);

/// Returns when `ok`; otherwise reports the failure.
inline void ReportError(Global2* log, bool ok, std::string_view message) {
  if (!ok) ReportFailure(log, message);
}

/// Receives what is wrong. A run's ends with the first fault; a check's keeps it and comes back,
/// and whoever reported it goes on as well as it can.
using FaultSink = std::function<void(const Fault&)>;
/// The sink of a run.
[[noreturn]] inline void endRunWith(const Fault& fault) { ReportFailure(ErrorLog, fault); }

/// "Error en el fichero <name>, línea <line>: <what>", the form of the messages about an input
/// that breaks a limit or is malformed. Lines count from 1; 0 leaves the line out.
std::string errorInFile(std::string_view name, long line, std::string_view what);

/// The `Error` unit's singleton. State that nothing reads: its value is 0 and stays so; the run
/// driver creates and releases it because the unit's life is part of a run.
class ErrorObject : public OneAThread<ErrorObject> {
 public:
  int value = 0;

 private:
  friend OneAThread<ErrorObject>;
  ErrorObject() = default;
};
