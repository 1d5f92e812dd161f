#include "app/run_safely.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>
#include <thread>

#include "core/run_ended.h"
#include "support/recording_application.h"

TEST(RunSafely, GivesTheStatusOfItsBody) {
  EXPECT_EQ(7, runSafely([] { return 7; }));
}

TEST(RunSafely, OutOfMemoryIsAnErrorLikeAnyOther) {
  EXPECT_EQ("No hay memoria suficiente",
            stopMessage([] { runSafely([]() -> int { throw std::bad_alloc(); }); }));
}

TEST(RunSafely, TheUnexpectedIsNamed) {
  EXPECT_EQ("Error inesperado: qué raro",
            stopMessage([] { runSafely([]() -> int { throw std::runtime_error("qué raro"); }); }));
}

// What is thrown where nothing may be never reaches a catch.

namespace {

void runWhereNothingMayBeThrown(const std::function<int()>& body) noexcept {
  ExitingApplication exiting;
  runSafely([&] {
    [&]() noexcept { body(); }();
    return 0;
  });
}

}  // namespace

TEST(WhatNobodyCanCatch, IsNamedForWhatItIs) {
  const struct {
    std::function<int()> body;
    const char* message;
  } cases[] = {
      {[]() -> int { throw std::bad_alloc(); }, "No hay memoria suficiente\n$"},
      {[]() -> int { throw std::runtime_error("algo raro"); }, "Error inesperado: algo raro\n$"},
      {[]() -> int { throw 7; }, "Error inesperado: excepción de tipo desconocido\n$"},
      {[]() -> int { std::terminate(); }, "No hay memoria suficiente\n$"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.message);
    EXPECT_EXIT(runWhereNothingMayBeThrown(c.body), testing::ExitedWithCode(3), c.message);
  }
}

TEST(WhatNobodyCanCatch, MayBeNoStandardException) {
  const auto run = []() noexcept {
    ExitingApplication exiting;
    runSafely([]() -> int { throw 7; });
  };
  EXPECT_EXIT(run(), testing::ExitedWithCode(3), "Error inesperado: excepción de tipo desconocido");
}

namespace {

/// What is thrown in a thread that nobody waits for, while the program's own application shows it.
void throwInAWorker(const std::function<void()>& body) {
  const ExitingApplication exiting;
  runSafely([&] {
    std::thread(body).join();
    return 0;
  });
}

void throwSomethingOdd() { throw std::runtime_error("algo raro"); }

}  // namespace

TEST(WhatNobodyCanCatch, IsToldInOtherThreadsToo) {
  const char* const message = "^Se ha producido un error: Error inesperado: algo raro\n$";
  EXPECT_EXIT(throwInAWorker(throwSomethingOdd), testing::ExitedWithCode(3), message)
      << "it has no application";
  EXPECT_EXIT(throwInAWorker([] { faultOf([]() noexcept { throwSomethingOdd(); }); }),
              testing::ExitedWithCode(3), message)
      << "it has that of one of many runs";
}

TEST(LastWords, AreAMessageAndTheExitCodeOfErrors) {
  EXPECT_EXIT(endWithLastWords({"una cosa", " y otra"}), testing::ExitedWithCode(3),
              "^Se ha producido un error: una cosa y otra\n$");
}
