#include <gtest/gtest.h>
#include <signal.h>

#include <cerrno>
#include <cstring>

#include "faults/library_walk.h"

// The walk over the C library's calls (library_calls_test.cpp) in the desktop program: those that
// its run proper makes, amid the framework's.

#ifdef TIP2BDL

namespace {

/// A call that fails, and how often at least a good run makes it.
struct Row {
  Failure failure;
  int least;
};

constexpr Row kRows[] = {
    {{"fopen", EACCES, "fail"}, 7},    {{"fopen", EMFILE, "sticky"}, 7},
    {{"fread", EIO, "fail"}, 4},       {{"fread", EIO, "short"}, 4},
    {{"fwrite", ENOSPC, "fail"}, 1},   {{"fwrite", ENOSPC, "short"}, 1},
    {{"fwrite", ENOSPC, "sticky"}, 1}, {{"fclose", ENOSPC, "fail"}, 7},
    {{"fclose", EIO, "sticky"}, 7},    {{"stat", EACCES, "fail"}, 4},
    {{"malloc", ENOMEM, "fail"}, 200}, {{"malloc", ENOMEM, "sticky"}, 200},
};

/// The last call that a run makes before it is killed, at calls of these.
constexpr const char* kLastCalls[] = {"fopen", "fread", "fwrite", "fclose", "stat"};

/// Memory is asked for hundreds of times.
int stepOf(const Failure& failure) {
  return std::string_view(failure.call) == "malloc" && !longTests() ? 23 : 1;
}

class DesktopCalls : public testing::TestWithParam<Row> {
 protected:
  Workplace place_;
};

std::string rowName(const testing::TestParamInfo<Row>& info) { return nameOf(info.param.failure); }

}  // namespace

TEST_P(DesktopCalls, KeepThePromiseWhicheverOneFails) {
  const auto& [failure, least] = GetParam();
  const int step = stepOf(failure);
  const Tally tally = walk(place_, {kDesktop, kScenarios[0], failure, step});
  EXPECT_GE(tally.injected * step, least) << "faults that came";
}

TEST_P(DesktopCalls, KeepThePromiseInARunThatEndsInAMessage) {
  const Scenario& scenario = kScenarios[2];
  scenario.spoil(place_);
  walk(place_, {kDesktop, scenario, GetParam().failure, stepOf(GetParam().failure)});
}

INSTANTIATE_TEST_SUITE_P(Walk, DesktopCalls, testing::ValuesIn(kRows), rowName);

// Taking the framework down needs memory too.
TEST(DesktopProgram, IsNotStoppedByAnythingBehindItsMarker) {
  const Workplace place;
  walk(place, {kDesktop, kScenarios[0], {"malloc", ENOMEM, "sticky"}, 1, "fin.txt"});
}

TEST(DesktopProgram, HasAMarkerOnlyBehindACompleteOutputWhereverItIsKilled) {
  const Workplace place;
  int killed = 0;
  int withMarker = 0;
  for (const char* call : kLastCalls) {
    for (int at = 1;; ++at) {
      const FaultedRun run = runStruck(place, {kDesktop, kScenarios[0], {call, 0, "kill"}}, at);
      SCOPED_TRACE(std::to_string(at) + ": " + run.injected);
      if (run.injected.empty()) break;
      ASSERT_EQ(SIGKILL, run.signal);
      ++killed;
      EXPECT_EQ("", place.touchedInputs());
      if (!place.hasMarker()) continue;
      ++withMarker;
      EXPECT_TRUE(place.outputIsComplete());
    }
  }
  EXPECT_GE(killed, 7 + 4 + 1 + 7 + 4);
  EXPECT_GE(withMarker, 1);  // at its closing
}

#endif
