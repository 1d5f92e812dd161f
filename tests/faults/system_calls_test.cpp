#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <cerrno>
#include <cstring>
#include <map>
#include <vector>

#include "core/concat.h"
#include "faults/promise.h"
#include "faults/scenarios.h"
#include "faults/traced_run.h"
#include "support/skip_for_lack_of.h"

// Below the C library: every system call of a run fails once, on its own, and every one is once the
// last thing that the program does before it is killed.

namespace {

/// A system call that a run makes, and the errors that it is made to fail with. A call that is not
/// here fails the test, so that none is left out by a change to the program.
struct Fallible {
  long number;
  const char* name;
  std::vector<int> errors;
  bool halves;  // a read or write can also do half
};

const Fallible kFallible[] = {
    {SYS_openat, "openat", {EACCES, EMFILE, ENOSPC, ENOENT}, false},
    {SYS_read, "read", {EIO, EINTR}, true},
    {SYS_write, "write", {ENOSPC, EIO, EFBIG, EPIPE}, true},
    {SYS_close, "close", {EIO, ENOSPC}, false},
    {SYS_newfstatat, "newfstatat", {EACCES, EIO}, false},
    {SYS_readlink, "readlink", {EACCES}, false},
    {SYS_lseek, "lseek", {EIO}, false},
    {SYS_truncate, "truncate", {EIO}, false},
    {SYS_unlink, "unlink", {EACCES}, false},
    {SYS_brk, "brk", {ENOMEM}, false},
    {SYS_mmap, "mmap", {ENOMEM}, false},
    {SYS_munmap, "munmap", {ENOMEM}, false},
    {SYS_fcntl, "fcntl", {EBADF}, false},
    {SYS_ioctl, "ioctl", {ENOTTY}, false},
    {SYS_rt_sigaction, "rt_sigaction", {EINVAL}, false},
    {SYS_futex, "futex", {EINVAL}, false},
    {SYS_getrandom, "getrandom", {EAGAIN}, false},
    {SYS_mprotect, "mprotect", {ENOMEM}, false},
};

const Fallible* find(long number) {
  for (const Fallible& row : kFallible) {
    if (row.number == number) return &row;
  }
  return nullptr;
}

/// How often a call is made to fail, once it is met.
int faultsOf(const Fallible& row) {
  return static_cast<int>(row.errors.size()) + (row.halves ? 1 : 0);
}

/// How often at least a good run makes a call: a walk that has lost sight of the calls would meet
/// nothing and pass. The other calls are for the C library to make or not, or of a run that fails.
struct Reach {
  long number;
  int least;
  std::string_view why;
};

constexpr Reach kReach[] = {
    {SYS_openat, 7, "four inputs, the log, the output, the marker"},
    {SYS_read, 4, "four inputs"},
    {SYS_write, 1, "the output"},
    {SYS_close, 7, "as they were opened"},
    {SYS_newfstatat, 4, "whether each input exists"},
    {SYS_readlink, 1, "the program's own folder"},
    {SYS_fcntl, 3, "the standard streams"},
    {SYS_ioctl, 1, "whether progress can be shown"},
    {SYS_rt_sigaction, 2, "the signals of a write that cannot be done"},
};

/// Calls without an outcome.
bool cannotFail(long number) { return number == SYS_exit_group; }

struct Harmless {
  long number;
  std::string_view path;
  std::string_view why;
};

/// Calls whose failure may leave a run as it would have been. `path` empty: any file. Not every
/// version of the C library makes them all.
constexpr Harmless kHarmless[] = {
    {SYS_openat, "Error.log", "the log only accompanies a run"},
    {SYS_openat, "locale-archive", "the user's locale; without it decimals have a point"},
    {SYS_openat, "locale.alias", "the same"},
    {SYS_openat, "LC_NUMERIC", "the same"},
    {SYS_openat, "LC_CTYPE", "the same"},
    {SYS_openat, "gconv-modules.cache", "the C library's conversions, which it does without"},
    {SYS_close, "Error.log", "nothing is written to it in a run"},
    {SYS_close, "casa.bdl", "an input: read to its end before it is closed"},
    {SYS_close, "casa.tbl", "the same"},
    {SYS_close, "casa.tip", "the same"},
    {SYS_close, "defectos.inp", "the same"},
    {SYS_close, "locale.alias", "of the C library's"},
    {SYS_close, "locale-archive", "the same"},
    {SYS_close, "LC_NUMERIC", "the same"},
    {SYS_close, "LC_CTYPE", "the same"},
    {SYS_close, "gconv-modules.cache", "the same"},
    {SYS_read, "locale.alias", "the same"},
    {SYS_newfstatat, "", "sizes, to reserve room; whether an input exists is asked with it too"},
    {SYS_readlink, "exe", "the program's own folder, which nothing reads back"},
    {SYS_lseek, "", "where a stream stands, before it is closed"},
    {SYS_brk, "", "memory comes from mmap then"},
    {SYS_mmap, "", "memory comes from brk then; locale files are read instead"},
    {SYS_munmap, "", "memory stays"},
    {SYS_mprotect, "", "memory comes from elsewhere"},
    {SYS_fcntl, "", "a needless stream on the null device"},
    {SYS_ioctl, "", "asks for a terminal; then there is no progress"},
    {SYS_rt_sigaction, "", "a signal that does not come"},
    {SYS_futex, "", "nobody waits"},
    {SYS_getrandom, "", "of the memory's own protection"},
};

bool isHarmless(const SystemCall& call) {
  for (const Harmless& row : kHarmless) {
    if (row.number == call.number && (row.path.empty() || row.path == call.path)) return true;
  }
  return false;
}

class SystemCalls : public testing::TestWithParam<Scenario> {
 protected:
  void SetUp() override {
    if (!kTracesThisProcessor) GTEST_SKIP() << "written for another kind of processor";
    const int error = traceError();
    // Containers and hardened kernels forbid it, which no package mends.
    if (error == EPERM) GTEST_SKIP() << "the kernel forbids tracing: ptrace gives EPERM";
    if (error != 0) SKIP_FOR_LACK_OF(concat("tracing (", strerrorname_np(error), ")"));
    GetParam().spoil(place_);
  }

