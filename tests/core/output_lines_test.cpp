#include "core/output_lines.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "core/line_reader.h"
#include "support/skip_for_lack_of.h"
#include "support/temporary_folder.h"

// Lines of an output's own, and lines handed on from an input, which stay there until somebody
// wants them.

namespace {

/// An output that every line of `input` was copied to, `own` written behind the first `before` of
/// them.
std::string copyOf(std::string_view input, long before = -1, std::string_view own = "") {
  LineReader source(input);
  OutputLines output;
  for (std::string_view line; source.ReadLine(line);) {
    EXPECT_TRUE(output.CopyLine(source));
    if (source.lineNumber() == before) output.WriteLine(own);
  }
  return output.text();
}

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using Stream = std::unique_ptr<std::FILE, CloseFile>;

/// What reaches a file.
std::string written(const OutputLines& output) {
  const TemporaryFolder folder;
  {
    const Stream file(std::fopen((folder / "salida.bdl").c_str(), "w"));
    EXPECT_TRUE(output.writeTo(file.get()));
  }
  return folder.read("salida.bdl");
}

}  // namespace

TEST(OutputLines, AreNoneAtFirst) {
  const OutputLines output;
  EXPECT_EQ(0, output.count());
  EXPECT_EQ("", output.text());
  EXPECT_EQ("", written(output));
}

TEST(OutputLines, EachLineGetsALineFeed) {
  OutputLines output;
  EXPECT_TRUE(output.WriteLine("a"));
  EXPECT_TRUE(output.WriteLine("b"));
  EXPECT_EQ("a\nb\n", output.text());
  EXPECT_EQ(2, output.count());
}

TEST(OutputLines, ALineIsPutTogetherFromItsParts) {
  OutputLines output;
  EXPECT_TRUE(output.WriteLine("  ", std::string("X"), " = ", std::string_view("1")));
  EXPECT_EQ("  X = 1\n", output.text());
  EXPECT_EQ(1, output.count());
}

TEST(OutputLines, TextGoesThroughAsItIs) {
  OutputLines output;
  output.WriteLine("  a\t\xF1\r\n\"b\" ");
  EXPECT_EQ("  a\t\xF1\r\n\"b\" \n", output.text());
}

TEST(OutputLines, AnEmptyLineIsALine) {
  OutputLines output;
  output.WriteLine("");
  EXPECT_EQ("\n", output.text());
  EXPECT_EQ(1, output.count());
}

TEST(OutputLines, ALineHasNoLongestLength) {
  OutputLines output;
  const std::string line(200000, 'x');
  output.WriteLine(line);
  EXPECT_EQ(line + "\n", output.text());
  EXPECT_EQ(line + "\n", written(output));
}

TEST(OutputLines, TheLinesBeyond100000AreLostSilently) {
  OutputLines output;
  std::string expected;
  for (int line = 1; line <= 100000; ++line) {
    const std::string text = std::to_string(line);
    ASSERT_TRUE(output.WriteLine(text));
    expected += text + "\n";
  }
  EXPECT_FALSE(output.WriteLine("100001"));
  EXPECT_FALSE(output.WriteLine("100002"));
  EXPECT_EQ(100000, output.count());
  EXPECT_EQ(expected, output.text());
}

TEST(OutputLines, ALineWithLineFeedsInsideIsOneLineOfTheCapacity) {
  OutputLines output;
  for (int line = 0; line < 99999; ++line) output.WriteLine("a\nb");
  EXPECT_TRUE(output.WriteLine("la última"));
  EXPECT_FALSE(output.WriteLine("una más"));
}

TEST(OutputLines, AnExpectationOfBytesChangesNothing) {
  OutputLines output;
  output.expectBytes(1000);
  EXPECT_EQ("", output.text());
  output.WriteLine("a");
  EXPECT_EQ("a\n", output.text());
}

TEST(CopiedLines, EachGoesThroughAsItWasHandedOut) {
  EXPECT_EQ("a\n\n  b \nc\n", copyOf("a\n\n  b \nc"));
}

TEST(CopiedLines, TheRepeatedLastLineIsCopiedTwice) {
  EXPECT_EQ("a\nb\nb\n", copyOf("a\nb\n"));
  EXPECT_EQ("\n\n", copyOf("\n"));
  EXPECT_EQ("\n", copyOf(""));
}

