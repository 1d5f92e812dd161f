#include "check/suggestion.h"

#include <gtest/gtest.h>

#include <string>

TEST(EditDistance, CountsAddedRemovedChangedAndSwappedLetters) {
  const struct {
    std::string_view a, b;
    std::size_t distance;
  } cases[] = {
      {"", "", 0},         {"", "TIPO", 4},         {"TIPO", "", 4},     {"TIPO", "TIPO", 0},
      {"TIPO", "TPO", 1},  {"TIPO", "TIIPO", 1},    {"TIPO", "TAPO", 1}, {"TIPO", "ITPO", 1},
      {"TIPO", "OPIT", 3}, {"PLANTA", "PLATNA", 1}, {"AB", "BCA", 3},    {"kitten", "sitting", 3},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.distance, editDistance(c.a, c.b)) << c.a << " " << c.b;
    EXPECT_EQ(c.distance, editDistance(c.b, c.a)) << c.b << " " << c.a;
  }
}

TEST(NearestWord, IsWithinAThirdOfTheLongerWordAsGccCountsIt) {
  const struct {
    std::string_view word, candidate;
    bool near;
  } cases[] = {
      {"ABCDEF", "ABCDxy", true},        // 2 of 6
      {"ABCDEF", "ABCxyz", false},       // 3 of 6
      {"ABCDEFG", "ABCDxyz", false},     // 3 of 7, a third is 2.33: down
      {"ABCDEFG", "ABCDxy", false},      // one letter shorter: down
      {"ABCDEFGHIJ", "ABCDEFxy", true},  // two letters shorter, 4 of 10: up
      {"GIRO", "TIPO", false},           // 2 of 4
      {"AB", "Ax", true},                // 1 of 2
      {"A", "B", false},                 // one letter
      {"A", "AB", false},                // still one letter
      {"", "AB", false},
  };
  for (const auto& c : cases) {
    const std::string_view candidates[] = {c.candidate};
    EXPECT_EQ(c.near ? c.candidate : "", nearestWord(c.word, candidates)) << c.word;
  }
}

TEST(NearestWord, IsTheNearestAndTheFirstOfSeveral) {
  const std::string_view candidates[] = {"AREA-PLANTA", "AREA-PATIO", "AREA-PATIA"};
  EXPECT_EQ("AREA-PATIO", nearestWord("AREA-PATIOS", candidates));
  EXPECT_EQ("AREA-PATIO", nearestWord("AREA-PATI", candidates));
  EXPECT_EQ("", nearestWord("COLOR", candidates));
  EXPECT_EQ("", nearestWord(std::string(100000, 'A'), candidates));
  EXPECT_EQ("", nearestWord("AREA", {}));
}
