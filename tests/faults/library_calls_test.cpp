#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <set>
#include <string_view>

#include "faults/library_walk.h"
#include "faults/promise.h"
#include "faults/scenarios.h"
#include "support/run_program.h"
#include "support/skip_for_lack_of.h"

// Every call that the program makes of the C library's fallible functions fails once, on its own:
// the first, the second, ... until one is asked for that is never made.

namespace {

constexpr Failure kFailures[] = {
    {"fopen", EACCES, "fail"},   {"fopen", EMFILE, "fail"},     {"fopen", ENOMEM, "fail"},
    {"fopen", EMFILE, "sticky"}, {"fread", EIO, "fail"},        {"fread", EIO, "short"},
    {"fread", EIO, "sticky"},    {"fwrite", ENOSPC, "fail"},    {"fwrite", EIO, "fail"},
    {"fwrite", ENOSPC, "short"}, {"fwrite", ENOSPC, "sticky"},  {"fflush", ENOSPC, "fail"},
    {"fclose", ENOSPC, "fail"},  {"fclose", EIO, "fail"},       {"fclose", ENOSPC, "sticky"},
    {"fgets", EIO, "fail"},      {"fgetc", EIO, "fail"},        {"fseek", EIO, "fail"},
    {"fputs", ENOSPC, "fail"},   {"fputc", ENOSPC, "fail"},     {"open", EMFILE, "fail"},
    {"openat", EMFILE, "fail"},  {"read", EIO, "fail"},         {"write", ENOSPC, "fail"},
    {"write", ENOSPC, "short"},  {"writev", ENOSPC, "fail"},    {"close", EIO, "fail"},
    {"fcntl", EBADF, "fail"},    {"stat", EACCES, "fail"},      {"stat", EIO, "sticky"},
    {"truncate", EIO, "fail"},   {"remove", EACCES, "fail"},    {"readlink", EACCES, "fail"},
    {"isatty", ENOTTY, "fail"},  {"newlocale", ENOMEM, "fail"}, {"iconv_open", ENOMEM, "fail"},
    {"iconv", EILSEQ, "fail"},   {"malloc", ENOMEM, "fail"},    {"malloc", ENOMEM, "sticky"},
    {"calloc", ENOMEM, "fail"},  {"realloc", ENOMEM, "fail"},   {"aligned_alloc", ENOMEM, "fail"},
};

/// How often at least a run makes each of the calls above: with a shim that has lost its reach the
/// walks would meet nothing and pass. `scenario` is the run that is meant.
struct Reach {
  std::string_view call;
  std::string_view scenario;
  int least;
  std::string_view why;
};

constexpr Reach kReach[] = {
    {"fopen", "GoodRun", 7, "four inputs, the log, the output, the marker"},
    {"fread", "GoodRun", 4, "four inputs"},
    {"fwrite", "GoodRun", 1, "the output"},
    {"fwrite", "TypologyError", 1, "the message"},
    {"fflush", "TypologyError", 1, "the message"},
    {"fclose", "GoodRun", 7, "as they were opened"},
    {"fcntl", "GoodRun", 3, "the standard streams"},
    {"stat", "GoodRun", 4, "whether each input exists"},
    {"readlink", "GoodRun", 1, "the program's own folder"},
    {"isatty", "GoodRun", 1, "whether progress can be shown"},
    {"newlocale", "GoodRun", 1, "the user's decimal separator"},
    {"newlocale", "PlanErrorInLatin1", 2, "and the terminal's encoding"},
    {"iconv_open", "PlanErrorInLatin1", 1, "the message"},
    {"iconv", "PlanErrorInLatin1", 20, "the message, a character at a time"},
    {"malloc", "GoodRun", 100, "the lines and blocks of the inputs, far more than these"},
    // Runs that need not make a call at all: should one come to do so, it is walked already.
    {"fgets", "GoodRun", 0, "inputs are read whole"},
    {"fgetc", "GoodRun", 0, "the same"},
    {"fseek", "GoodRun", 0, "the same"},
    {"fputs", "GoodRun", 0, "the output is written whole"},
    {"fputc", "GoodRun", 0, "only the last resort of a message ends with one"},
    {"open", "GoodRun", 0, "only a standard stream that was closed is opened so"},
    {"openat", "GoodRun", 0, "what the C library does inside itself is not met here"},
    {"read", "GoodRun", 0, "the same"},
    {"write", "GoodRun", 0, "the same"},
    {"writev", "GoodRun", 0, "the same"},
    {"close", "GoodRun", 0, "the same"},
    {"truncate", "GoodRun", 0, "only an output that is half written is emptied"},
    {"remove", "GoodRun", 0, "only a marker that is no good is removed"},
    {"calloc", "GoodRun", 0, "of the C library, in its conversions"},
    {"realloc", "GoodRun", 0, "of the C library, in its locales"},
    {"aligned_alloc", "GoodRun", 0, "nothing is aligned beyond what malloc does"},
};

constexpr bool hasReach(std::string_view call) {
  for (const Reach& row : kReach) {
    if (row.call == call) return true;
  }
  return false;
}
static_assert(std::ranges::all_of(kFailures, hasReach, &Failure::call));

int leastCalls(std::string_view call, std::string_view scenario) {
  for (const Reach& row : kReach) {
    if (row.call == call && row.scenario == scenario) return row.least;
  }
  return 0;
}

class LibraryCalls : public testing::TestWithParam<std::tuple<int, Scenario>> {
 protected:
  void SetUp() override {
#ifdef SANITIZED
    GTEST_SKIP() << "a sanitizer must be the first library of a program, before the shim";
#endif
    const Scenario& scenario = std::get<1>(GetParam());
    const std::string locale = std::string(LOCALE_FOLDER) + "/" + scenario.locale;
    if (!std::filesystem::exists(locale)) SKIP_FOR_LACK_OF("localedef");
    scenario.spoil(place_);
  }
  Workplace place_;
};

std::string testName(const testing::TestParamInfo<std::tuple<int, Scenario>>& info) {
  const Failure& failure = kFailures[static_cast<std::size_t>(std::get<0>(info.param))];
  return std::string(std::get<1>(info.param).name) + "_" + nameOf(failure);
}

}  // namespace