TEST(CopiedLines, ACarriageReturnBeforeTheLineFeedIsLost) {
  EXPECT_EQ("a\nb\n\nc\rd\ne\r\n", copyOf("a\r\nb\n\r\nc\rd\r\ne\r"));
}

TEST(CopiedLines, PiecesOfALongLineBecomeLines) {
  const std::string piece(LineReader::kLongestRead, 'x');
  EXPECT_EQ(piece + "\nyz\nw\n", copyOf(piece + "yz\nw"));
  EXPECT_EQ(piece + "\n\nw\n", copyOf(piece + "\nw"));
  EXPECT_EQ("x" + piece.substr(2) + "\nw\n", copyOf("x" + piece.substr(2) + "\r\nw"));
}

TEST(CopiedLines, OwnLinesStandWhereTheyWereWritten) {
  EXPECT_EQ("a\nown\nb\nc\n", copyOf("a\nb\nc", 1, "own"));
  EXPECT_EQ("a\nb\nc\nown\n", copyOf("a\nb\nc", 3, "own"));
  EXPECT_EQ("a\n\nb\nc\n", copyOf("a\nb\nc", 1, ""));
}

TEST(CopiedLines, ThoseThatAreNotCopiedAreLeftOut) {
  LineReader source("a\nb\nc\nd");
  OutputLines output;
  for (std::string_view line; source.ReadLine(line);) {
    if (line != "b") output.CopyLine(source);
  }
  EXPECT_EQ("a\nc\nd\n", output.text());
}

TEST(CopiedLines, TheSameLineMayBeCopiedAgain) {
  LineReader source("a\nb\n");
  std::string_view line;
  source.ReadLine(line);
  OutputLines output;
  output.CopyLine(source);
  output.CopyLine(source);
  EXPECT_EQ("a\na\n", output.text());
}

TEST(CopiedLines, OfTwoTextsKeepTheirOrder) {
  LineReader one("a\nb\nc");
  LineReader two("1\n2\n3");
  OutputLines output;
  for (std::string_view line; one.ReadLine(line) && two.ReadLine(line);) {
    output.CopyLine(one);
    output.CopyLine(two);
  }
  EXPECT_EQ("a\n1\nb\n2\nc\n3\n", output.text());
}

TEST(CopiedLines, TakeFromTheSameCapacityAsOwnOnes) {
  LineReader source("a\nb");
  std::string_view line;
  source.ReadLine(line);
  OutputLines output;
  for (int i = 1; i < OutputLines::kCapacity; ++i) output.WriteLine("x");
  EXPECT_TRUE(output.CopyLine(source));
  EXPECT_FALSE(output.CopyLine(source));
  EXPECT_FALSE(output.WriteLine("x"));
  EXPECT_EQ(OutputLines::kCapacity, output.count());
  EXPECT_TRUE(output.text().ends_with("x\nx\na\n"));
}

// More than one block of a file, own lines and copied ones of all lengths in turn.
TEST(CopiedLines, ManyComeOutInOrder) {
  std::string input;
  for (std::size_t i = 0; i < 3000; ++i) input += std::string(i % 190, 'a') + "\n";
  input += "z";
  LineReader source(input);
  OutputLines output;
  std::string expected;
  for (std::string_view line; source.ReadLine(line);) {
    output.CopyLine(source);
    expected.append(line).append("\n");
    if (source.lineNumber() % 7 != 0) continue;
    const std::string own(static_cast<std::size_t>(source.lineNumber() % 311), 'w');
    output.WriteLine(own);
    expected.append(own).append("\n");
  }
  EXPECT_EQ(expected, output.text());
  EXPECT_EQ(expected, written(output));
}

TEST(OutputLines, ReachAFileWholeAroundTheSizeOfABlock) {
  for (const std::size_t size : {65534U, 65535U, 65536U, 131071U}) {
    OutputLines output;
    output.WriteLine(std::string(size, 'x'));
    EXPECT_EQ(std::string(size, 'x') + "\n", written(output)) << size;
  }
}

TEST(OutputLines, MayBeWantedTwice) {
  OutputLines output;
  output.WriteLine("a");
  EXPECT_EQ(written(output), written(output));
  output.WriteLine("b");
  EXPECT_EQ("a\nb\n", written(output));
}

