#include "core/line_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

using testing::ElementsAre;

namespace {

/// The lines that a text hands out.
std::vector<std::string> linesRead(std::string_view text) {
  LineReader reader(text);
  std::vector<std::string> lines;
  for (std::string_view line; reader.ReadLine(line);) lines.emplace_back(line);
  return lines;
}

std::vector<std::size_t> lengthsRead(std::string_view bytes) {
  std::vector<std::size_t> lengths;
  for (const std::string& line : linesRead(bytes)) lengths.push_back(line.size());
  return lengths;
}

/// A line's text of `size` bytes.
std::string text(std::size_t size) { return std::string(size, 'x'); }

}  // namespace

TEST(LineReader, AnEmptyTextHandsOutOneEmptyLine) { EXPECT_THAT(linesRead(""), ElementsAre("")); }

TEST(LineReader, LastLineIsHandedOutTwiceAfterALineEnd) {
  EXPECT_THAT(linesRead("A\nB\n"), ElementsAre("A", "B", "B"));
}

TEST(LineReader, LastLineIsHandedOutOnceWithoutALineEnd) {
  EXPECT_THAT(linesRead("A\nB"), ElementsAre("A", "B"));
}

TEST(LineReader, OneLineAloneIsRepeatedAsWell) {
  EXPECT_THAT(linesRead("A\n"), ElementsAre("A", "A"));
  EXPECT_THAT(linesRead("A"), ElementsAre("A"));
}

TEST(LineReader, AnEmptyLastLineIsRepeated) {
  EXPECT_THAT(linesRead("\n"), ElementsAre("", ""));
  EXPECT_THAT(linesRead("A\n\n"), ElementsAre("A", "", ""));
}

TEST(LineReader, LosesCrLfAsItLosesLf) {
  EXPECT_THAT(linesRead("A\r\nB\r\n"), ElementsAre("A", "B", "B"));
  EXPECT_THAT(linesRead("\r\n"), ElementsAre("", ""));
}

TEST(LineReader, KeepsACarriageReturnThatIsNotPartOfALineEnd) {
  EXPECT_THAT(linesRead("A\rB\nC\r"), ElementsAre("A\rB", "C\r"));
  EXPECT_THAT(linesRead("A\r\r\nB"), ElementsAre("A\r", "B"));
}

TEST(LineReader, KeepsBlanksTabsAndAccentsOfALine) {
  EXPECT_THAT(linesRead("  a \t \xF1\xC3\xB1 \n"),
              ElementsAre("  a \t \xF1\xC3\xB1 ", "  a \t \xF1\xC3\xB1 "));
}

TEST(LineReader, TheEndOfTheLinesLeavesTheCallersLine) {
  LineReader reader("A");
  std::string_view line;
  ASSERT_TRUE(reader.ReadLine(line));
  line = "otra";
  EXPECT_FALSE(reader.ReadLine(line));
  EXPECT_FALSE(reader.ReadLine(line));
  EXPECT_EQ("otra", line);
}

TEST(LineReader, ALineIsAViewIntoTheText) {
  const std::string_view text = "primera\nsegunda";
  LineReader reader(text);
  std::string_view first;
  std::string_view second;
  ASSERT_TRUE(reader.ReadLine(first));
  ASSERT_TRUE(reader.ReadLine(second));
  EXPECT_EQ("primera", first);
  EXPECT_EQ(text.data(), first.data());
  EXPECT_EQ(text.data() + 8, second.data());
}

TEST(LineReader, ReadersOfOneTextDoNotDisturbEachOther) {
  const std::string_view text = "A\nB";
  LineReader one(text);
  LineReader other(text);
  std::string_view line;
  while (one.ReadLine(line)) {
  }
  ASSERT_TRUE(other.ReadLine(line));
  EXPECT_EQ("A", line);
}

TEST(LineReader, OneReadTakesAtMost19999Bytes) {
  const struct {
    const char* why;
    std::string bytes;
    std::vector<std::size_t> lengths;
  } cases[] = {
      {"a line that fits with its line end", text(19998) + "\nB", {19998, 1}},
      {"its line end alone is left over", text(19999) + "\nB", {19999, 0, 1}},
      {"one byte is left over", text(20000) + "\nB", {19999, 1, 1}},
      {"three reads", text(2 * 19999 + 5) + "\nB", {19999, 19999, 5, 1}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.lengths, lengthsRead(c.bytes));
  }
}

