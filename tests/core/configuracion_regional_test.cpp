#include "core/configuracion_regional.h"

#include <gtest/gtest.h>
#include <locale.h>
#include <stdlib.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include "support/skip_for_lack_of.h"

namespace {

std::string adjusted(std::string text, char separator) {
  AjustarSeparadorDecimal(text, separator);
  return text;
}

std::uint32_t bits(float value) { return std::bit_cast<std::uint32_t>(value); }

/// Returns how many of many reals of all sizes lose a bit on their way through the regional text.
int realsThatChange() {
  std::mt19937 random(20240607);
  int changed = 0;
  for (int round = 0; round < 200000; ++round) {
    const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (std::isnan(value)) continue;
    if (bits(pasarPorConversionRegional(value)) != bits(value)) ++changed;
  }
  return changed;
}

/// A program asks for the separator once, so each of these tests starts one of its own.
class RegionalSettings : public testing::Test {
 protected:
  RegionalSettings() {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    setenv("LOCPATH", TEST_LOCALES, 1);
  }
};

[[noreturn]] void exitUnderLocale(const char* locale) {
  setenv("LC_ALL", locale, 1);
  std::string text = "1.000,5.";
  AjustarSeparadorDecimal(text);
  std::fprintf(stderr, "separator %c, text %s, reals changed %d, process locale %s\n",
               separadorDecimalRegional(), text.c_str(), realsThatChange(),
               std::setlocale(LC_ALL, nullptr));
  std::exit(0);
}

bool localeIsInstalled(const char* name) {
  const locale_t found = newlocale(LC_NUMERIC_MASK, name, nullptr);
  if (found == nullptr) return false;
  freelocale(found);
  return true;
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

TEST_F(RegionalSettings, WithoutALocaleTheSeparatorIsThePoint) {
  EXPECT_EXIT(exitUnderLocale("C"), testing::ExitedWithCode(0),
              "separator \\., text 1\\.000\\.5\\., reals changed 0, process locale C\n");
}

TEST_F(RegionalSettings, ALocaleThatIsNotInstalledCountsAsNone) {
  EXPECT_EXIT(exitUnderLocale("xx_XX.no-such-charset"), testing::ExitedWithCode(0),
              "separator \\., text 1\\.000\\.5\\., reals changed 0, process locale C\n");
}

TEST_F(RegionalSettings, ASpanishUserHasTheCommaAndReadsTheSameReals) {
  if (!localeIsInstalled("es_ES.UTF-8")) SKIP_FOR_LACK_OF("the locale es_ES.UTF-8");
  EXPECT_EXIT(exitUnderLocale("es_ES.UTF-8"), testing::ExitedWithCode(0),
              "separator ,, text 1,000,5\\., reals changed 0, process locale C\n");
}