TEST(OutputLines, AFileThatDoesNotTakeThemIsSaid) {
  if (!std::filesystem::exists("/dev/full")) SKIP_FOR_LACK_OF("/dev/full");
  const Stream full(std::fopen("/dev/full", "w"));
  std::setvbuf(full.get(), nullptr, _IONBF, 0);
  OutputLines output;
  EXPECT_TRUE(output.writeTo(full.get())) << "nothing to take";
  output.WriteLine("a");
  EXPECT_FALSE(output.writeTo(full.get()));
}

TEST(OutputLines, SeveralLinesAtOnceAreThoseLines) {
  const std::string input = "a\nb\n\nc\n";
  OutputLines output;
  EXPECT_TRUE(output.CopyLines(std::string_view(input).substr(0, 4), 2));
  EXPECT_TRUE(output.CopyLines(std::string_view(input).substr(4), 2));
  EXPECT_TRUE(output.CopyLines({}, 0));
  output.WriteLine("d");
  EXPECT_EQ(5, output.count());
  EXPECT_EQ("a\nb\n\nc\nd\n", output.text());
}

TEST(OutputLines, OfSeveralLinesAtOnceThoseThatFitAreKept) {
  const std::string input = "a\nb\nc\n";
  OutputLines output;
  for (int i = 0; i < OutputLines::kCapacity - 2; ++i) output.WriteLine("");
  EXPECT_FALSE(output.CopyLines(input, 3));
  EXPECT_TRUE(output.text().ends_with("\n\na\nb\n"));
  EXPECT_EQ(OutputLines::kCapacity, output.count());
  EXPECT_FALSE(output.CopyLines(input, 3));
  EXPECT_TRUE(output.text().ends_with("\n\na\nb\n"));
}

TEST(OutputLines, AreHandedOverByWhereTheyComeFrom) {
  const std::string input = "a\nb\n";
  OutputLines output;
  output.WriteLine("1");
  output.CopyLines(input, 2);
  output.WriteLine("2");
  std::string pieces;
  EXPECT_TRUE(output.handOver([&](std::string_view lines, OutputLines::Origin origin) {
    pieces
        .append(origin == OutputLines::Origin::kCopied   ? "[copied] "
                : origin == OutputLines::Origin::kOwnEnd ? "[end] "
                                                         : "[own] ")
        .append(lines);
    return true;
  }));
  EXPECT_EQ("[own] 1\n[copied] a\nb\n[end] 2\n", pieces);
}

TEST(OutputLines, WhatWasWrittenBetweenTwoMarksIsWrittenAgain) {
  const std::string input = "a\nb\n";
  OutputLines output;
  output.WriteLine("1");
  const OutputLines::Mark from = output.mark();
  output.WriteLine("2");
  output.WriteLine("");
  const OutputLines::Mark to = output.mark();
  output.CopyLines(input, 2);
  EXPECT_TRUE(output.WriteAgain(from, to));
  output.CopyLines(std::string_view(input).substr(0, 2), 1);
  EXPECT_TRUE(output.WriteAgain(from, to));
  EXPECT_TRUE(output.WriteAgain(from, from));
  EXPECT_EQ("1\n2\n\na\nb\n2\n\na\n2\n\n", output.text());
  EXPECT_EQ(10, output.count());
}

TEST(OutputLines, LinesThatDoNotAllFitAreNotWrittenAgain) {
  OutputLines output;
  for (int i = 0; i < OutputLines::kCapacity - 4; ++i) output.WriteLine("");
  const OutputLines::Mark from = output.mark();
  output.WriteLine("a\nb");  // one line of the capacity
  output.WriteLine("c");
  const OutputLines::Mark to = output.mark();
  EXPECT_TRUE(output.WriteAgain(from, to));
  EXPECT_FALSE(output.WriteAgain(from, to));
  EXPECT_TRUE(output.text().ends_with("\n\na\nb\nc\na\nb\nc\n"));
  EXPECT_EQ(OutputLines::kCapacity, output.count());
}

TEST(OutputLines, ThatAreClearedBeginAnew) {
  const std::string input = "a\nb\n";
  OutputLines output;
  output.WriteLine("1");
  output.CopyLines(std::string_view(input).substr(0, 2), 1);
  output.clear();
  EXPECT_EQ(0, output.count());
  EXPECT_EQ("", output.text());
  output.CopyLines(std::string_view(input).substr(2), 1);
  output.WriteLine("2");
  std::string text = "of another time";
  output.copyTo(text);
  EXPECT_EQ("b\n2\n", text);
  EXPECT_EQ(2, output.count());
}
