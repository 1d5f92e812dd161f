#include "app/command_line.h"

#include <gtest/gtest.h>

#include "support/recording_application.h"

namespace {

std::vector<std::string> items(std::string_view commandLine) {
  const RunPaths paths = splitCommandLine(commandLine);
  return {paths.dataFile, paths.typologyFile, paths.outputFile, paths.markerFile};
}

using Items = std::vector<std::string>;
const Items kFour = {"a.bdl", "b.tip", "out.inp", "fin.txt"};

}  // namespace

TEST(CommandLine, WithAndWithoutAProgramInFrontOfTheHashGivesTheSameItems) {
  EXPECT_EQ(kFour, items("prog#a.bdl,b.tip,out.inp,fin.txt"));
  EXPECT_EQ(kFour, items("a.bdl, b.tip, out.inp, fin.txt"));
}

TEST(CommandLine, EverythingUpToTheLastHashIsIgnored) {
  EXPECT_EQ((Items{"a", "b", "c", "d"}), items("x#y#a,b,c,d"));
  EXPECT_EQ((Items{"c", "d", "", ""}), items("a,b#c,d"));
}

TEST(CommandLine, TrailingBlanksOfAnItemAreKept) {
  EXPECT_EQ((Items{"a.bdl ", "b.tip", "", ""}), items("a.bdl ,b.tip"));
}

TEST(CommandLine, OnlyBlanksAtTheStartOfAnItemAreSkipped) {
  EXPECT_EQ((Items{"un nombre", "\tb", "", ""}), items("   un nombre,\tb"));
}

TEST(CommandLine, QuotesDoNotKeepACommaInItsItem) {
  EXPECT_EQ((Items{"\"a", "b.bdl\"", "c", ""}), items("\"a,b.bdl\",c"));
}

TEST(CommandLine, MissingItemsAreEmpty) {
  EXPECT_EQ((Items{"", "", "", ""}), items(""));
  EXPECT_EQ((Items{"a", "", "c", ""}), items("#a,,c"));
}

TEST(CommandLine, ItemsBehindTheFourthAreIgnored) {
  EXPECT_EQ((Items{"a", "b", "c", "d"}), items("a,b,c,d,e,f"));
}

TEST(CommandLine, TwoHundredAndFiftyItemsAreTheLimit) {
  EXPECT_EQ((Items{"", "", "", ""}), items(std::string(249, ',')));
  EXPECT_EQ("La línea de órdenes tiene más de 250 elementos",
            stopMessage([] { splitCommandLine(std::string(250, ',')); }));
}

TEST(CommandLine, AnItemHasAtMost249Bytes) {
  const std::string longest(249, 'x');
  EXPECT_EQ(longest, items("   " + longest + ",b")[0]);
  EXPECT_EQ("El elemento 2 de la línea de órdenes es demasiado largo: " + longest + "x",
            stopMessage([&] { splitCommandLine("a," + longest + "x"); }));
}
