#include "generator/name_list.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

int indexIn(const std::vector<std::string_view>& names, std::string_view line) {
  LineMatch match;
  findKey(line, NameList(names), match);
  return match.index;
}

/// One name after the other, as the rule is told.
int naiveIndex(const std::vector<std::string_view>& names, std::string_view line) {
  const std::size_t equals = line.find('=');
  const bool assigned = equals != std::string_view::npos;
  const std::string_view key = trimBlanks(line.substr(0, equals));
  const std::string_view value =
      assigned ? trimBlanks(line.substr(equals + 1)) : std::string_view();
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string_view name = trimBlanks(names[i]);
    if (name == key || name == value) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace

TEST(TrimBlanks, RemovesSpacesAtBothEndsAndNothingElse) {
  const struct {
    const char* why;
    std::string_view text;
    std::string_view trimmed;
  } cases[] = {
      {"empty", "", ""},
      {"blanks only", "   ", ""},
      {"inner blanks stay", "  a  b ", "a  b"},
      {"a tab is no blank", " \ta\t ", "\ta\t"},
      {"nor is a carriage return", "a \r", "a \r"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.trimmed, trimBlanks(c.text));
  }
}

TEST(SplitAssignment, SplitsAtTheFirstEqualsSign) {
  const struct {
    const char* why;
    std::string_view line;
    std::string_view key;
    std::string_view value;
  } cases[] = {
      {"a keyword line", "   HEIGHT = 2.5  ", "HEIGHT", "2.5"},
      {"no blanks", "A=B", "A", "B"},
      {"the second sign belongs to the value", "A = B = C", "A", "B = C"},
      {"no sign: the whole line is the key", "  .. ", "..", ""},
      {"nothing before it", " = B", "", "B"},
      {"nothing behind it", "A = ", "A", ""},
      {"only the sign", "=", "", ""},
      {"an empty line", "", "", ""},
      {"tabs stay", "\tA\t=\tB", "\tA\t", "\tB"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const Assignment assignment = splitAssignment(c.line);
    EXPECT_EQ(c.key, assignment.key);
    EXPECT_EQ(c.value, assignment.value);
  }
}

TEST(NameList, MatchesTheWholeKeyOrTheWholeValue) {
  const struct {
    const char* why;
    std::vector<std::string_view> names;
    std::string_view line;
    int index;
  } cases[] = {
      {"the key", {"A", "HEIGHT"}, "  HEIGHT = 2.5", 1},
      {"the value", {"A", "FLOOR"}, "\"P01\" = FLOOR", 1},
      {"neither", {"A", "B"}, "C = D", -1},
      {"a name that is part of the key", {"HEIGHT"}, "FLOOR-HEIGHT = 2", -1},
      {"a key that is part of the name", {"FLOOR-HEIGHT"}, "HEIGHT = 2", -1},
      {"upper and lower case differ", {"Height"}, "HEIGHT = 2", -1},
      {"a tab before the key", {"HEIGHT"}, "\tHEIGHT = 2", -1},
      {"a tab behind the value", {"FLOOR"}, "P = FLOOR\t", -1},
      {"quotes belong to the name", {"\"P01\""}, "\"P01\" = FLOOR", 0},
      {"a name without its quotes", {"P01"}, "\"P01\" = FLOOR", -1},
      {"earliest name: the value's", {"FLOOR", "\"P01\""}, "\"P01\" = FLOOR", 0},
      {"earliest name: the key's", {"\"P01\"", "FLOOR"}, "\"P01\" = FLOOR", 0},
      {"the same name twice", {"B", "A", "A"}, "A = 1", 1},
      {"the same name twice, trimmed", {"B", " A", "A "}, "A = 1", 1},
      {"no names", {}, "A = B", -1},
      {"a blank name meets the empty value", {"  "}, "..", 0},
      {"a blank name meets the empty key", {""}, "= B", 0},
      {"a blank name and a full line", {""}, "A = B", -1},
      {"behind the second equals sign", {"C"}, "A = B = C", -1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.index, indexIn(c.names, c.line));
  }
}

TEST(NameList, EntryBetweenBlanksMatchesAHeaderOfItsTypeAndALineOfItsKey) {
  EXPECT_EQ(0, indexIn({" SPACE "}, "\"P01_E01\" = SPACE"));
  EXPECT_EQ(0, indexIn({" SPACE "}, "  SPACE = 3"));
  EXPECT_EQ(-1, indexIn({" SPACE "}, "\"SPACE\" = FLOOR"));
}

TEST(NameList, LineWithoutEqualsSignMatchesOnlyByItsWholeTrimmedText) {
  EXPECT_EQ(0, indexIn({".."}, "   ..  "));
  EXPECT_EQ(-1, indexIn({".."}, "END .."));
}

TEST(NameList, FindsWhatALinearSearchFinds) {
  std::mt19937 random(410);
  const std::vector<std::string> words = {"",    " ",  "A",   " A ", "B", "a",
                                          "\tA", "AB", "A B", "..",  "1"};
  const auto word = [&] { return std::string_view(words[random() % words.size()]); };
  int found = 0;
  for (int round = 0; round < 20000; ++round) {
    std::vector<std::string_view> names(random() % 6);
    for (auto& name : names) name = word();
    std::string line(word());
    for (auto signs = random() % 3; signs > 0; --signs) line.append("=").append(word());
    SCOPED_TRACE(line);
    const int expected = naiveIndex(names, line);
    found += expected >= 0 ? 1 : 0;
    ASSERT_EQ(expected, indexIn(names, line));
  }
  EXPECT_GT(found, 5000) << "too few lines that match to mean anything";
  EXPECT_LT(found, 19000) << "too few lines that do not";
}

TEST(FindKey, ReportsTheValueOfAWidthOrHeightLine) {
  const struct {
    const char* why;
    std::string_view line;
    float width;
    float height;
  } cases[] = {
      {"width", "  WIDTH = 1.25", 1.25F, 0},
      {"height", "  HEIGHT = 2.5", 0, 2.5F},
      {"another key", "  X = 4", 0, 0},
      {"as a value it reports nothing", "X = HEIGHT", 0, 0},
      {"the text behind the number is no matter", "WIDTH = 3 m", 3, 0},
      {"no number", "WIDTH = ancho", 0, 0},
      {"no value", "HEIGHT", 0, 0},
      {"negative", "HEIGHT = -2", 0, -2},
  };
  const std::vector<std::string_view> names = {"WIDTH", "HEIGHT", "X"};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    LineMatch match{.index = 7, .width = 7, .height = 7};
    ASSERT_TRUE(findKey(c.line, NameList(names), match));
    EXPECT_EQ(c.width, match.width);
    EXPECT_EQ(c.height, match.height);
  }
}

TEST(FindKey, ReportsAWidthWhateverTheLineMatchedBy) {
  const std::vector<std::string_view> names = {"2.5"};
  LineMatch match;
  ASSERT_TRUE(findKey("WIDTH = 2.5", NameList(names), match));
  EXPECT_EQ(2.5F, match.width);
}

TEST(FindKey, LeavesTheMatchAloneWhenThereIsNone) {
  const std::vector<std::string_view> names = {"A"};
  LineMatch match{.index = 7, .width = 7, .height = 7};
  EXPECT_FALSE(findKey("WIDTH = 2", NameList(names), match));
  EXPECT_EQ(7, match.index);
  EXPECT_EQ(7, match.width);
  EXPECT_EQ(7, match.height);
}
