#include "core/fault.h"

#include <gtest/gtest.h>

#include <string>

#include "core/source_text.h"

namespace {

/// A place in line 5, column 3, of casa.tip.
std::string shown(std::string text) {
  return asOneLine(
      {.file = "casa.tip", .line = 5, .column = 3, .length = 1, .text = std::move(text)});
}

}  // namespace

TEST(AsOneLine, IsThePlaceAndItsLine) {
  EXPECT_EQ("casa.tip:5:18: AREA-PLANTA = 72,9", asOneLine({.file = "casa.tip",
                                                            .line = 5,
                                                            .column = 18,
                                                            .length = 4,
                                                            .text = "   AREA-PLANTA = 72,9"}));
}

TEST(AsOneLine, ShowsTheLineAsATerminalShowsItWell) {
  const struct {
    const char* why;
    std::string text;
    std::string line;  // behind the place
  } cases[] = {
      {"an empty line", "", ""},
      {"a line of blanks and tabs", " \t \t", ""},
      {"leading blanks", "   A = 1", " A = 1"},
      {"leading tabs", "\t\tA = 1", " A = 1"},
      {"both", " \t A = 1", " A = 1"},
      {"blanks and tabs further on stay", "A\t =  1 \t", " A\t =  1 \t"},
      {"an escape sequence", "A\x1B[2J = 1", " A?[2J = 1"},
      {"a bell, a backspace, a carriage return", "A\a\b\rB", " A???B"},
      {"a NUL", std::string("A\0B", 3), " A?B"},
      {"a delete", "A\x7F", " A?"},
      {"a leading control character is no blank", "\r A", " ? A"},
      {"accents stay as bytes", "PA\xD1O", " PA\xD1O"},
      {"the longest line", std::string(200, 'x'), " " + std::string(200, 'x')},
      {"one byte more", std::string(201, 'x'), " " + std::string(200, 'x') + " ..."},
      {"leading blanks do not count", "  " + std::string(200, 'x'), " " + std::string(200, 'x')},
      {"cut within controls", std::string(300, '\x01'), " " + std::string(200, '?') + " ..."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ("casa.tip:5:3:" + c.line, shown(c.text));
  }
}

TEST(AsOneLine, IsEmptyWhereThereIsNoLine) {
  EXPECT_EQ("", asOneLine(wholeFile("casa.tip")));
  // A column of a line that is not at hand.
  EXPECT_EQ("lista.csv:2:425:",
            asOneLine({.file = "lista.csv", .line = 2, .column = 425, .length = 0, .text = ""}));
  EXPECT_EQ("", asOneLine({.file = "casa.tip", .line = 0, .column = 3, .text = "A = 1"}));
  EXPECT_EQ("", asOneLine(Place{}));
}

TEST(WholeFile, IsAPlaceWithoutALine) {
  const Place place = wholeFile("obra/casa.tip");
  EXPECT_EQ("obra/casa.tip", place.file);
  EXPECT_EQ(0, place.line);
  EXPECT_EQ(0, place.column);
  EXPECT_EQ(0U, place.length);
  EXPECT_EQ("", place.text);
}
