#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <random>
#include <thread>

#include "faults/surroundings.h"

// A run that is killed, and runs at the same time.

namespace {
class Processes : public Surroundings {};
}  // namespace

TEST_P(Processes, ARunKilledAtAnyMomentHasAMarkerOnlyWithACompleteOutput) {
  const auto begin = std::chrono::steady_clock::now();
  expectComplete(run());
  const std::chrono::microseconds whole = std::chrono::duration_cast<std::chrono::microseconds>(
      std::chrono::steady_clock::now() - begin);
  std::mt19937 random(20'240'501);
  std::uniform_int_distribution<int> moment(0, static_cast<int>(whole.count()) * 5 / 4);
  const int runs = longTests() ? 2000 : 100;
  int killed = 0;
  for (int i = 0; i < runs; ++i) {
    place_.reset();
    RunOptions options;
    options.killAfterMicroseconds = moment(random);
    const FaultedRun result = run(options);
    SCOPED_TRACE("killed after " + std::to_string(options.killAfterMicroseconds) + " us");
    if (result.signal == SIGKILL) ++killed;
    EXPECT_EQ("", place_.touchedInputs());
    EXPECT_TRUE(!place_.hasMarker() || place_.outputIsComplete());
  }
  EXPECT_GT(killed, 0);
}

TEST_P(Processes, RunsAtTheSameTimeDoNotDisturbEachOther) {
  constexpr int kRuns = 8;
  std::vector<std::thread> threads;
  std::vector<FaultedRun> results(kRuns);
  for (std::size_t i = 0; i < kRuns; ++i) {
    threads.emplace_back([this, i, &results] {
      std::vector<std::string> arguments = place_.arguments();
      arguments[kOutput] = path("salida-" + std::to_string(i));
      arguments[kMarker] = path("fin-" + std::to_string(i));
      results[i] = runOn(GetParam(), arguments);
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (std::size_t i = 0; i < kRuns; ++i) {
    EXPECT_EQ(0, results[i].status) << results[i].err;
    EXPECT_EQ("", results[i].err);
    EXPECT_TRUE(place_.folder().read("salida-" + std::to_string(i)) == place_.expectedOutput());
    EXPECT_TRUE(place_.folder().has("fin-" + std::to_string(i)));
  }
  EXPECT_EQ("", place_.touchedInputs());
}

INSTANTIATE_TEST_SUITE_P(Of, Processes, testing::ValuesIn(kPrograms), programName);
