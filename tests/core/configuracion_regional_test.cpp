#include "core/configuracion_regional.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "core/reals_that_change.h"

namespace {

std::string adjusted(std::string text, char separator) {
  AjustarSeparadorDecimal(text, separator);
  return text;
}

}  // namespace

TEST(AjustarSeparadorDecimal, TurnsPointsIntoCommasWhereTheSeparatorIsAComma) {
  EXPECT_EQ("12,5", adjusted("12.5", ','));
  EXPECT_EQ("1,000,5", adjusted("1.000.5", ','));
}

TEST(AjustarSeparadorDecimal, TurnsCommasIntoPointsWhereTheSeparatorIsAPoint) {
  EXPECT_EQ("12.5", adjusted("12,5", '.'));
  EXPECT_EQ("1.000.5", adjusted("1,000,5", '.'));
}

TEST(AjustarSeparadorDecimal, LeavesTheMarkThatTheSettingsExpect) {
  EXPECT_EQ("12,5", adjusted("12,5", ','));
  EXPECT_EQ("12.5", adjusted("12.5", '.'));
}

TEST(AjustarSeparadorDecimal, AnySeparatorButThePointAsksForCommas) {
  EXPECT_EQ("12,5", adjusted("12.5", '\''));
}

TEST(AjustarSeparadorDecimal, NeverChangesTheLastCharacter) {
  EXPECT_EQ("12.", adjusted("12.", ','));
  EXPECT_EQ("3,", adjusted("3,", '.'));
  EXPECT_EQ("1,.", adjusted("1..", ','));
  EXPECT_EQ(".,", adjusted(",,", '.'));
}

TEST(AjustarSeparadorDecimal, LeavesAnEmptyTextAndOneCharacterUnchanged) {
  for (const char separator : {'.', ','}) {
    for (const char* text : {"", ".", ",", "7"}) EXPECT_EQ(text, adjusted(text, separator));
  }
}

TEST(AjustarSeparadorDecimal, IsAlwaysTrue) {
  for (const char* given : {"", "12.5", "abc"}) {
    std::string text = given;
    EXPECT_TRUE(AjustarSeparadorDecimal(text));
    EXPECT_TRUE(AjustarSeparadorDecimal(text, ','));
  }
}

TEST(PasarPorConversionRegional, KeepsEveryBit) { EXPECT_EQ(0, realsThatChange()); }

TEST(PasarPorConversionRegional, KeepsTheEndsOfTheReals) {
  using Limits = std::numeric_limits<float>;
  for (const float value : {0.0F, -0.0F, Limits::denorm_min(), -Limits::denorm_min(), Limits::min(),
                            std::nextafter(Limits::min(), 0.0F), Limits::max(), Limits::lowest(),
                            Limits::infinity(), -Limits::infinity(), 16777216.0F, 0.1F}) {
    EXPECT_EQ(bits(value), bits(pasarPorConversionRegional(value))) << value;
  }
  EXPECT_TRUE(std::isnan(pasarPorConversionRegional(Limits::quiet_NaN())));
}
