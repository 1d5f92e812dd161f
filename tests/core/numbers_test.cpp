#include "core/numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace {

/// The process is in the "C" locale, so the platform's sscanf is the measure.
void expectAsSscanf(const std::string& text) {
  SCOPED_TRACE(text);
  int used = 0;
  float expectedReal = -7;
  // NOLINTNEXTLINE(cert-err34-c): the measure
  const bool realRead = std::sscanf(text.c_str(), "%f%n", &expectedReal, &used) == 1;
  std::string_view rest = text;
  float real = -7;
  ASSERT_EQ(realRead, scanReal(rest, real));
  EXPECT_TRUE(real == expectedReal || (std::isnan(real) && std::isnan(expectedReal)))
      << real << " instead of " << expectedReal;
  EXPECT_EQ(std::signbit(expectedReal), std::signbit(real));
  if (realRead) {
    EXPECT_EQ(text.size() - static_cast<std::size_t>(used), rest.size());
  }

  int expectedInteger = -7;
  // NOLINTNEXTLINE(cert-err34-c): the measure
  const bool integerRead = std::sscanf(text.c_str(), "%d%n", &expectedInteger, &used) == 1;
  rest = text;
  int integer = -7;
  ASSERT_EQ(integerRead, scanInteger(rest, integer));
  EXPECT_EQ(expectedInteger, integer);
  if (integerRead) {
    EXPECT_EQ(text.size() - static_cast<std::size_t>(used), rest.size());
  }
}

}  // namespace

TEST(Numbers, AreReadAsSscanfReadsThem) {
  for (const char* text : {"",
                           " ",
                           "1",
                           "-1",
                           "+1",
                           "- 1",
                           "+-1",
                           "\t\n\v\f\r 12 13",
                           "1.5abc",
                           ".5",
                           "5.",
                           ".",
                           "-.",
                           "1e3",
                           "1e",
                           "1e+",
                           "1e+ 2",
                           "1E-3x",
                           "1e5.5",
                           "0x10",
                           "0x",
                           "-0x",
                           "0x.8p1",
                           "0xg",
                           "0x.",
                           "0x1p",
                           "0x1p+",
                           "inf",
                           "-INF",
                           "infinity",
                           "infinit",
                           "infx",
                           "nan",
                           "NaN(12)",
                           "na",
                           "12,5",
                           "1..2",
                           "--1",
                           "abc",
                           "1e39",
                           "-1e39",
                           "1e-50",
                           "-1e-50",
                           "1e99999999999",
                           "1e-99999999999",
                           "0x1p200",
                           "-0x1p-200",
                           "0e999",
                           "0x0p999",
                           "0.8e-45",
                           "0.7e-45",
                           "0.00000000000000000000000000000000000000000000000000000000001e70",
                           "100000000000000000000000000000000000000000000000000000000000e-70",
                           "16777217",
                           "3.4028235e38",
                           "3.4028236e38",
                           "2147483647",
                           "2147483648",
                           "-2147483649",
                           "4294967297",
                           "9223372036854775807",
                           "9223372036854775808",
                           "-9223372036854775808",
                           "-9223372036854775809",
                           "99999999999999999999999999"}) {
    expectAsSscanf(text);
  }
}

// What the system's sscanf makes of these is not the measure: it may have the fault itself.
TEST(Numbers, ExponentsAtTheLimitsOf32BitsAreAsLargeAsTheyAre) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const std::string manyDigits(1000, '9');
  const std::string manyZeros(1000, '0');
  const struct {
    const char* why;
    std::string text;
    float number;
  } cases[] = {
      {"one digit and the largest exponent", "1e2147483647", kInfinity},
      {"more than the largest", "1e2147483648", kInfinity},
      {"twice as many bits", "1e9223372036854775807", kInfinity},
      {"more than 64 bits", "1e18446744073709551616", kInfinity},
      {"many digits in front", manyDigits + "e2147483647", kInfinity},
      {"many digits in front, with a sign", "-" + manyDigits + "e+2147483647", -kInfinity},
      {"many digits bring the least one no nearer", manyDigits + "e-2147483648", 0},
      {"the least exponent", "1e-2147483648", 0},
      {"less than the least", "1e-2147483649", 0},
      {"zeros behind the point", "0.001e-2147483648", 0},
      {"one zero fewer than would tell", "0.01e-2147483647", 0},
      {"many zeros behind the point", "0." + manyZeros + "1e-2147483648", 0},
      {"many zeros and the largest", "0." + manyZeros + "1e2147483647", kInfinity},
      {"hexadecimal", "0x1p2147483647", kInfinity},
      {"hexadecimal, more than the largest", "0x1p2147483648", kInfinity},
      {"hexadecimal, many digits in front", "0x" + manyDigits + "p2147483647", kInfinity},
      {"hexadecimal, the least", "0x1p-2147483648", 0},
      {"hexadecimal, zeros behind the point", "0x0.001p-2147483648", 0},
      {"hexadecimal, many zeros", "0x0." + manyZeros + "1p-2147483648", 0},
      {"nothing times the largest", "0e2147483647", 0},
      {"hexadecimal, nothing times the largest", "0x0p2147483647", 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    std::string_view rest = c.text;
    float number = -7;
    EXPECT_TRUE(scanReal(rest, number));
    EXPECT_EQ(c.number, number);
    EXPECT_EQ("", rest);
  }
}

