#include "core/platform.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>

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

TEST(Platform, AFaultIsAMessageBoxWhereAnApplicationKnowsNothingMore) {
  class BoxesOnly : public StayingApplication {
   public:
    void MessageBox(std::string_view text, std::string_view caption) override {
      shown.append(caption).append("|").append(text);
    }
    std::string shown;
  };
  BoxesOnly application;
  application.ShowFault({"No existe", Place{.file = "casa.tip", .text = {}}});
  EXPECT_EQ("Se ha producido un error|No existe", application.shown);
}
