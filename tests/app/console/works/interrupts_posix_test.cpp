#include <gtest/gtest.h>

#include <csignal>

#include "app/console/works/interrupts.h"

TEST(InterruptsDeathTest, TheFirstIsNotedAndTheSecondEndsTheProcess) {
  EXPECT_EXIT(
      {
        const Interrupts interrupts;
        if (Interrupts::requested() || Interrupts::signal() != 0) std::_Exit(1);
        std::raise(SIGINT);
        if (!Interrupts::requested() || Interrupts::signal() != SIGINT) std::_Exit(2);
        std::raise(SIGINT);
      },
      testing::KilledBySignal(SIGINT), "");
}

TEST(InterruptsDeathTest, AfterwardsTheyEndTheProcessAsEver) {
  EXPECT_EXIT(
      {
        { const Interrupts interrupts; }
        std::raise(SIGTERM);
      },
      testing::KilledBySignal(SIGTERM), "");
}
