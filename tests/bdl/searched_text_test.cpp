#include "bdl/searched_text.h"

#include <gtest/gtest.h>

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

TEST(SearchedText, FindsNothingBehindItsEnd) {
  SearchedText text("ab");
  EXPECT_EQ(text.find("", 2), 2U);
  EXPECT_EQ(text.find("", 3), std::string_view::npos);
  EXPECT_EQ(text.find("b", 3), std::string_view::npos);
  EXPECT_EQ(SearchedText("").find("a", 0), std::string_view::npos);
}

}  // namespace
