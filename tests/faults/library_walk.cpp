#include "faults/library_walk.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string_view>

namespace {

/// The calls whose failure may leave a run as it would have been, and why. `subject` empty: any.
struct Harmless {
  std::string_view call;
  std::string_view subject;
  std::string_view why;
};

constexpr Harmless kHarmless[] = {
    {"fopen", "Error.log", "the log only accompanies a run; without it the message still comes"},
    {"fclose", "Error.log", "nothing is written to it in a run"},
    {"fclose", "casa.bdl", "an input: read to its end before it is closed"},
    {"fclose", "casa.tbl", "the same"},
    {"fclose", "casa.tip", "the same"},
    {"fclose", "defectos.inp", "the same"},
    {"fflush", "stderr", "standard error is not buffered: there is nothing to flush"},
    {"fcntl", "", "asks whether a standard stream is open; a needless one on the null device"},
    {"readlink", "exe", "the program's own folder, which nothing reads back"},
    {"isatty", "stderr", "then there is no progress"},
    {"newlocale", "", "then decimals have a point and messages are UTF-8"},
    {"malloc", "startup", "the C++ library's reserve for exceptions, which no good run needs"},
    {"malloc", "fopen", "of the C library's locale files, which it does without"},
    {"malloc", "fread", "a buffer of the C library, which does without"},
    {"malloc", "fwrite", "the same"},
    {"malloc", "newlocale", "as newlocale itself"},
    {"malloc", "iconv_open", "as iconv_open itself"},
    {"realloc", "newlocale", "the same"},
};

/// Whether the run may take no notice. A file's state is asked in order to reserve room for it;
/// where the same call asks whether an input exists, the run ends in a message.
bool isHarmless(const std::string& call, const std::string& subject) {
  if (call == "stat") return true;
  for (const Harmless& row : kHarmless) {
    if (row.call == call && (row.subject.empty() || row.subject == subject)) return true;
  }
  return false;
}

/// "CALL SUBJECT" of the first fault that was injected.
std::pair<std::string, std::string> firstInjected(const FaultedRun& run) {
  const std::string line = run.injected.substr(0, run.injected.find('\n'));
  const std::size_t blank = line.find(' ');
  return {line.substr(0, blank), line.substr(blank + 1)};
}

/// A read that is cut short is no fault: the rest comes with the next one.
bool isNoFault(const Failure& failure) {
  return std::string_view(failure.kind) == "short" &&
         (std::string_view(failure.call) == "fread" || std::string_view(failure.call) == "read");
}

bool silencesMessage(const Failure& failure, const FaultedRun& run) {
  const std::string_view call = failure.call;
  if (call == "iconv") return true;  // a character that cannot be converted is a question mark
  return call == "fwrite" &&
         (run.injected == "fwrite stderr\n" || std::string_view(failure.kind) == "sticky");
}

}  // namespace

std::string nameOf(const Failure& failure) {
  return std::string(failure.call) + "_" + failure.kind + "_" + strerrorname_np(failure.error);
}

FaultedRun runStruck(const Workplace& place, const Walk& walk, int at) {
  const Failure& failure = walk.failure;
  place.reset();
  LibraryFault fault{failure.call, failure.error, failure.kind, at, ""};
  if (walk.program.hasForms) fault.files = place.folder() / walk.firstFile;
  RunOptions options;
  options.fault = &fault;
  options.environment = environmentOf(walk.scenario);
  return runOn(walk.program, place.arguments(), options);
}

Tally walk(const Workplace& place, const Walk& walk) {
  const Failure& failure = walk.failure;
  Tally tally;
  for (int at = 1;; at += walk.step) {
    const FaultedRun run = runStruck(place, walk, at);
    SCOPED_TRACE("call " + std::to_string(at) + " fails: " + run.injected);
    const Verdict verdict = judge(place, run, silencesMessage(failure, run));
    EXPECT_EQ("", verdict.why);
    const bool untouched = wentItsWay(walk.scenario, verdict, run);
    if (run.injected.empty()) {
      EXPECT_TRUE(untouched) << "without a fault the run goes its way; it said: " << run.err;
      break;
    }
    ++tally.injected;
    if (untouched) ++tally.untouched;
    if (isNoFault(failure)) {
      EXPECT_TRUE(untouched) << run.err;
    } else if (untouched) {
      const auto [call, subject] = firstInjected(run);
      EXPECT_TRUE(isHarmless(call, subject)) << "the run took no notice";
    }
    if (testing::Test::HasFailure() || tally.injected == 100'000) {
      ADD_FAILURE() << "the walk ends here";
      break;
    }
  }
  std::printf("%s: %d faults, %d of them without effect\n", nameOf(failure).c_str(), tally.injected,
              tally.untouched);
  return tally;
}
