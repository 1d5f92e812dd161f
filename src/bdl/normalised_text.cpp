#include "bdl/normalised_text.h"

#include <algorithm>

namespace {

/// Walks over the normalised text: gives `take` each character and the offset that it comes from,
/// until it has had enough and returns false.
template <typename Take>
void walkNormalised(std::string_view text, const Take& take) {
  bool behindBlank = false;
  for (std::size_t from = 0; from < text.size(); ++from) {
    char c = text[from];
    if (static_cast<unsigned char>(c) > ' ') {  // nearly all
      if (!take(c, from)) return;
      behindBlank = false;
      continue;
    }
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
  const auto lineEnds = std::ranges::count(text, '\n') + std::ranges::count(text, '\r');
  std::string result(text.size() + 2 * static_cast<std::size_t>(lineEnds), ' ');
  char* end = result.data();
  walkNormalised(text, [&](char c, std::size_t) {
    *end++ = c;
    return true;
  });
  result.resize(static_cast<std::size_t>(end - result.data()));
  return result;
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
