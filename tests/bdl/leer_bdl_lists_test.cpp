#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "bdl/leer_bdl.h"
#include "bdl/loaded_text.h"
#include "support/recording_application.h"

using testing::ElementsAre;

namespace {

/// Four reals, -1 before the reading, and the number of values that the reader reports.
struct Reals {
  int number = 0;
  std::array<float, 4> values = {-1, -1, -1, -1};
  bool operator==(const Reals&) const = default;
};

void PrintTo(const Reals& reals, std::ostream* out) {
  *out << reals.number << ":" << testing::PrintToString(reals.values);
}

Reals realsIn(std::string_view text) {
  Reals read;
  read.number = LoadedText(text).model.leerListaReales("KEY", read.values);
  return read;
}

struct Words {
  int number = 0;
  std::vector<std::string> words = {"antes"};
};

Words wordsIn(std::string_view text) {
  Words read;
  read.number = LoadedText(text).model.leerListaCadenas("KEY", read.words, 100, 100);
  return read;
}

void expectFault(std::string_view fault, std::string_view text) {
  LoadedText file(text);
  std::vector<std::string> words;
  EXPECT_EQ(file.message(fault),
            stopMessage([&] { file.model.leerListaCadenas("KEY", words, 100, 100); }));
}

std::string listOf(int number) {
  std::string list = "\nKEY = ( \"0\"";
  for (int i = 1; i < number; ++i) list += ", \"" + std::to_string(i) + '"';
  return list + " )";
}

}  // namespace

