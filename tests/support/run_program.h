#pragma once

#include <map>
#include <string>
#include <vector>

/// How a program ended and what it said.
struct ProgramResult {
  int status = -1;  // exit status; 128 + the signal's number when it was killed
  std::string out;
  std::string err;
};

struct ProgramOptions {
  std::string folder;                              // working folder; empty: this process's
  std::map<std::string, std::string> environment;  // added to, or in place of, this process's
  bool outOnTerminal = false;                      // standard output is a terminal of its own
  bool errorOnTerminal = false;                    // standard error is a terminal of its own
  bool errorClosed = false;                        // standard error is closed
};

/// The environment of a caller whose locale is `name`: "C", or one of those built with the tests
/// (es_ES.UTF-8, es_ES.ISO-8859-1). The C library keeps what it reads of these, which is no leak.
inline std::map<std::string, std::string> localeEnvironment(const std::string& name) {
  return {{"LOCPATH", TEST_LOCALES},
          {"LC_ALL", name},
          {"LANG", name},
          {"ASAN_OPTIONS", "detect_leaks=0"}};
}

/// Runs `program` with `arguments` to its end.
ProgramResult runProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const ProgramOptions& options = {});
