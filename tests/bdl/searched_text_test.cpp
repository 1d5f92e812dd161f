#include "bdl/searched_text.h"

#include <gtest/gtest.h>

#include <iterator>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

TEST(SearchedText, FindsWhatAPlainSearchFinds) {
  // Matches near and far, across the end of what counts as near, and at the very end.
  for (const std::size_t far : {3000U, 6000U}) {  // a small text, and a large one
    std::string bytes = "ab" + std::string(1021, '-') + "ab" + std::string(far, '-') + "ab";
    const std::string_view plain = bytes;
    const std::vector<std::string_view> patterns = {"ab", "-ab", "b", "abc", ""};
    SearchedText text(bytes);
    for (std::size_t from = 0; from <= plain.size() + 2; ++from) {
      for (const std::string_view pattern : patterns) {
        ASSERT_EQ(text.find(pattern, from), plain.find(pattern, from))
            << '"' << pattern << "\" from " << from;
      }
    }
  }
}

// Whatever was sought before, and in whatever order.
TEST(SearchedText, FindsTheSameWhicheverSearchesCameBefore) {
  constexpr std::string_view kPatterns[] = {"ab", "aab", "b", "zz"};
  std::mt19937 random(7);
  for (int round = 0; round < 200; ++round) {
    std::string bytes(12'000, '-');
    for (std::size_t left = random() % 8; left > 0; --left) {
      bytes.replace(random() % (bytes.size() - 4), 3, "aab");
    }
    SearchedText text(bytes);
    for (int search = 0; search < 50; ++search) {
      const std::string_view pattern = kPatterns[random() % std::size(kPatterns)];
      const std::size_t from = random() % bytes.size();
      ASSERT_EQ(bytes.find(pattern, from), text.find(pattern, from))
          << "round " << round << ": \"" << pattern << "\" from " << from;
    }
  }
}

TEST(SearchedText, ReadsANumberAsItIsHoweverOften) {
  for (const std::size_t far : {3000U, 6000U}) {  // a small text, and a large one
    SearchedText text(std::string(far, '-') + " 7.5 x");
    for (int time = 0; time < 2; ++time) {
      EXPECT_EQ(7.5F, text.real(far));
      EXPECT_EQ(7.5F, text.real(far + 1));
      EXPECT_EQ(5.0F, text.real(far + 3));
      EXPECT_EQ(std::nullopt, text.real(far + 4));
      EXPECT_EQ(std::nullopt, text.real(far + 6));
    }
  }
}

TEST(SearchedText, FindsNothingBehindItsEnd) {
  SearchedText text("ab");
  EXPECT_EQ(text.find("", 2), 2U);
  EXPECT_EQ(text.find("", 3), std::string_view::npos);
  EXPECT_EQ(text.find("b", 3), std::string_view::npos);
  EXPECT_EQ(SearchedText("").find("a", 0), std::string_view::npos);
}

}  // namespace
