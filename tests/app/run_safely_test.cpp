#include "app/run_safely.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

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
