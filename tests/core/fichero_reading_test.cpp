#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/fichero.h"
#include "support/temporary_folder.h"

using testing::ElementsAre;

namespace {

std::vector<std::string> allLines(fichero& file) {
  std::vector<std::string> lines;
  std::string_view line;
  while (file.ReadLine(line)) lines.emplace_back(line);
  return lines;
}

/// The lines that a file of these bytes hands out.
std::vector<std::string> linesRead(std::string_view bytes) {
  const TemporaryFolder folder;
  fichero file(folder.write("casa.bdl", bytes), "lectura");
  return allLines(file);
}

std::vector<std::size_t> lengthsRead(std::string_view bytes) {
  std::vector<std::size_t> lengths;
  for (const std::string& line : linesRead(bytes)) lengths.push_back(line.size());
  return lengths;
}

std::string normalised(std::string_view bytes) {
  const TemporaryFolder folder;
  return fichero(folder.write("casa.bdl", bytes), "lectura").normalisedText();
}

long linesCounted(std::string_view bytes) {
  const TemporaryFolder folder;
  return fichero(folder.write("casa.bdl", bytes), "lectura").lineCount();
}

/// A line's text of `size` bytes.
std::string text(std::size_t size) { return std::string(size, 'x'); }

}  // namespace

TEST(FicheroReading, AnEmptyFileHandsOutOneEmptyLine) {
  EXPECT_THAT(linesRead(""), ElementsAre(""));
}

TEST(FicheroReading, LastLineIsHandedOutTwiceAfterALineEnd) {
  EXPECT_THAT(linesRead("A\nB\n"), ElementsAre("A", "B", "B"));
}

TEST(FicheroReading, LastLineIsHandedOutOnceWithoutALineEnd) {
  EXPECT_THAT(linesRead("A\nB"), ElementsAre("A", "B"));
}

TEST(FicheroReading, OneLineAloneIsRepeatedAsWell) {
  EXPECT_THAT(linesRead("A\n"), ElementsAre("A", "A"));
  EXPECT_THAT(linesRead("A"), ElementsAre("A"));
}

TEST(FicheroReading, AnEmptyLastLineIsRepeated) {
  EXPECT_THAT(linesRead("\n"), ElementsAre("", ""));
  EXPECT_THAT(linesRead("A\n\n"), ElementsAre("A", "", ""));
}

TEST(FicheroReading, LosesCrLfAsItLosesLf) {
  EXPECT_THAT(linesRead("A\r\nB\r\n"), ElementsAre("A", "B", "B"));
  EXPECT_THAT(linesRead("\r\n"), ElementsAre("", ""));
}

TEST(FicheroReading, KeepsACarriageReturnThatIsNotPartOfALineEnd) {
  EXPECT_THAT(linesRead("A\rB\nC\r"), ElementsAre("A\rB", "C\r"));
  EXPECT_THAT(linesRead("A\r\r\nB"), ElementsAre("A\r", "B"));
}

TEST(FicheroReading, KeepsBlanksTabsAndAccentsOfALine) {
  EXPECT_THAT(linesRead("  a \t \xF1\xC3\xB1 \n"),
              ElementsAre("  a \t \xF1\xC3\xB1 ", "  a \t \xF1\xC3\xB1 "));
}

TEST(FicheroReading, TheEndOfTheLinesLeavesTheCallersLine) {
  const TemporaryFolder folder;
  fichero file(folder.write("casa.bdl", "A"), "lectura");
  std::string_view line;
  ASSERT_TRUE(file.ReadLine(line));
  line = "otra";
  EXPECT_FALSE(file.ReadLine(line));
  EXPECT_FALSE(file.ReadLine(line));
  EXPECT_EQ("otra", line);
}

TEST(FicheroReading, ALineLivesAsLongAsTheFile) {
  const TemporaryFolder folder;
  fichero file(folder.write("casa.bdl", "primera\nsegunda"), "lectura");
  std::string_view first;
  std::string_view second;
  ASSERT_TRUE(file.ReadLine(first));
  ASSERT_TRUE(file.ReadLine(second));
  EXPECT_EQ("primera", first);
}

TEST(FicheroReading, ReadsTheFileAtConstruction) {
  const TemporaryFolder folder;
  fichero file(folder.write("casa.bdl", "antes"), "lectura");
  folder.write("casa.bdl", "despu\xE9s");
  EXPECT_THAT(allLines(file), ElementsAre("antes"));
}

TEST(FicheroReading, OneReadTakesAtMost19999Bytes) {
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

TEST(FicheroReading, OneReadTakesCrLfAsTheOneLineEndThatItIs) {
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

TEST(FicheroReading, OnlyAReadThatMeetsTheEndIsNotFollowedByTheRepeat) {
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

TEST(FicheroReading, NumbersTheLinesFrom1AndTheRepeatToo) {
  const TemporaryFolder folder;
  fichero file(folder.write("casa.bdl", "A\nB\n"), "lectura");
  std::vector<long> numbers = {file.lineNumber()};
  for (std::string_view line; file.ReadLine(line);) numbers.push_back(file.lineNumber());
  EXPECT_THAT(numbers, ElementsAre(0, 1, 2, 3));
}

TEST(FicheroReading, TheRepeatIsNotCountedAsALine) {
  EXPECT_EQ(0, linesCounted(""));
  EXPECT_EQ(1, linesCounted("\n"));
  EXPECT_EQ(1, linesCounted("A"));
  EXPECT_EQ(2, linesCounted("A\nB"));
  EXPECT_EQ(2, linesCounted("A\r\nB\r\n"));
  EXPECT_EQ(2, linesCounted(text(20000)));
}

TEST(FicheroReading, GivesTheBytesOfTheFileAndItsName) {
  const TemporaryFolder folder;
  const std::string path = folder.write("casa.bdl", "A\r\n  B\t\n");
  const fichero file(path, "lectura");
  EXPECT_EQ("A\r\n  B\t\n", file.bytes());
  EXPECT_EQ(path, file.name());
}

TEST(FicheroReading, LeavesTheFileAsItWas) {
  const TemporaryFolder folder;
  const std::string path = folder.write("casa.bdl", "A\nB\n");
  { const fichero file(path, "lectura"); }
  EXPECT_EQ("A\nB\n", readFile(path));
}

TEST(FicheroNormalisedText, SetsLineEndsBetweenBlanksAndCollapsesBlanks) {
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

TEST(FicheroNormalisedText, GrowsToThreeBytesForEachLineEnd) {
  const std::string grown = normalised(std::string(30000, '\n'));
  EXPECT_EQ(90000U, grown.size());
  EXPECT_EQ(" \n  \n ", grown.substr(0, 6));
}

TEST(FicheroNormalisedText, GrowsBeyondHalfAsMuchAgainForShortLines) {
  std::string bytes;
  std::string expected;
  for (int line = 0; line < 1000; ++line) {
    bytes += "a\n";
    expected += "a \n ";
  }
  EXPECT_EQ(expected, normalised(bytes));
}

TEST(FicheroNormalisedText, IsTheSameBeforeAndAfterReadingLines) {
  const TemporaryFolder folder;
  fichero file(folder.write("casa.bdl", "A\nB\n"), "lectura");
  const std::string before = file.normalisedText();
  allLines(file);
  EXPECT_EQ(before, file.normalisedText());
}

TEST(FicheroNormalisedText, HasNoLimitOfALine) { EXPECT_EQ(text(50000), normalised(text(50000))); }
