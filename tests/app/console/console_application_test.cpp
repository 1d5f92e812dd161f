#include "app/console/console_application.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

/// What `act` writes to standard error.
template <typename Act>
std::string shownBy(Act&& act) {
  testing::internal::CaptureStderr();
  act();
  return testing::internal::GetCapturedStderr();
}

const std::string kHalfWay = "\rGenerando el edificio ... 50 %";
const std::string kWipe = "\r" + std::string(40, ' ') + "\r";

}  // namespace

TEST(ConsoleProgressBar, BoundsItsPosition) {
  ConsoleProgressBar bar(nullptr);
  EXPECT_EQ(0, bar.GetPosition());
  bar.SetPosition(75);
  EXPECT_EQ(75, bar.GetPosition());
  bar.SetPosition(150);
  EXPECT_EQ(100, bar.GetPosition());
  bar.SetPosition(-1);
  EXPECT_EQ(0, bar.GetPosition());
}

TEST(ConsoleProgressBar, IsShownWhereThereIsATerminal) {
  EXPECT_EQ("", shownBy([] { ConsoleProgressBar(nullptr).SetPosition(50); }));
  ConsoleApplication application;
  EXPECT_EQ(kHalfWay, shownBy([&] { ConsoleProgressBar(&application).SetPosition(50); }));
}

TEST(ConsoleProgressBar, IsWrittenAnewOnlyWhenItsPercentageChanges) {
  ConsoleApplication application;
  ConsoleProgressBar bar(&application);
  EXPECT_EQ("\rGenerando el edificio ... 0 %", shownBy([&] { bar.SetPosition(0); }));
  EXPECT_EQ("\rGenerando el edificio ... 100 %", shownBy([&] {
              bar.SetPosition(100);
              bar.SetPosition(101);
            }));
}

TEST(ConsoleProgressBar, ReportsNothingAtItsEnd) {
  ConsoleApplication application;
  auto bar = std::make_unique<ConsoleProgressBar>(&application);
  EXPECT_EQ(kHalfWay, shownBy([&] { bar->SetPosition(50); }));
  EXPECT_EQ("", shownBy([&] { bar.reset(); }));
}

TEST(ConsoleApplication, WipesProgressOnceAndOnlyWhereItIsShown) {
  ConsoleApplication application;
  EXPECT_EQ("", shownBy([&] { application.wipeProgress(); }));
  application.showProgress(50);
  EXPECT_EQ(kWipe, shownBy([&] {
              application.wipeProgress();
              application.wipeProgress();
            }));
  EXPECT_EQ(kHalfWay, shownBy([&] { application.showProgress(50); })) << "shown again";
}

TEST(ConsoleApplication, AMessageTakesThePlaceOfProgress) {
  ConsoleApplication application;
  application.showProgress(50);
  EXPECT_EQ(kWipe + "Se ha producido un error: No vale\n", shownBy([&] {
              application.ShowFault({"No vale", {}});
            }));
  application.showProgress(50);
  EXPECT_EQ(kWipe + "Aviso: No vale\n",
            shownBy([&] { application.MessageBox("No vale", "Aviso"); }));
}

TEST(ConsoleApplication, AMessageTakesThePlaceOfABarThatIsNoMore) {
  ConsoleApplication application;
  ConsoleProgressBar(&application).SetPosition(50);
  EXPECT_EQ(kWipe + "Se ha producido un error: No vale\n", shownBy([&] {
              application.ShowFault({"No vale", {}});
            }));
}

TEST(ConsoleApplication, TerminateExitsWithTheStatus) {
  EXPECT_EXIT(ConsoleApplication().Terminate(3), testing::ExitedWithCode(3), "");
}
