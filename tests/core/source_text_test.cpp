#include "core/source_text.h"

#include <gtest/gtest.h>

#include <latch>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "support/recording_application.h"

namespace {

SourceText textOf(std::string_view bytes) { return {"casa.tip", bytes}; }

/// That of the text, which its index gives too.
std::string placeIn(std::string_view bytes, Span span) {
  const SourceText text = textOf(bytes);
  std::string place = marked(text.placeOf(span));
  EXPECT_EQ(place, marked(LineIndex(text).placeOf(span)));
  return place;
}

std::string lineIn(std::string_view bytes, std::size_t offset) {
  const Span line = textOf(bytes).lineAround(offset);
  EXPECT_LE(line.begin, line.end);
  return std::to_string(line.begin) + ":" +
         std::string(bytes.substr(line.begin, line.end - line.begin));
}

}  // namespace

TEST(SourceText, KeepsItsNameAndACopyOfItsBytes) {
  std::string bytes = "A\r\n\tB\xF1";
  const SourceText text("obra/casa.tip", bytes);
  bytes.assign(bytes.size(), 'x');
  EXPECT_EQ("obra/casa.tip", text.name());
  EXPECT_EQ("A\r\n\tB\xF1", text.bytes());
}

TEST(SourceText, TakesOverTheStartOfABuffer) {
  auto buffer = std::make_unique<char[]>(8);
  std::string_view("casa de").copy(buffer.get(), 8);
  const char* const bytes = buffer.get();
  const SourceText text("casa.tip", std::move(buffer), 4);
  EXPECT_EQ("casa", text.bytes());
  EXPECT_EQ(bytes, text.bytes().data());
}

TEST(SourceText, ViewsOfItsBytesStayValidWhenItIsMoved) {
  SourceText text = textOf("A = 1");
  const std::string_view view = text.bytes().substr(0, 1);
  const SourceText moved = std::move(text);
  EXPECT_EQ(view.data(), moved.bytes().data());
  EXPECT_EQ("A", view);
}

TEST(SourceText, KnowsItsLinesWhenItIsMoved) {
  SourceText asked("casa.tip", "A\nB\nC");
  ASSERT_EQ(2, asked.placeOf({2, 3}).line);
  SourceText moved(std::move(asked));
  EXPECT_EQ(3, moved.placeOf({4, 5}).line);
  SourceText other("otra.tip", "\n\n\n\n");
  ASSERT_EQ(5, other.placeOf({4, 4}).line);
  other = std::move(moved);
  EXPECT_EQ(3, other.placeOf({4, 5}).line);
}

TEST(PlaceOf, CountsLinesAndColumnsFrom1InBytes) {
  const Place place = textOf("\xD1\n A = 72\n").placeOf({6, 8});
  EXPECT_EQ("casa.tip", place.file);
  EXPECT_EQ(2, place.line);
  EXPECT_EQ(5, place.column);
  EXPECT_EQ(2U, place.length);
  EXPECT_EQ(" A = 72", place.text);
}

