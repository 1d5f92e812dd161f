#include "app/message_lines.h"

#include <gtest/gtest.h>

#include <string>

TEST(MessageLines, AMessageStandsBehindItsCaption) {
  testing::internal::CaptureStderr();
  sayMessage(
      "No existe la librer\xED"
      "a",
      "Se ha producido un error");
  EXPECT_EQ("Se ha producido un error: No existe la librería\n",
            testing::internal::GetCapturedStderr());
}

namespace {

std::string shown(const Fault& fault) {
  testing::internal::CaptureStderr();
  sayFault(fault);
  return testing::internal::GetCapturedStderr();
}

}  // namespace

TEST(MessageLines, AFaultWithALineShowsItInASecondOne) {
  EXPECT_EQ(
      "Se ha producido un error: Superficie no válida\n"
      "  casa.tip:5:18: AREA-PLANTA = 72,9\n",
      shown({"Superficie no v\xE1lida", Place{.file = "casa.tip",
                                              .line = 5,
                                              .column = 18,
                                              .length = 4,
                                              .text = "   AREA-PLANTA = 72,9"}}));
}

TEST(MessageLines, TheLineOfAFaultIsDecodedAsItsMessageIs) {
  EXPECT_EQ(
      "Se ha producido un error: No vale\n  Ñandú.tip:1:1: PAÑO = 2\n",
      shown(
          {"No vale",
           Place{
               .file = "Ñandú.tip", .line = 1, .column = 1, .length = 1, .text = "PA\xD1O = 2"}}));
}

TEST(MessageLines, AnEmptyLineIsShownAsItsPlace) {
  EXPECT_EQ("Se ha producido un error: No vale\n  casa.tip:3:1:\n",
            shown({"No vale", Place{.file = "casa.tip", .line = 3, .column = 1, .text = {}}}));
}

TEST(MessageLines, AFaultWithoutALineIsItsMessageAlone) {
  const std::string alone = "Se ha producido un error: No vale\n";
  EXPECT_EQ(alone, shown({"No vale", {}}));
  EXPECT_EQ(alone, shown({"No vale", Place{.file = "casa.tip", .text = {}}}));
}
