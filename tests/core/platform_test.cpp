#include "core/platform.h"

#include <gtest/gtest.h>

#include <csignal>

#include "support/recording_application.h"

namespace {

/// An implementation that forgets to leave.
class StayingApplication : public TApplication {
 public:
  void ProcessMessages() override {}
  void MessageBox(std::string_view, std::string_view) override {}

 private:
  void endProcess(int) override {}
};

}  // namespace

TEST(Platform, TerminateEndsTheProcessWithItsStatus) {
  EXPECT_EXIT(ExitingApplication().Terminate(3), testing::ExitedWithCode(3), "");
  EXPECT_EXIT(ExitingApplication().Terminate(0), testing::ExitedWithCode(0), "");
}

TEST(Platform, TerminateNeverReturnsFromAnApplicationThatForgetsToLeave) {
  EXPECT_EXIT(StayingApplication().Terminate(3), testing::KilledBySignal(SIGABRT), "");
}
