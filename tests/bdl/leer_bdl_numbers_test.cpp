#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "bdl/leer_bdl.h"
#include "bdl/loaded_text.h"
#include "support/recording_application.h"

namespace {

constexpr int kIntegerBefore = -77;
constexpr float kRealBefore = -77.5F;

int integerIn(std::string_view text, std::string_view keyword = "KEY") {
  int value = kIntegerBefore;
  EXPECT_EQ(0, LoadedText(text).model.leerEntero(keyword, value));
  return value;
}

float realIn(std::string_view text, std::string_view keyword = "KEY") {
  float value = kRealBefore;
  EXPECT_EQ(0, LoadedText(text).model.leerReal(keyword, value));
  return value;
}

}  // namespace

TEST(LeerEntero, ReadsAsTheCLibraryDoes) {
  const struct {
    const char* why;
    const char* text;
    int value;
  } cases[] = {
      {"plain", "\nKEY = 12", 12},
      {"a sign", "\nKEY = -12", -12},
      {"a plus sign", "\nKEY = +12", 12},
      {"no blank", "\nKEY=12", 12},
      {"tabs around the =", "\nKEY\t=\t12", 12},
      {"on the next line", "\nKEY =\n12", 12},
      {"on the next line, CR LF", "\r\nKEY =\r\n12\r\n", 12},
      {"a real loses its decimals", "\nKEY = 2.9", 2},
      {"an exponent is no integer's", "\nKEY = 1e3", 1},
      {"letters behind", "\nKEY = 12abc", 12},
      {"leading zeros are no octal", "\nKEY = 010", 10},
      {"no hexadecimal", "\nKEY = 0x10", 0},
      {"the greatest", "\nKEY = 2147483647", 2147483647},
      {"the least", "\nKEY = -2147483648", std::numeric_limits<int>::min()},
      {"what does not fit loses its upper half", "\nKEY = 4294967297", 1},
      {"and may change its sign", "\nKEY = 2147483648", std::numeric_limits<int>::min()},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.value, integerIn(c.text));
  }
}

TEST(LeerReal, ReadsAsTheCLibraryDoes) {
  const struct {
    const char* why;
    const char* text;
    float value;
  } cases[] = {
      {"plain", "\nKEY = 0.7", 0.7F},
      {"an integer", "\nKEY = 12", 12.0F},
      {"a sign", "\nKEY = -.5", -0.5F},
      {"an exponent", "\nKEY = 2.5e-8", 2.5e-8F},
      {"no blank", "\nKEY=12.5", 12.5F},
      {"tabs around the =", "\nKEY\t=\t12.5", 12.5F},
      {"on the next line", "\nKEY =\n12.5", 12.5F},
      {"a decimal comma ends the number", "\nKEY = 12,5", 12.0F},
      {"a unit behind", "\nKEY = 12.5m2", 12.5F},
      {"hexadecimal", "\nKEY = 0x1.8p1", 3.0F},
      {"the closing dots behind a blank", "\nKEY = 12.5 ..", 12.5F},
      {"the closing dots right behind", "\nKEY = 12..", 12.0F},
      {"rounded to 32 bits", "\nKEY = 16777217", 16777216.0F},
      {"too large", "\nKEY = 1e39", std::numeric_limits<float>::infinity()},
      {"too small", "\nKEY = 1e-46", 0.0F},
      {"the smallest", "\nKEY = 1.4e-45", std::numeric_limits<float>::denorm_min()},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.value, realIn(c.text));
  }
}

TEST(LeerReal, ReadsNotANumber) { EXPECT_TRUE(std::isnan(realIn("\nKEY = nan"))); }

TEST(LeerReal, TabsReadTheSameAsBlanks) {
  EXPECT_EQ(realIn("\nKEY = 0.7"), realIn("\n\tKEY\t=\t0.7\t"));
}

TEST(NumberGetters, AMissingKeywordIsMinus1AndLeavesTheDestination) {
  LoadedText text("\nOTHER = 1");
  int integer = kIntegerBefore;
  float real = kRealBefore;
  EXPECT_EQ(-1, text.model.leerEntero("KEY", integer));
  EXPECT_EQ(-1, text.model.leerReal("KEY", real));
  EXPECT_EQ(kIntegerBefore, integer);
  EXPECT_EQ(kRealBefore, real);
}

TEST(NumberGetters, AValueThatIsNotANumberLeavesTheDestinationAndIsStill0) {
  const char* const texts[] = {"\nKEY = abc",    "\nKEY = ",     "\nKEY =",    "\nKEY = \"12\"",
                               "\nKEY = ( 12 )", "\nKEY = - 12", "\nKEY = .. "};
  for (const char* text : texts) {
    SCOPED_TRACE(text);
    EXPECT_EQ(kIntegerBefore, integerIn(text));
    EXPECT_EQ(kRealBefore, realIn(text));
  }
}

TEST(NumberGetters, TheValueStandsBehindTheNextEqualsSignAnywhere) {
  EXPECT_EQ(5, integerIn("\nKEY\n$ sin valor\nOTHER = 5"));
  EXPECT_EQ(5.5F, realIn("\nKEY\n$ sin valor\nOTHER = 5.5"));
}

TEST(NumberGetters, WithoutAnyEqualsSignBehindTheKeywordItIsAbsent) {
  LoadedText text("x = 1 KEY 2");
  int integer = kIntegerBefore;
  float real = kRealBefore;
  EXPECT_EQ(-1, text.model.leerEntero("KEY", integer));
  EXPECT_EQ(-1, text.model.leerReal("KEY", real));
  EXPECT_EQ(kIntegerBefore, integer);
}

TEST(NumberGetters, AKeywordMayCarryItsOwnBlankOrEqualsSign) {
  LoadedText text("\nKEY-LONG = 1\nKEY = 2");
  int value = 0;
  EXPECT_EQ(0, text.model.leerEntero("KEY", value));
  EXPECT_EQ(1, value);
  EXPECT_EQ(0, text.model.leerEntero("KEY ", value));
  EXPECT_EQ(2, value);
  EXPECT_EQ(0, text.model.leerEntero("KEY =", value));
  EXPECT_EQ(2, value);
}

TEST(NumberGetters, TheFirstOccurrenceCounts) {
  EXPECT_EQ(1, integerIn("\nKEY = 1\nKEY = 2"));
  EXPECT_EQ(1.5F, realIn("\nKEY = 1.5\nKEY = 2.5"));
}

TEST(NumberGetters, TheFirstOccurrenceCountsEvenWithoutANumber) {
  EXPECT_EQ(kIntegerBefore, integerIn("\nKEY = abc\nKEY = 2"));
  EXPECT_EQ(kRealBefore, realIn("\nKEY = abc\nKEY = 2.5"));
}

TEST(Consultar, TellsAMissingKeywordFromAMissingNumber) {
  using Lectura = LeerBDL::Lectura;
  LoadedText text("\nGOOD = 1\nBAD = abc\nLAST");
  const struct {
    const char* keyword;
    Lectura outcome;
  } cases[] = {{"GOOD", Lectura::kLeida},
               {"BAD", Lectura::kSinNumero},
               {"NONE", Lectura::kAusente},
               {"LAST", Lectura::kAusente}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.keyword);
    int integer = 0;
    float real = 0;
    EXPECT_EQ(c.outcome, text.model.consultarEntero(c.keyword, integer));
    EXPECT_EQ(c.outcome, text.model.consultarReal(c.keyword, real));
  }
}