TEST(PlaceOf, IsTheSpanInItsLine) {
  const struct {
    const char* why;
    const char* bytes;
    Span span;
    const char* place;
  } cases[] = {
      {"the first column", "AB\nC", {0, 1}, "1: [A]B"},
      {"the first column of a later line", "AB\nC", {3, 4}, "2: [C]"},
      {"a tab is one column", "\tA\tB", {3, 4}, "1: \tA\t[B]"},
      {"behind an accent", "\xD1 B", {2, 3}, "1: Ñ [B]"},
      {"a whole line", "AB\nCD\n", {3, 5}, "2: [CD]"},
      {"a point", "AB", {1, 1}, "1: A[]B"},
      {"an empty text", "", {0, 0}, "1: []"},
      {"an empty line", "A\n\nB", {2, 2}, "2: []"},
      {"on the line end", "AB\nC", {2, 2}, "1: AB[]"},
      {"the line end itself has no length", "AB\nC", {2, 3}, "1: AB[]"},
      {"on CR LF", "AB\r\nC", {2, 4}, "1: AB[]"},
      {"on the LF of CR LF", "AB\r\nC", {3, 4}, "1: AB[]"},
      {"from the last byte over the line end", "AB\r\nC", {1, 5}, "1: A[B]"},
      {"the end of the text", "AB", {2, 2}, "1: AB[]"},
      {"behind the last byte", "AB", {9, 12}, "1: AB[]"},
      {"behind the last byte, a final line end", "AB\n", {9, 12}, "2: []"},
      {"the end behind a final line end", "AB\n", {3, 3}, "2: []"},
      {"an end behind the last byte", "AB", {1, 99}, "1: A[B]"},
      {"a line that CR LF ends", "AB\r\nCD\r\n", {4, 6}, "2: [CD]"},
      {"a lone CR is a character", "A\rB\nC", {2, 3}, "1: A\r[B]"},
      {"a lone CR itself", "A\rB", {1, 2}, "1: A[\r]B"},
      {"a lone CR at the text's end", "A\r", {1, 2}, "1: A[\r]"},
      {"the first of two CR before a LF", "A\r\r\nB", {1, 2}, "1: A[\r]"},
      {"over several lines", "A = (1,\n 2,\n 3) B", {4, 15}, "1: A = [(1,]"},
      {"over several lines, CR LF", "A = (1,\r\n 2)", {4, 12}, "1: A = [(1,]"},
      {"an end before its begin", "ABC", {2, 1}, "1: AB[]C"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(std::string("casa.tip:") + c.place, placeIn(c.bytes, c.span));
  }
}

TEST(LineAround, LeavesTheLineEndOut) {
  const struct {
    const char* why;
    const char* bytes;
    std::size_t offset;
    const char* line;  // where it begins, and the line
  } cases[] = {
      {"an empty text", "", 0, "0:"},
      {"behind an empty text", "", 9, "0:"},
      {"the first byte", "AB\nCD", 0, "0:AB"},
      {"on the line end", "AB\nCD", 2, "0:AB"},
      {"right behind it", "AB\nCD", 3, "3:CD"},
      {"the end of the text", "AB\nCD", 5, "3:CD"},
      {"behind the end", "AB\nCD", 99, "3:CD"},
      {"the end behind a final line end", "AB\n", 3, "3:"},
      {"an empty line", "A\n\nB", 2, "2:"},
      {"an empty line at the start", "\nA", 0, "0:"},
      {"on the CR of CR LF", "AB\r\nCD", 2, "0:AB"},
      {"on the LF of CR LF", "AB\r\nCD", 3, "0:AB"},
      {"an empty line that CR LF ends", "A\r\n\r\nB", 3, "3:"},
      {"on its LF", "A\r\n\r\nB", 4, "3:"},
      {"a lone CR ends no line", "A\rB\nC", 2, "0:A\rB"},
      {"a lone CR at the end", "A\r", 0, "0:A\r"},
      {"only the CR before the LF goes", "A\r\r\n", 0, "0:A\r"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.line, lineIn(c.bytes, c.offset));
  }
}

TEST(LastLine, IsTheOneThatAReaderHandsOutLast) {
  const struct {
    const char* why;
    const char* bytes;
    const char* place;
  } cases[] = {
      {"an empty text", "", "1: []"},
      {"one line", "AB", "1: [AB]"},
      {"behind a final line end there is none", "A\nBC\n", "2: [BC]"},
      {"behind CR LF neither", "A\r\nBC\r\n", "2: [BC]"},
      {"no final line end", "A\nBC", "2: [BC]"},
      {"an empty line alone", "\n", "1: []"},
      {"an empty last line", "A\n\n", "2: []"},
      {"an empty last line, CR LF", "A\r\n\r\n", "2: []"},
      {"a lone CR", "A\r", "1: [A\r]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(std::string("casa.tip:") + c.place, marked(textOf(c.bytes).lastLine()));
  }
}

// Whatever is asked, the answer lies in the text.
TEST(PlaceOf, IsInTheTextForAnySpanOfAnyText) {
  constexpr char kBytes[] = {'A', ' ', '\t', '\r', '\n', '\n'};
  std::mt19937 random(20240812);
  for (int round = 0; round < 500; ++round) {
    std::string bytes;
    for (std::size_t left = random() % 12; left > 0; --left) {
      bytes += kBytes[random() % std::size(kBytes)];
    }
    SCOPED_TRACE(testing::PrintToString(bytes));
    const SourceText text = textOf(bytes);
    for (std::size_t begin = 0; begin < bytes.size() + 2; ++begin) {
      for (std::size_t end = begin; end < bytes.size() + 3; ++end) {
        const Place place = text.placeOf({begin, end});
        const auto column = static_cast<std::size_t>(place.column - 1);
        ASSERT_EQ(std::string::npos, place.text.find('\n'));
        ASSERT_LE(column, place.text.size());
        ASSERT_LE(column + place.length, place.text.size());
        if (place.length > 0) {  // a point may have been brought back to the line's end
          ASSERT_EQ(bytes.substr(begin, place.length), place.text.substr(column, place.length));
        }
      }
    }
  }
}

// A template's text is shared by many runs, and more than one may end in a fault of it.
TEST(SourceText, ThreadsAskItForPlacesAtTheSameTime) {
  constexpr std::size_t kThreads = 4;
  constexpr std::string_view kLine = "A = 1\n";
  std::string bytes;
  std::vector<long> expected;
  for (long number = 1; number <= 200; ++number) {
    bytes += kLine;
    expected.push_back(number);
  }
  for (int round = 0; round < 50; ++round) {
    const SourceText text = textOf(bytes);
    std::latch ready(kThreads);
    std::vector<std::vector<long>> lines(kThreads);
    std::vector<std::thread> threads;
    for (std::vector<long>& mine : lines) {
      threads.emplace_back([&] {
        ready.arrive_and_wait();
        for (std::size_t at = 4; at < bytes.size(); at += kLine.size()) {
          mine.push_back(text.placeOf({at, at + 1}).line);
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
    for (const std::vector<long>& each : lines) ASSERT_EQ(expected, each);
  }
}
