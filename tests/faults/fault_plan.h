#pragma once

#include <stdio.h>

/// Which call the preloaded library (fault_shim.cpp) makes fail, as the environment tells it.
///
/// FAULT_CALL: name of one of the functions there. "main" is only reported, and nothing fails.
/// FAULT_AT: which call of it, from 1.
/// FAULT_ERRNO: number of the error.
/// FAULT_KIND: "fail"; "short" (half of a read or write is done); "sticky" (all later calls fail
/// too); "kill" (it is the last thing that the process does).
/// FAULT_FILES: only calls about files whose paths begin so count, and, from the first of them on,
/// calls about no file. For programs that do much else before and beside their run. Empty: all.
/// FAULT_REPORT: number of an open file. It gets the line "CALL SUBJECT" once the fault comes. The
/// subject is the file's name, "stderr", or, of an allocation, who asked for it: "startup" (before
/// main), the C library function that did, or "program". Empty: the call number was never reached.

/// What a call is about.
struct Subject {
  const char* name;
  bool counts;
};

Subject fileAt(const char* path);
Subject fileOf(const FILE* stream);
Subject fileOf(int descriptor);
Subject allocation();
/// Anything that is no file.
Subject thing(const char* name);

/// Whether this call is the one to fail; errno is the plan's then.
bool strikes(const char* call, Subject subject);
/// Whether a call that fails does half of its work.
bool halfIsDone();
/// The plan's error, for a call that does more before it returns.
void setError();

/// Names of the files behind open streams.
void remember(const FILE* stream, const char* path);
void forget(const FILE* stream);

/// Main has begun.
void noteMain();

/// Names the function while the program is in it, so that an allocation can say who asked for it.
class Inside {
 public:
  explicit Inside(const char* call);
  ~Inside();
  Inside(const Inside&) = delete;
  Inside& operator=(const Inside&) = delete;

 private:
  const char* before_;
};
