#pragma once

#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "faults/run_under.h"

/// The programs that give the promise (promise.h), and how a run of each is started.

struct Program {
  const char* name;
  const char* file;
  bool hasForms;  // the desktop program: four paths in one argument, a screen, a timer
};

inline constexpr Program kConsole = {"Console", TIP2BDL_CLI, false};
#ifdef TIP2BDL  // not everywhere, see CMakeLists.txt
inline constexpr Program kDesktop = {"Desktop", TIP2BDL, true};
inline constexpr Program kPrograms[] = {kConsole, kDesktop};
#else
inline constexpr Program kPrograms[] = {kConsole};
#endif

inline void PrintTo(const Program& program, std::ostream* out) { *out << program.name; }

/// Runs `program` on the four paths of a run. The desktop program gets no screen, so that its
/// messages go to standard error, and a hurried clock (hurried_clock.cpp).
FaultedRun runOn(const Program& program, const std::vector<std::string>& paths,
                 RunOptions options = {});