  std::vector<SystemCall> callsWithoutFault() {
    place_.reset();
    std::vector<SystemCall> calls;
    const FaultedRun run = runTraced(TIP2BDL_CLI, place_.arguments(), environmentOf(GetParam()),
                                     [&](const SystemCall& call) {
                                       calls.push_back(call);
                                       return Deed{};
                                     });
    const Verdict verdict = judge(place_, run);
    EXPECT_EQ("", verdict.why);
    EXPECT_TRUE(wentItsWay(GetParam(), verdict, run)) << run.err;
    return calls;
  }

  /// The run with `deed` done to its call number `index`, from 0.
  FaultedRun runWith(std::size_t index, Deed deed, SystemCall* met = nullptr) {
    place_.reset();
    std::size_t next = 0;
    return runTraced(TIP2BDL_CLI, place_.arguments(), environmentOf(GetParam()),
                     [&, index](const SystemCall& call) {
                       if (next++ != index) return Deed{};
                       if (met != nullptr) *met = call;
                       return deed;
                     });
  }

  Workplace place_;
};

std::string testName(const testing::TestParamInfo<Scenario>& info) { return info.param.name; }

}  // namespace

TEST_P(SystemCalls, KeepThePromiseWhicheverOneFails) {
#ifdef SANITIZED
  GTEST_SKIP() << "a sanitizer makes calls of its own";
#endif
  std::map<std::string, std::pair<int, int>> tally;  // faults, and those without effect
  const std::vector<SystemCall> calls = callsWithoutFault();
  for (std::size_t i = 0; i < calls.size(); ++i) {
    if (cannotFail(calls[i].number)) continue;
    const Fallible* row = find(calls[i].number);
    ASSERT_NE(nullptr, row) << "the table lacks the system call " << calls[i].number;
    std::vector<Deed> deeds;
    for (const int error : row->errors) deeds.push_back({Deed::kFail, error});
    if (row->halves) deeds.push_back({Deed::kHalve, 0});
    for (const Deed& deed : deeds) {
      SystemCall met;
      const FaultedRun run = runWith(i, deed, &met);
      SCOPED_TRACE(concat("call ", std::to_string(i), ", ", row->name, " of ", met.path, ", ",
                          deed.error != 0 ? strerrorname_np(deed.error) : "half done"));
      ASSERT_EQ(calls[i].number, met.number) << "two runs differ";
      const Verdict verdict = judge(place_, run, met.path == "stderr");
      EXPECT_EQ("", verdict.why);
      const bool untouched = wentItsWay(GetParam(), verdict, run);
      if (deed.kind == Deed::kHalve) {
        EXPECT_TRUE(untouched || met.path == "stderr") << "the rest comes with the next call";
      } else if (untouched) {
        EXPECT_TRUE(isHarmless(met)) << "the run took no notice";
      }
      ++tally[row->name].first;
      if (untouched) ++tally[row->name].second;
    }
  }
  for (const Reach& row : kReach) {
    if (*GetParam().ownMessage != '\0') break;
    const Fallible& call = *find(row.number);
    EXPECT_GE(tally[call.name].first, row.least * faultsOf(call)) << call.name;
  }
  for (const auto& [name, counts] : tally) {
    std::printf("%s: %d faults, %d of them without effect\n", name.c_str(), counts.first,
                counts.second);
  }
}

TEST_P(SystemCalls, AKilledRunHasAMarkerOnlyBehindACompleteOutput) {
  const std::size_t count = callsWithoutFault().size();
  int withMarker = 0;
  for (std::size_t i = 0; i < count; ++i) {
    for (const Deed::Kind kind : {Deed::kKillBefore, Deed::kKillAfter}) {
      const FaultedRun run = runWith(i, {kind, 0});
      SCOPED_TRACE("killed at call " + std::to_string(i));
      EXPECT_EQ("", place_.touchedInputs());
      if (!place_.hasMarker()) continue;
      ++withMarker;
      EXPECT_TRUE(place_.outputIsComplete());
    }
  }
  // A good run killed behind the making of its marker has one.
  EXPECT_EQ(*GetParam().ownMessage == '\0', withMarker > 0);
}

// The last one's conversions load libraries, which is another program's business.
INSTANTIATE_TEST_SUITE_P(Walk, SystemCalls,
                         testing::ValuesIn(kScenarios, kScenarios + std::size(kScenarios) - 1),
                         testName);
