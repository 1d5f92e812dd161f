#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "app/console/works/interrupts.h"
#include "support/skip_for_lack_of.h"

TEST(Interrupts, CtrlCIsNotedAndDoesNotEndTheProcess) {
  FreeConsole();
  if (AllocConsole() == 0) SKIP_FOR_LACK_OF("a console");
  SetConsoleCtrlHandler(nullptr, FALSE);  // who starts a test may have it ignored
  const Interrupts interrupts;
  EXPECT_EQ(0, Interrupts::signal());
  ASSERT_NE(0, GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
  for (int i = 0; i < 500 && !Interrupts::requested(); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_TRUE(Interrupts::requested());
  EXPECT_EQ(SIGINT, Interrupts::signal());
}