TEST(Numbers, AreReadAsSscanfReadsThemInRandomTexts) {
  std::mt19937 random(20240607);
  const std::string alphabets[] = {"0123456789+-.eExXpPinfatyINFNAN( ,a\t", "0123456789.e-+",
                                   "0x123abf.p-+"};
  for (int round = 0; round < 200000 && !testing::Test::HasFailure(); ++round) {
    const std::string& alphabet = alphabets[random() % 3];
    std::string text(random() % 14, ' ');
    for (char& c : text) c = alphabet[random() % alphabet.size()];
    if (random() % 4 == 0) text = "0x" + text;
    expectAsSscanf(text);
  }
}

TEST(Numbers, AreReadAsSscanfReadsThemInRandomDecimals) {
  std::mt19937 random(20240607);
  for (int round = 0; round < 200'000 && !testing::Test::HasFailure(); ++round) {
    std::string text(1 + random() % 12, '0');
    for (char& c : text) c = static_cast<char>('0' + random() % 10);
    if (random() % 8 != 0) text[random() % text.size()] = '.';
    if (random() % 4 == 0) text.insert(0, 1, "+- 0"[random() % 4]);
    expectAsSscanf(text);
  }
}

TEST(Numbers, FailureChangesNeitherTextNorValue) {
  std::string_view text = "  abc";
  float real = 2;
  int integer = 2;
  EXPECT_FALSE(scanReal(text, real));
  EXPECT_FALSE(scanInteger(text, integer));
  EXPECT_EQ("  abc", text);
  EXPECT_EQ(2, real);
  EXPECT_EQ(2, integer);
}

namespace {

void expectAsPrintf(float value) {
  char expected[64];
  std::snprintf(expected, sizeof expected, "%f", static_cast<double>(value));
  EXPECT_EQ(expected, formatReal(value));
}

}  // namespace

TEST(Numbers, AreWrittenAsPrintfWritesThem) {
  using Limits = std::numeric_limits<float>;
  for (const float value : {0.0F, 1.0F, 1.5F, 0.1F, 0.999999F, 0.9999999F, 9.9999995F, 1e-9F,
                            0.0000005F, 2.5e-7F, 123456.789F, 999999999.0F, 1e9F, 1e10F, 1e15F,
                            Limits::max(), Limits::min(), Limits::denorm_min()}) {
    expectAsPrintf(value);
    expectAsPrintf(-value);
  }
}

// 1/128 is 0.0078125, half-way between two numbers of six decimals.
TEST(Numbers, AreWrittenWithTheEvenOneOfTwoNearestNumbers) {
  EXPECT_EQ("0.007812", formatReal(1.0F / 128));
  EXPECT_EQ("0.023438", formatReal(3.0F / 128));
  for (int n = 1; n < 2000; n += 2) expectAsPrintf(static_cast<float>(n) / 128);
}

TEST(Numbers, OfAnyBitsAreWrittenAsPrintfWritesThem) {
  std::mt19937 random(20240607);
  std::uniform_real_distribution<float> lengths(0, 100);
  for (int round = 0; round < 100'000 && !testing::Test::HasFailure(); ++round) {
    const float anyBits = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (std::isfinite(anyBits)) expectAsPrintf(anyBits);
    expectAsPrintf(lengths(random));
  }
}
