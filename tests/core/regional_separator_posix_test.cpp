#include "core/regional_separator.h"

#include <gtest/gtest.h>
#include <locale.h>
#include <stdlib.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "core/reals_that_change.h"
#include "support/skip_for_lack_of.h"

namespace {

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
