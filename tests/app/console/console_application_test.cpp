#include "app/console/console_application.h"

#include <gtest/gtest.h>

TEST(ConsoleProgressBar, BoundsItsPosition) {
  ConsoleProgressBar bar(false);
  EXPECT_EQ(0, bar.GetPosition());
  bar.SetPosition(75);
  EXPECT_EQ(75, bar.GetPosition());
  bar.SetPosition(150);
  EXPECT_EQ(100, bar.GetPosition());
  bar.SetPosition(-1);
  EXPECT_EQ(0, bar.GetPosition());
}

TEST(ConsoleProgressBar, DrawsOnlyWhenVisible) {
  testing::internal::CaptureStderr();
  ConsoleProgressBar(false).SetPosition(50);
  EXPECT_EQ("", testing::internal::GetCapturedStderr());

  testing::internal::CaptureStderr();
  ConsoleProgressBar(true).SetPosition(50);
  EXPECT_TRUE(
      testing::internal::GetCapturedStderr().starts_with("\rGenerando el edificio ... 50 %"));
}

TEST(ConsoleApplication, MessagesAreLinesOnStandardError) {
  ConsoleApplication application;
  testing::internal::CaptureStderr();
  application.MessageBox(
      "No existe la librer\xED"
      "a",
      "Se ha producido un error");
  EXPECT_EQ("Se ha producido un error: No existe la librería\n",
            testing::internal::GetCapturedStderr());
}

TEST(ConsoleApplication, TerminateExitsWithTheStatus) {
  EXPECT_EXIT(ConsoleApplication().Terminate(3), testing::ExitedWithCode(3), "");
}