TEST(LeerListaReales, HasOneValueMoreThanCommas) {
  const struct {
    const char* why;
    const char* text;
    Reals read;
  } cases[] = {
      {"three values", "\nKEY = ( 1, 2, 3 )", {3, {1, 2, 3, -1}}},
      {"four values", "\nKEY = ( 1.5, -2, 3e1, .5 )", {4, {1.5F, -2, 30, 0.5F}}},
      {"one value", "\nKEY = ( 7 )", {1, {7, -1, -1, -1}}},
      {"no blanks", "\nKEY=(1,2)", {2, {1, 2, -1, -1}}},
      {"tabs and line ends", "\nKEY\t=\t(\t1,\n 2\n)", {2, {1, 2, -1, -1}}},
      {"CR LF", "\r\nKEY = ( 1,\r\n 2 )\r\n", {2, {1, 2, -1, -1}}},
      {"the bracket on the next line", "\nKEY =\n( 1, 2 )", {2, {1, 2, -1, -1}}},
      {"an empty list is one value that does not convert", "\nKEY = ( )", {1, {-1, -1, -1, -1}}},
      {"a value that does not convert stays as it was", "\nKEY = ( 1, x, 3 )", {3, {1, -1, 3, -1}}},
      {"a missing value stays as it was", "\nKEY = ( , 2 )", {2, {-1, 2, -1, -1}}},
      {"a comma at the end", "\nKEY = ( 1, 2, )", {3, {1, 2, -1, -1}}},
      {"values without commas are one", "\nKEY = ( 1 2 3 )", {1, {1, -1, -1, -1}}},
      {"commas behind the list do not count", "\nKEY = ( 1 ) A = ( 2, 3 )", {1, {1, -1, -1, -1}}},
      {"without any ) there is one value", "\nKEY = ( 1, 2, 3", {1, {1, -1, -1, -1}}},
      {"the next ( counts, wherever it is", "\nKEY = 5 A = ( 1, 2 )", {2, {1, 2, -1, -1}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.read, realsIn(c.text));
  }
}

TEST(LeerListaReales, ABracketRightBehindTheOpeningOneDoesNotCloseTheList) {
  EXPECT_EQ((Reals{2, {-1, 2, -1, -1}}), realsIn("\nKEY = () A = ( 1, 2 )"));
  EXPECT_EQ((Reals{1, {-1, -1, -1, -1}}), realsIn("\nKEY = ()"));
}

TEST(LeerListaReales, AMissingKeywordIsMinus1AndLeavesTheDestination) {
  EXPECT_EQ((Reals{-1, {-1, -1, -1, -1}}), realsIn("\nA = ( 1, 2 )"));
  EXPECT_EQ((Reals{-1, {-1, -1, -1, -1}}), realsIn("x = 1 KEY ( 1, 2 )"));
}

TEST(LeerListaReales, MoreValuesThanThereIsRoomForEndTheRun) {
  LoadedText file("\nKEY = ( 1, 2, 3, 4, 5 )");
  Reals read;
  EXPECT_EQ(file.message("KEY: la lista debe tener como máximo 4 valores"),
            stopMessage([&] { file.model.leerListaReales("KEY", read.values); }));
}

TEST(LeerListaReales, WithoutABracketTheRunEnds) {
  LoadedText file("\nKEY = 1, 2");
  Reals read;
  EXPECT_EQ(file.message("KEY: falta la lista de valores entre paréntesis"),
            stopMessage([&] { file.model.leerListaReales("KEY", read.values); }));
}

TEST(LeerListaCadenas, KeepsTheQuotesOfEachString) {
  const struct {
    const char* why;
    const char* text;
    std::vector<std::string> words;
  } cases[] = {
      {"two strings", "\nKEY = ( \"a\", \"b\" )", {"\"a\"", "\"b\""}},
      {"one string", "\nKEY = ( \"a\" )", {"\"a\""}},
      {"no blanks", "\nKEY=(\"a\",\"b\")", {"\"a\"", "\"b\""}},
      {"an empty string", "\nKEY = ( \"\" )", {"\"\""}},
      {"blanks and commas inside", "\nKEY = ( \"a, b\" )", {"\"a, b\""}},
      {"no commas", "\nKEY = ( \"a\" \"b\" )", {"\"a\"", "\"b\""}},
      {"over line ends", "\nKEY = (\n\"a\",\n\"b\" )\n", {"\"a\"", "\"b\""}},
      {"words without quotes are passed over", "\nKEY = ( x, \"a\", y \"b\" )", {"\"a\"", "\"b\""}},
      {"a list further on does not count", "\nKEY = ( \"a\" ) A = ( \"b\" )", {"\"a\""}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const Words read = wordsIn(c.text);
    EXPECT_EQ(c.words, read.words);
    EXPECT_EQ(static_cast<int>(c.words.size()), read.number);
  }
}

TEST(LeerListaCadenas, OneBlankBeforeTheClosingBracketEndsTheList) {
  EXPECT_THAT(wordsIn("\nKEY = ( \"a\"\t) A = \"b\" )").words, ElementsAre("\"a\""));
}

TEST(LeerListaCadenas, WithTwoBlanksBeforeTheClosingBracketTheReadingRunsOn) {
  EXPECT_THAT(wordsIn("\nKEY = ( \"a\" \t) A = \"b\" )").words, ElementsAre("\"a\"", "\"b\""));
}

TEST(LeerListaCadenas, TheEndOfALineBeforeTheClosingBracketIsMoreThanOneBlank) {
  EXPECT_THAT(wordsIn("\nKEY = ( \"a\"\n) A = \"b\" )").words, ElementsAre("\"a\"", "\"b\""));
}

TEST(LeerListaCadenas, AnyCharacterBeforeTheClosingBracketCountsAsOneBlank) {
  EXPECT_THAT(wordsIn("\nKEY = ( \"a\",) A = \"b\" )").words, ElementsAre("\"a\""));
}

TEST(LeerListaCadenas, WithoutAnyClosingBracketTheFirstStringIsTheList) {
  EXPECT_THAT(wordsIn("\nKEY = ( \"a\", \"b\"").words, ElementsAre("\"a\""));
}

TEST(LeerListaCadenas, TheEmptyListTakesTheNextQuotes) {
  EXPECT_THAT(wordsIn("\nKEY = () A = \"b\" )").words, ElementsAre("\"b\""));
}

TEST(LeerListaCadenas, AMissingKeywordIsMinus1AndLeavesTheDestination) {
  const Words read = wordsIn("\nA = ( \"a\" )");
  EXPECT_EQ(-1, read.number);
  EXPECT_THAT(read.words, ElementsAre("antes"));
}

TEST(LeerListaCadenas, HoldsUpToItsMaximum) {
  const Words read = wordsIn(listOf(100));
  EXPECT_EQ(100, read.number);
  EXPECT_EQ("\"99\"", read.words.back());
}

TEST(LeerListaCadenas, OneStringMoreThanItsMaximumEndsTheRun) {
  expectFault("KEY: la lista debe tener como máximo 100 valores", listOf(101));
}

TEST(LeerListaCadenas, AStringHasLessBytesThanItsCapacityWithItsQuotes) {
  const std::string longest = '"' + std::string(97, 'x') + '"';
  EXPECT_THAT(wordsIn("\nKEY = ( " + longest + " )").words, ElementsAre(longest));
  expectFault("KEY: un valor de la lista es demasiado largo",
              "\nKEY = ( \"" + std::string(98, 'x') + "\" )");
}

TEST(LeerListaCadenas, MissingQuotesEndTheRun) {
  const char* const texts[] = {"\nKEY = ( a, b )", "\nKEY = ( \"a )", "\nKEY = ( \"a\" x y )"};
  for (const char* text : texts) {
    SCOPED_TRACE(text);
    expectFault("KEY: faltan comillas en la lista de valores", text);
  }
}

TEST(LeerListaCadenas, WithoutABracketTheRunEnds) {
  expectFault("KEY: falta la lista de valores entre paréntesis", "\nKEY = \"a\"");
}
