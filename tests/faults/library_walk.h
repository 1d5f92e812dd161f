#pragma once

#include <string>

#include "faults/programs.h"
#include "faults/promise.h"
#include "faults/scenarios.h"

/// Every call that a program makes of a fallible function of the C library fails once, on its own:
/// the first, the second, ... until one is asked for that is never made.

/// What is made to fail, and how.
struct Failure {
  const char* call;
  int error;
  const char* kind;
};

/// "CALL_KIND_ERROR".
std::string nameOf(const Failure& failure);

struct Walk {
  Program program;
  Scenario scenario;
  Failure failure;
  int step = 1;                // only every so manieth call
  const char* firstFile = "";  // of the desktop program: walked from this file on
};

/// How many calls failed, and of how many of them the run took no notice.
struct Tally {
  int injected = 0;
  int untouched = 0;
};

/// Walks, expects the promise to be kept, and prints the tally. Of the desktop program only the run
/// proper is walked, from its first file on: before it the framework makes thousands of calls.
Tally walk(const Workplace& place, const Walk& walk);

/// The run of a walk whose call number `at` is struck.
FaultedRun runStruck(const Workplace& place, const Walk& walk, int at);
