#include "report/drawing.h"

#include <algorithm>
#include <cstdint>

namespace report {

namespace {

constexpr double kCapitals = 0.716;  // height of capitals, of the font size
constexpr double kDescender = 0.24;  // of the font size, below the baseline
constexpr std::string_view kEllipsis = "…";

/// Width of a character, of the font size: the widest of the usual sans-serif families.
double characterWidth(char32_t c) {
  constexpr std::u32string_view kNarrow = U" \u00A0.,:;'|!ijlIíìï·’";
  constexpr std::u32string_view kSlim = U"()[]/-\\ftr\"°";
  constexpr std::u32string_view kWide = U"mwMW@%—…Ñ";
  if (kNarrow.find(c) != kNarrow.npos) return 0.35;
  if (kSlim.find(c) != kSlim.npos) return 0.47;
  if (kWide.find(c) != kWide.npos) return 1.0;
  if (c >= U'0' && c <= U'9') return 0.64;
  if (c >= U'a' && c <= U'z') return 0.64;
  if (c >= 0xE0 && c <= 0xFF) return 0.64;
  return c < 0x2000 ? 0.80 : 1.1;
}

/// The character at the start of `text`, which is moved behind it.
char32_t nextCharacter(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  char32_t c = length == 1 ? lead : lead & (0xFFU >> (length + 1));
  for (std::size_t k = 1; k < std::min(length, text.size()); ++k) {
    c = (c << 6) | (static_cast<unsigned char>(text[k]) & 0x3FU);
  }
  text.remove_prefix(std::min(length, text.size()));
  return c;
}

/// How many bytes of `word` a line takes: all of it, or up to the last sign between its parts that
/// still fits, or as many characters as fit; at least one.
std::size_t fittingPart(std::string_view word, double capHeight, double width) {
  double used = 0;
  std::size_t fitting = 0, behindSign = 0;
  std::string_view rest = word;
  while (!rest.empty()) {
    const char first = rest.front();
    used += characterWidth(nextCharacter(rest)) * capHeight / kCapitals;
    if (used > width && fitting > 0) return behindSign > 0 ? behindSign : fitting;
    fitting = word.size() - rest.size();
    if (first == '-' || first == '_' || first == '.') behindSign = fitting;
  }
  return fitting;
}

}  // namespace

bool touch(const Box& a, const Box& b) {
  constexpr double kRounding = 1e-6;
  return a.x0 < b.x1 - kRounding && b.x0 < a.x1 - kRounding && a.y0 < b.y1 - kRounding &&
         b.y0 < a.y1 - kRounding;
}

Box grown(const Box& a, double air) { return {a.x0 - air, a.y0 - air, a.x1 + air, a.y1 + air}; }

double textWidth(std::string_view utf8, double capHeight) {
  double width = 0;
  while (!utf8.empty()) width += characterWidth(nextCharacter(utf8));
  return width * capHeight / kCapitals;
}

Box boxOf(const Label& label) {
  const double width = textWidth(label.text, label.capHeight) * (label.strong ? 1.1 : 1.0);
  const double before = label.anchor == Anchor::kStart    ? 0
                        : label.anchor == Anchor::kMiddle ? width / 2
                                                          : width;
  const double below = label.capHeight / kCapitals * kDescender;
  const Point& p = label.at;
  if (label.turned) {
    return {p.x - label.capHeight, p.y - (width - before), p.x + below, p.y + before};
  }
  return {p.x - before, p.y - label.capHeight, p.x + width - before, p.y + below};
}

std::string cutToWidth(std::string_view text, double capHeight, double width) {
  if (textWidth(text, capHeight) <= width) return std::string(text);
  const double room = width - textWidth(kEllipsis, capHeight);
  std::string_view rest = text;
  double used = 0;
  while (!rest.empty()) {
    std::string_view behind = rest;
    used += characterWidth(nextCharacter(behind)) * capHeight / kCapitals;
    if (used > room) break;
    rest = behind;
  }
  return std::string(text.substr(0, text.size() - rest.size())) + std::string(kEllipsis);
}

std::vector<std::string> wrapped(std::string_view text, double capHeight, double width,
                                 std::size_t most) {
  std::vector<std::string> lines;
  const auto add = [&](std::string_view word, bool sameLine) {
    const std::string longer = lines.empty() ? "" : lines.back() + " " + std::string(word);
    if (sameLine && !lines.empty() && textWidth(longer, capHeight) <= width) {
      lines.back() = longer;
    } else {
      lines.emplace_back(word);
    }
  };
  while (!text.empty()) {
    const std::size_t blank = std::min(text.find(' '), text.size());
    std::string_view word = text.substr(0, blank);
    text.remove_prefix(std::min(blank + 1, text.size()));
    bool sameLine = true;
    while (!word.empty()) {
      const std::size_t part = fittingPart(word, capHeight, width);
      add(word.substr(0, part), sameLine);
      word.remove_prefix(part);
      sameLine = false;
    }
  }
  if (lines.size() > most) {
    lines.resize(most);
    lines.back() = cutToWidth(lines.back() + std::string(kEllipsis), capHeight, width);
  }
  return lines;
}

void Drawing::shift(double dx, double dy) {
  for (Shape& shape : shapes) {
    for (std::vector<Point>& points : shape.lines) {
      for (Point& point : points) point = {point.x + dx, point.y + dy};
    }
  }
  for (Label& label : labels) label.at = {label.at.x + dx, label.at.y + dy};
}

}  // namespace report
