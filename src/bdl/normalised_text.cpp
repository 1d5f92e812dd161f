#include "bdl/normalised_text.h"

#include <array>

namespace {

/// Walks over the normalised text: gives `take` each character and the offset that it comes from,
/// until it has had enough and returns false.
template <typename Take>
void walkNormalised(std::string_view text, const Take& take) {
  bool behindBlank = false;
  for (std::size_t from = 0; from < text.size(); ++from) {
    char c = text[from];
    if (c == '\n' || c == '\r') {
      // Blank, line end, and a blank for the runs that follow. The first one is never left out.
      if (!take(' ', from) || !take(c, from)) return;
      c = ' ';
      behindBlank = false;
    }
    if (c == ' ' && behindBlank) continue;
    if (!take(c, from)) return;
    behindBlank = c == ' ';
  }
}

}  // namespace

std::string normalised(std::string_view text) {
  std::string result;
  result.reserve(text.size() + text.size() / 2);
  // Gathered before they are appended: a string is slow in taking characters one by one.
  std::array<char, 512> block;
  std::size_t filled = 0;
  walkNormalised(text, [&](char c, std::size_t) {
    if (filled == block.size()) {
      result.append(block.data(), filled);
      filled = 0;
    }
    block[filled++] = c;
    return true;
  });
  return result.append(block.data(), filled);
}

std::size_t offsetBeforeNormalising(std::string_view text, std::size_t offset) {
  std::size_t origin = text.size();
  walkNormalised(text, [&](char, std::size_t from) {
    if (offset-- > 0) return true;
    origin = from;
    return false;
  });
  return origin;
}
