#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "core/fichero.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"

// Lines handed on from an input to an output, which takes their bytes from there at the end.

namespace {

/// What an output holds that every line of `input` was copied to, `own` written behind the first
/// `before` of them.
std::string copyOf(std::string_view input, long before = -1, std::string_view own = "") {
  const TemporaryFolder folder;
  fichero source(folder.write("casa.bdl", input), "lectura");
  {
    fichero output(folder / "salida.bdl", "escritura");
    for (std::string_view line; source.ReadLine(line);) {
      EXPECT_TRUE(output.CopyLine(source));
      if (source.lineNumber() == before) output.WriteLine(own);
    }
  }
  return folder.read("salida.bdl");
}

}  // namespace

TEST(FicheroCopying, EachLineGoesThroughAsItWasHandedOut) {
  EXPECT_EQ("a\n\n  b \nc\n", copyOf("a\n\n  b \nc"));
}

TEST(FicheroCopying, TheRepeatedLastLineIsCopiedTwice) {
  EXPECT_EQ("a\nb\nb\n", copyOf("a\nb\n"));
  EXPECT_EQ("\n\n", copyOf("\n"));
  EXPECT_EQ("\n", copyOf(""));
}

TEST(FicheroCopying, ACarriageReturnBeforeTheLineFeedIsLost) {
  EXPECT_EQ("a\nb\n\nc\rd\ne\r\n", copyOf("a\r\nb\n\r\nc\rd\r\ne\r"));
}

TEST(FicheroCopying, PiecesOfALongLineBecomeLines) {
  const std::string piece(fichero::kLongestRead, 'x');
  EXPECT_EQ(piece + "\nyz\nw\n", copyOf(piece + "yz\nw"));
  EXPECT_EQ(piece + "\n\nw\n", copyOf(piece + "\nw"));
  EXPECT_EQ("x" + piece.substr(2) + "\nw\n", copyOf("x" + piece.substr(2) + "\r\nw"));
}

TEST(FicheroCopying, OwnLinesStandWhereTheyWereWritten) {
  EXPECT_EQ("a\nown\nb\nc\n", copyOf("a\nb\nc", 1, "own"));
  EXPECT_EQ("a\nb\nc\nown\n", copyOf("a\nb\nc", 3, "own"));
  EXPECT_EQ("a\n\nb\nc\n", copyOf("a\nb\nc", 1, ""));
}

TEST(FicheroCopying, LinesThatAreNotCopiedAreLeftOut) {
  const TemporaryFolder folder;
  fichero source(folder.write("casa.bdl", "a\nb\nc\nd"), "lectura");
  {
    fichero output(folder / "salida.bdl", "escritura");
    for (std::string_view line; source.ReadLine(line);) {
      if (line != "b") output.CopyLine(source);
    }
  }
  EXPECT_EQ("a\nc\nd\n", folder.read("salida.bdl"));
}

TEST(FicheroCopying, TheSameLineMayBeCopiedAgain) {
  const TemporaryFolder folder;
  fichero source(folder.write("casa.bdl", "a\nb\n"), "lectura");
  std::string_view line;
  source.ReadLine(line);
  {
    fichero output(folder / "salida.bdl", "escritura");
    output.CopyLine(source);
    output.CopyLine(source);
  }
  EXPECT_EQ("a\na\n", folder.read("salida.bdl"));
}

TEST(FicheroCopying, LinesOfTwoFilesKeepTheirOrder) {
  const TemporaryFolder folder;
  fichero one(folder.write("uno", "a\nb\nc"), "lectura");
  fichero two(folder.write("dos", "1\n2\n3"), "lectura");
  {
    fichero output(folder / "salida.bdl", "escritura");
    for (std::string_view line; one.ReadLine(line) && two.ReadLine(line);) {
      output.CopyLine(one);
      output.CopyLine(two);
    }
  }
  EXPECT_EQ("a\n1\nb\n2\nc\n3\n", folder.read("salida.bdl"));
}

TEST(FicheroCopying, TakesFromTheSameCapacityAsWriting) {
  const TemporaryFolder folder;
  fichero source(folder.write("casa.bdl", "a\nb"), "lectura");
  std::string_view line;
  source.ReadLine(line);
  {
    fichero output(folder / "salida.bdl", "escritura");
    for (int i = 1; i < fichero::kCapacity; ++i) output.WriteLine("x");
    EXPECT_TRUE(output.CopyLine(source));
    EXPECT_FALSE(output.CopyLine(source));
    EXPECT_FALSE(output.WriteLine("x"));
  }
  EXPECT_TRUE(folder.read("salida.bdl").ends_with("x\nx\na\n"));
}

TEST(FicheroCopying, OntoTheFileItCameFrom) {
  const TemporaryFolder folder;
  const std::string path = folder.write("casa.bdl", "a\nb\nc");
  fichero source(path, "lectura");
  {
    fichero output(path, "escritura");
    output.WriteLine("own");
    for (std::string_view line; source.ReadLine(line);) output.CopyLine(source);
  }
  EXPECT_EQ("own\na\nb\nc\n", readFile(path));
}

TEST(FicheroCopying, IntoAFileForReadingEndsTheRun) {
  const TemporaryFolder folder;
  fichero source(folder.write("casa.bdl", "a\nb"), "lectura");
  fichero other(folder.write("otro.bdl", "a\nb"), "lectura");
  std::string_view line;
  source.ReadLine(line);
  EXPECT_EQ("El fichero debe ser de tipo escritura", stopMessage([&] { other.CopyLine(source); }));
}

// More than one block of output, own lines and copied ones of all lengths in turn.
TEST(FicheroCopying, ManyLinesComeOutInOrder) {
  const TemporaryFolder folder;
  std::string input;
  for (std::size_t i = 0; i < 3000; ++i) input += std::string(i % 190, 'a') + "\n";
  fichero source(folder.write("casa.bdl", input + "z"), "lectura");
  std::string expected;
  {
    fichero output(folder / "salida.bdl", "escritura");
    for (std::string_view line; source.ReadLine(line);) {
      output.CopyLine(source);
      expected.append(line).append("\n");
      if (source.lineNumber() % 7 != 0) continue;
      const std::string own(static_cast<std::size_t>(source.lineNumber() % 311), 'w');
      output.WriteLine(own);
      expected.append(own).append("\n");
    }
  }
  EXPECT_EQ(expected, folder.read("salida.bdl"));
}
