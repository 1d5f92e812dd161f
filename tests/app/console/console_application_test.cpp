#include "app/console/console_application.h"

#include <gtest/gtest.h>

#include <string>

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

namespace {

std::string shown(const Fault& fault) {
  ConsoleApplication application;
  testing::internal::CaptureStderr();
  application.ShowFault(fault);
  return testing::internal::GetCapturedStderr();
}

}  // namespace

TEST(ConsoleApplication, AFaultWithALineShowsItInASecondOne) {
  EXPECT_EQ(
      "Se ha producido un error: Superficie no válida\n"
      "  casa.tip:5:18: AREA-PLANTA = 72,9\n",
      shown({"Superficie no v\xE1lida", Place{.file = "casa.tip",
                                              .line = 5,
                                              .column = 18,
                                              .length = 4,
                                              .text = "   AREA-PLANTA = 72,9"}}));
}

TEST(ConsoleApplication, TheLineOfAFaultIsDecodedAsItsMessageIs) {
  EXPECT_EQ(
      "Se ha producido un error: No vale\n  Ñandú.tip:1:1: PAÑO = 2\n",
      shown(
          {"No vale",
           Place{
               .file = "Ñandú.tip", .line = 1, .column = 1, .length = 1, .text = "PA\xD1O = 2"}}));
}

TEST(ConsoleApplication, AnEmptyLineIsShownAsItsPlace) {
  EXPECT_EQ("Se ha producido un error: No vale\n  casa.tip:3:1:\n",
            shown({"No vale", Place{.file = "casa.tip", .line = 3, .column = 1, .text = {}}}));
}

TEST(ConsoleApplication, AFaultWithoutALineIsItsMessageAlone) {
  const std::string alone = "Se ha producido un error: No vale\n";
  EXPECT_EQ(alone, shown({"No vale", {}}));
  EXPECT_EQ(alone, shown({"No vale", Place{.file = "casa.tip", .text = {}}}));
}

TEST(ConsoleApplication, TheBarIsWipedBeforeAFault) {
  ConsoleProgressBar bar(true);
  testing::internal::CaptureStderr();
  bar.SetPosition(50);
  ConsoleApplication().ShowFault({"No vale", {}});
  const std::string text = testing::internal::GetCapturedStderr();
  EXPECT_TRUE(text.ends_with(" \rSe ha producido un error: No vale\n")) << text;
}

TEST(ConsoleApplication, TerminateExitsWithTheStatus) {
  EXPECT_EXIT(ConsoleApplication().Terminate(3), testing::ExitedWithCode(3), "");
}
