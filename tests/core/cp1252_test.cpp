#include "core/cp1252.h"

#include <gtest/gtest.h>

#include <string>

using cp1252::toUtf8;

namespace {

/// The characters of the bytes 0x80 to 0x9F; the five that have none keep their number.
constexpr const char* kHighHalfStart[32] = {
    "€", "\xC2\x81", "‚",        "ƒ", "„",        "…",        "†", "‡",        "ˆ", "‰", "Š",
    "‹", "Œ",        "\xC2\x8D", "Ž", "\xC2\x8F", "\xC2\x90", "‘", "’",        "“", "”", "•",
    "–", "—",        "˜",        "™", "š",        "›",        "œ", "\xC2\x9D", "ž", "Ÿ"};

std::string utf8Of(int byte) {
  if (byte < 0x80) return std::string(1, static_cast<char>(byte));
  if (byte < 0xA0) return kHighHalfStart[byte - 0x80];
  return {static_cast<char>(0xC0 | (byte >> 6)), static_cast<char>(0x80 | (byte & 0x3F))};
}

}  // namespace

TEST(Cp1252, EveryByteDecodes) {
  for (int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(utf8Of(byte), toUtf8(std::string(1, static_cast<char>(byte)))) << "byte " << byte;
  }
}

TEST(Cp1252, EveryPairOfBytesDecodesByteByByteUnlessItIsUtf8) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const bool isUtf8 = first >= 0xC2 && first <= 0xDF && second >= 0x80 && second <= 0xBF;
      const std::string pair = {static_cast<char>(first), static_cast<char>(second)};
      ASSERT_EQ(isUtf8 ? pair : utf8Of(first) + utf8Of(second), toUtf8(pair))
          << "bytes " << first << " and " << second;
    }
  }
}

TEST(Cp1252, Utf8IsTakenAsSuchAndTheRestAsWindows1252) {
  const struct {
    const char* why;
    std::string bytes;
    const char* decoded;
  } cases[] = {
      {"nothing", "", ""},
      {"plain ASCII", "casa.bdl", "casa.bdl"},
      {"one byte a character", "\xC1rea", "Área"},
      {"two bytes a character", "Área", "Área"},
      {"three bytes a character", "10 €", "10 €"},
      {"four bytes a character", "\xF0\x9F\x8F\xA0", "\xF0\x9F\x8F\xA0"},
      {"both in one message",
       "Espa\xF1"
       "a: Ñandú",
       "España: Ñandú"},
      {"a Windows-1252 letter right before a UTF-8 one", "\xF1ñ", "ññ"},
      {"a UTF-8 letter right before a Windows-1252 one", "ñ\xF1", "ññ"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.decoded, toUtf8(c.bytes));
  }
}

TEST(Cp1252, DecodingPassesOverANul) {
  const std::string bytes("a\0\xF1", 3);
  EXPECT_EQ(std::string("a\0ñ", 4), toUtf8(bytes));
}

TEST(Cp1252, WhatIsNoUtf8IsDecodedByteByByte) {
  const struct {
    const char* why;
    const char* bytes;
    const char* decoded;
  } cases[] = {
      {"a continuation byte alone", "\xA1", "¡"},
      {"a lead byte at the end", "a\xC3", "aÃ"},
      {"a lead byte of three with one more", "\xE2\x82", "â‚"},
      {"a lead byte of four with two more", "\xF0\x9F\x8F", "ðŸ\xC2\x8F"},
      {"a lead byte before a letter", "\xC3z", "Ãz"},
      {"overlong, two bytes for '/'", "\xC0\xAF", "À¯"},
      {"overlong, the last of two bytes", "\xC1\xBF", "Á¿"},
      {"overlong, the last of three bytes", "\xE0\x9F\xBF", "àŸ¿"},
      {"overlong, the last of four bytes", "\xF0\x8F\xBF\xBF", "ð\xC2\x8F¿¿"},
      {"the first surrogate", "\xED\xA0\x80", "í\xC2\xA0€"},
      {"the last surrogate", "\xED\xBF\xBF", "í¿¿"},
      {"one above U+10FFFF", "\xF4\x90\x80\x80", "ô\xC2\x90€€"},
      {"a lead byte that UTF-8 does not have", "\xF5\x80\x80\x80", "õ€€€"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.decoded, toUtf8(c.bytes));
  }
}

TEST(Cp1252, FirstAndLastSequenceOfEachLengthIsUtf8) {
  for (const char* text : {"\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                           "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_EQ(text, toUtf8(text));
  }
}

TEST(Cp1252Literal, IsOneByteACharacter) {
  EXPECT_EQ("\xC1rea de planta no v\xE1lida", "Área de planta no válida"_cp1252);
  EXPECT_EQ("\xBFqu\xE9? \xA1no!", "¿qué? ¡no!"_cp1252);
  EXPECT_EQ("", ""_cp1252);
}

TEST(Cp1252Literal, KnowsTheCharactersBetween0x80And0x9F) {
  EXPECT_EQ(
      "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"
      "\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F",
      "€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ"_cp1252);
}

TEST(Cp1252Literal, DecodesToTheTextOfTheSource) {
  EXPECT_EQ("«Ñandú» — 10 €", toUtf8("«Ñandú» — 10 €"_cp1252));
}

TEST(Cp1252Literal, IsAConstantOfTheCompiler) {
  static_assert("ñ"_cp1252.size() == 1);
  static_assert("ñ"_cp1252[0] == '\xF1');
}