TEST_P(LibraryCalls, KeepThePromiseWhicheverOneFails) {
  const Failure& failure = kFailures[static_cast<std::size_t>(std::get<0>(GetParam()))];
  const Scenario& scenario = std::get<1>(GetParam());
  // Without any memory from some call on is the slowest walk, and its steps are much alike.
  const bool strides = std::string_view(failure.call) == "malloc" && *failure.kind == 's';
  const int step = strides && !longTests() ? 5 : 1;
  const Tally tally = walk(place_, {kConsole, scenario, failure, step});
  EXPECT_GE(tally.injected * step, leastCalls(failure.call, scenario.name))
      << "faults that came; the shim does not reach the program's calls any more";
}

INSTANTIATE_TEST_SUITE_P(Walk, LibraryCalls,
                         testing::Combine(testing::Range(0, static_cast<int>(std::size(kFailures))),
                                          testing::ValuesIn(kScenarios)),
                         testName);

// A walk is only as good as the shim's reach. What the program takes from the C library, and can
// fail, is either made to fail above or never called in a run; the walk over the system calls
// (system_calls_test.cpp) shows that the latter do nothing there.

namespace {

/// Fallible functions on files, memory and processes that a program could import.
constexpr std::string_view kFallible[] = {
    "aligned_alloc",  "calloc",    "close",    "closedir", "creat",    "dup",     "dup2",
    "fchmod",         "fclose",    "fcntl",    "fdopen",   "fflush",   "fgetc",   "fgets",
    "fopen",          "fopen64",   "fork",     "fprintf",  "fputc",    "fputs",   "fread",
    "freopen",        "fscanf",    "fseek",    "fseeko",   "fstat64",  "fsync",   "ftell",
    "ftruncate",      "fwrite",    "getc",     "getcwd",   "getline",  "iconv",   "iconv_open",
    "isatty",         "link",      "lseek64",  "lstat",    "malloc",   "mkdir",   "mkstemp",
    "mmap",           "newlocale", "open",     "open64",   "openat",   "opendir", "pipe",
    "posix_memalign", "printf",    "putc",     "puts",     "pwrite",   "read",    "readdir",
    "readlink",       "readv",     "realloc",  "realpath", "remove",   "rename",  "setvbuf",
    "stat",           "statvfs",   "strdup",   "symlink",  "truncate", "ungetc",  "unlink",
    "unlinkat",       "utimensat", "vfprintf", "write",    "writev"};

/// Imported with the C++ library's files, streams and locales, which are linked as a whole; a run
/// calls none of them.
const std::set<std::string_view> kNeverCalled = {
    "closedir", "fchmod",  "fdopen",  "fstat64",  "getcwd",   "link",    "lseek64",
    "lstat",    "mkdir",   "readdir", "realpath", "rename",   "setvbuf", "statvfs",
    "strdup",   "symlink", "unlink",  "unlinkat", "utimensat"};

bool isWalked(std::string_view name) {
  if (name == "fopen64") return true;  // the same as fopen
  for (const Failure& failure : kFailures) {
    if (failure.call == name) return true;
  }
  return false;
}

}  // namespace

TEST(LibraryCallsOfTheProgram, AreAllWalkedOrKnown) {
#ifdef SANITIZED
  GTEST_SKIP() << "a sanitizer brings its own";
#endif
  const ProgramResult listed =
      runProgram("/bin/sh", {"-c", std::string("nm -D --undefined-only '") + TIP2BDL_CLI + "'"});
  if (listed.status == 127) SKIP_FOR_LACK_OF("nm");
  std::set<std::string> imported;
  for (const std::string& line : linesOf(listed.out)) {
    const std::size_t name = line.find_last_of(' ') + 1;
    imported.insert(line.substr(name, line.find('@', name) - name));
  }
  ASSERT_TRUE(imported.contains("fopen")) << listed.err;
  for (const std::string_view name : kFallible) {
    if (!imported.contains(std::string(name))) continue;
    EXPECT_TRUE(isWalked(name) || kNeverCalled.contains(name)) << name;
  }
}
