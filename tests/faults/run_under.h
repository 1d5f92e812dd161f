#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

/// How a run under a fault ended.
struct FaultedRun {
  int status = -1;        // exit status, -1 when it did not exit
  int signal = 0;         // the signal that killed it, 0 for none
  bool timedOut = false;  // still running when the patience ended, and killed then
  std::string out;
  std::string err;
  std::string injected;  // what the preloaded library says it made fail, a line each
};

/// One call of the C library that is to fail; see fault_plan.h.
struct LibraryFault {
  std::string call;
  int error = 0;
  std::string kind = "fail";
  int at = 1;
  std::string files;  // how the paths begin that it is about; empty: all
};

struct RunOptions {
  /// The copy of `file`, a program or a library, where there are copies, otherwise itself.
  std::string standInFor(const std::string& file) const;

  std::function<void()> inChild = [] {};  // before the program starts: limits, closed streams ...
  const LibraryFault* fault = nullptr;
  std::vector<std::string> environment;  // "NAME=value"
  std::vector<std::string> preloaded;    // libraries
  std::string copies;                    // folder of copies of all that was built; empty: none
  int patienceMs = 10'000;
  int killAfterMicroseconds = -1;  // kills the run at that moment
};

/// The status of a run whose program could not be started at all.
inline constexpr int kNotStarted = 127;

/// Runs `program` with `arguments` to its end, or to the end of the patience.
FaultedRun runUnder(const std::string& program, const std::vector<std::string>& arguments,
                    const RunOptions& options = {});

/// What runUnder and the traced runs are made of.

/// A file in memory that takes what a program writes.
class MemoryFile {
 public:
  MemoryFile();
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  int number() const { return file_; }
  std::string text() const;

 private:
  int file_;
};

/// A program's arguments or environment as the system takes them.
class StringArray {
 public:
  explicit StringArray(std::vector<std::string> strings);
  char* const* data() { return pointers_.data(); }

 private:
  std::vector<std::string> strings_;
  std::vector<char*> pointers_;
};

/// This process's environment with `added`, which replace variables of the same names.
std::vector<std::string> environmentWith(const std::vector<std::string>& added);

/// Waits for the child's end until the patience ends, and kills it then.
void await(pid_t child, int patienceMs, FaultedRun& run);
void noteEnd(int waitStatus, FaultedRun& run);