TEST(LineReader, OneReadTakesCrLfAsTheOneLineEndThatItIs) {
  const struct {
    const char* why;
    std::string bytes;
    std::vector<std::size_t> lengths;
  } cases[] = {
      {"a line that fits with its line end", text(19998) + "\r\nB", {19998, 1}},
      {"its line end alone is left over", text(19999) + "\r\nB", {19999, 0, 1}},
      {"one byte is left over", text(20000) + "\r\nB", {19999, 1, 1}},
      {"a carriage return at the limit that ends no line", text(19998) + "\rB", {19999, 1}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.lengths, lengthsRead(c.bytes));
  }
}

TEST(LineReader, OnlyAReadThatMeetsTheEndIsNotFollowedByTheRepeat) {
  const struct {
    const char* why;
    std::string bytes;
    std::vector<std::size_t> lengths;
  } cases[] = {
      {"the read stops short of its limit", text(19998), {19998}},
      {"the read is full at the end of the file", text(19999), {19999, 19999}},
      {"a second read meets the end", text(20000), {19999, 1}},
      {"a second read is full", text(std::size_t{2} * 19999), {19999, 19999, 19999}},
      {"the line end fills the read", text(19998) + "\n", {19998, 19998}},
      {"the line end comes in a read of its own", text(19999) + "\n", {19999, 0, 0}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.lengths, lengthsRead(c.bytes));
  }
}

TEST(LineReader, NumbersTheLinesFrom1AndTheRepeatToo) {
  LineReader reader("A\nB\n");
  std::vector<long> numbers = {reader.lineNumber()};
  for (std::string_view line; reader.ReadLine(line);) numbers.push_back(reader.lineNumber());
  EXPECT_THAT(numbers, ElementsAre(0, 1, 2, 3));
}

TEST(LineReader, TheRepeatIsNotCountedAsALine) {
  EXPECT_EQ(0, LineReader("").lineCount());
  EXPECT_EQ(1, LineReader("\n").lineCount());
  EXPECT_EQ(1, LineReader("A").lineCount());
  EXPECT_EQ(2, LineReader("A\nB").lineCount());
  EXPECT_EQ(2, LineReader("A\r\nB\r\n").lineCount());
  EXPECT_EQ(2, LineReader(text(20000)).lineCount());
}

TEST(LineReader, CountsTheWholeTextWhereverItsReadingIs) {
  LineReader reader("A\nB\n");
  for (std::string_view line; reader.ReadLine(line);) EXPECT_EQ(2, reader.lineCount());
  EXPECT_EQ(2, reader.lineCount());
}

TEST(LineReader, SaysWhereTheLineStands) {
  const struct {
    const char* why;
    std::string bytes;
    std::vector<std::pair<std::size_t, std::size_t>> spans;
  } cases[] = {
      {"an empty text", "", {{0, 0}}},
      {"an empty line, and its repeat", "\n", {{0, 0}, {0, 0}}},
      {"the line end is left out", "ab\nc", {{0, 2}, {3, 4}}},
      {"CR LF is left out whole", "ab\r\nc\r\n", {{0, 2}, {4, 5}, {4, 5}}},
      {"a lone CR belongs to the line", "a\rb\nc\r", {{0, 3}, {4, 6}}},
      {"the pieces of a long line", text(20001), {{0, 19999}, {19999, 20001}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    LineReader reader(c.bytes);
    std::vector<std::pair<std::size_t, std::size_t>> spans;
    for (std::string_view line; reader.ReadLine(line);) {
      spans.emplace_back(reader.span().begin, reader.span().end);
      EXPECT_EQ(line, reader.line());
    }
    EXPECT_EQ(c.spans, spans);
  }
}

TEST(LineReader, BeforeTheFirstLineItStandsAtTheStart) {
  const LineReader reader("ab");
  EXPECT_EQ("", reader.line());
  EXPECT_EQ(0U, reader.span().begin);
  EXPECT_EQ(0U, reader.span().end);
  EXPECT_FALSE(reader.endsInLineFeed());
}

TEST(LineReader, SaysWhetherALineFeedFollowsRightBehind) {
  const struct {
    const char* why;
    std::string bytes;
    std::vector<bool> follows;
  } cases[] = {
      {"an empty text", "", {false}},
      {"no line end behind the last one", "a\nb", {true, false}},
      {"CR LF has a byte between", "a\r\nb\n", {false, true, true}},
      {"a line that was cut", text(20000) + "\nb", {false, true, false}},
      {"its line end alone is left over", text(19999) + "\nb", {false, true, false}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    LineReader reader(c.bytes);
    std::vector<bool> follows;
    for (std::string_view line; reader.ReadLine(line);) follows.push_back(reader.endsInLineFeed());
    EXPECT_EQ(c.follows, follows);
  }
}
