#include "bdl/normalised_text.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <string_view>

TEST(NormalisedText, SetsLineEndsBetweenBlanksAndCollapsesBlanks) {
  const struct {
    const char* why;
    const char* bytes;
    const char* normalised;
  } cases[] = {
      {"an empty file", "", ""},
      {"nothing to do", "x y", "x y"},
      {"a double blank, and the carriage return stays", "x  y\r\nz", "x y \r  \n z"},
      {"a line feed", "x\ny", "x \n y"},
      {"a carriage return alone", "x\ry", "x \r y"},
      {"many blanks", "x     y", "x y"},
      {"blanks at both ends", "  x  ", " x "},
      {"blanks only", "   ", " "},
      {"a blank before a line end does not collapse with it", "x \ny", "x  \n y"},
      {"blanks behind a line end collapse with it", "x\n   y", "x \n y"},
      {"a line end at the start", "\nx", " \n x"},
      {"a line end at the end", "x\n", "x \n "},
      {"empty lines", "x\n\ny", "x \n  \n y"},
      {"tabs are no blanks", "x\t \t y\t\tz", "x\t \t y\t\tz"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.normalised, normalised(c.bytes));
  }
}

TEST(NormalisedText, GrowsToThreeBytesForEachLineEnd) {
  const std::string grown = normalised(std::string(30000, '\n'));
  EXPECT_EQ(90000U, grown.size());
  EXPECT_EQ(" \n  \n ", grown.substr(0, 6));
}

TEST(NormalisedText, GrowsBeyondHalfAsMuchAgainForShortLines) {
  std::string bytes;
  std::string expected;
  for (int line = 0; line < 1000; ++line) {
    bytes += "a\n";
    expected += "a \n ";
  }
  EXPECT_EQ(expected, normalised(bytes));
}

TEST(NormalisedText, HasNoLimitOfALine) {
  EXPECT_EQ(std::string(50000, 'x'), normalised(std::string(50000, 'x')));
}

namespace {

bool isBlank(char c) { return c == ' '; }

/// Everything that is put beside something else is a blank, so all the rest must lead back to
/// itself, in order, and nothing of the file may be left without a way back.
void expectWayBack(std::string_view file) {
  SCOPED_TRACE(testing::PrintToString(std::string(file)));
  const std::string text = normalised(file);
  std::size_t behind = 0;  // in the file, what has been led back to so far
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::size_t from = offsetBeforeNormalising(file, at);
    ASSERT_LT(from, file.size()) << at;
    if (isBlank(text[at])) {
      EXPECT_TRUE(isBlank(file[from]) || file[from] == '\n' || file[from] == '\r') << at;
      ASSERT_LE(behind, from + 1) << at;
      behind = std::max(behind, from);
    } else {
      EXPECT_EQ(text[at], file[from]) << at;
      for (std::size_t passed = behind; passed < from; ++passed) {
        EXPECT_TRUE(isBlank(file[passed])) << "left out at " << passed;
      }
      behind = from + 1;
    }
  }
  for (std::size_t over = 0; over < 3; ++over) {
    EXPECT_EQ(file.size(), offsetBeforeNormalising(file, text.size() + over));
  }
}

}  // namespace

TEST(OffsetBeforeNormalising, WhatStaysComesFromTheSameByte) {
  for (const std::string_view file : {"",
                                      " ",
                                      "   ",
                                      "x",
                                      "\n",
                                      "\r",
                                      "\r\n",
                                      "\n\r",
                                      "\n\n",
                                      "\r\r\n",
                                      "\t",
                                      "x\n",
                                      "\nx",
                                      "x\r\n",
                                      "x  y\r\nz",
                                      "A = 1\r\n\tB  = 2",
                                      "C\n\n  D \r",
                                      "  x  ",
                                      " \n ",
                                      "  \n  \n  ",
                                      "x\t \t y\t\tz",
                                      "a \r\n  b\rc \n d",
                                      "\n   KEY   =   \"a   b\"   \n"}) {
    expectWayBack(file);
  }
}

TEST(OffsetBeforeNormalising, WhatStaysComesFromTheSameByteInAnyText) {
  constexpr std::string_view kPieces[] = {" ",    "  ", "\t", "\n", "\r",
                                          "\r\n", "x",  "y=", "\"", ".."};
  std::mt19937 random(20240811);
  for (int round = 0; round < 3000 && !testing::Test::HasFailure(); ++round) {
    std::string file;
    for (std::size_t left = random() % 24; left > 0; --left) {
      file += kPieces[random() % std::size(kPieces)];
    }
    expectWayBack(file);
  }
}

TEST(OffsetBeforeNormalising, OfABlankThatWasPutBesideALineEndIsThatOfTheLineEnd) {
  // "x", blank, LF, blank, "y"
  const std::string_view file = "x\ny";
  ASSERT_EQ("x \n y", normalised(file));
  EXPECT_EQ(1U, offsetBeforeNormalising(file, 1));
  EXPECT_EQ(1U, offsetBeforeNormalising(file, 2));
  EXPECT_EQ(1U, offsetBeforeNormalising(file, 3));
  EXPECT_EQ(2U, offsetBeforeNormalising(file, 4));
}

TEST(OffsetBeforeNormalising, OfARunOfBlanksIsThatOfItsFirst) {
  ASSERT_EQ("x y", normalised("x   y"));
  EXPECT_EQ(1U, offsetBeforeNormalising("x   y", 1));
  EXPECT_EQ(4U, offsetBeforeNormalising("x   y", 2));
}

TEST(OffsetBeforeNormalising, BehindTheEndIsTheTextsEnd) {
  const struct {
    const char* why;
    std::string_view file;
    std::size_t offset;
    std::size_t end;
  } cases[] = {
      {"an empty text", "", 0, 0},
      {"an empty text, far behind", "", 99, 0},
      {"the end itself", "ab", 2, 2},
      {"far behind", "ab", 99, 2},
      {"behind blanks that were left out", "ab   ", 3, 5},
      {"behind the blank of a final line end", "ab\n", 5, 3},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.end, offsetBeforeNormalising(c.file, c.offset));
  }
}
