#pragma once

#include <functional>
#include <string>
#include <vector>

#include "faults/run_under.h"

/// A run whose every system call is seen, and can be made to fail or to be its last.

/// One system call of a run, as seen before the system gets it.
struct SystemCall {
  long number = 0;
  unsigned long arguments[6] = {};
  std::string path;  // base name of the file that the call is about
};

/// What becomes of a call.
struct Deed {
  enum Kind {
    kLet,         // nothing
    kFail,        // the system never gets it; the program gets `error`
    kHalve,       // a read or write of half its bytes
    kKillBefore,  // the program is killed before it
    kKillAfter    // the program is killed behind it
  };
  Kind kind = kLet;
  int error = 0;
};

/// Whether calls can be changed here, which is done in the processor's own registers.
#if defined(__x86_64__)
inline constexpr bool kTracesThisProcessor = true;
#else
inline constexpr bool kTracesThisProcessor = false;
#endif

/// 0 when this machine lets a process be traced, otherwise the error that ptrace(2) gives.
int traceError();

/// Runs `program`, asking `decide` about each call from its main function on. Main begins with the
/// question whether standard input is open; what the loader does before that is left alone.
FaultedRun runTraced(const std::string& program, const std::vector<std::string>& arguments,
                     const std::vector<std::string>& addedEnvironment,
                     const std::function<Deed(const SystemCall&)>& decide);
