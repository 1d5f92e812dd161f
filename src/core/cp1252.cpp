#include "core/cp1252.h"

#include <algorithm>

namespace cp1252 {
namespace {

bool isContinuation(std::string_view text, std::size_t at) {
  return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
}

/// Length of the multi-byte UTF-8 sequence that begins at `at`; 0 when there is none. Overlong
/// forms, surrogates and numbers above U+10FFFF are no UTF-8.
std::size_t sequenceLength(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(at);
  if (lead < 0xC2 || lead > 0xF4 || !isContinuation(text, at + 1)) return 0;
  if (lead < 0xE0) return 2;
  const unsigned char second = byte(at + 1);
  if (!isContinuation(text, at + 2)) return 0;
  if (lead < 0xF0) {
    const bool overlong = lead == 0xE0 && second < 0xA0;
    const bool surrogate = lead == 0xED && second > 0x9F;
    return overlong || surrogate ? 0 : 3;
  }
  const bool overlong = lead == 0xF0 && second < 0x90;
  const bool tooLarge = lead == 0xF4 && second > 0x8F;
  return overlong || tooLarge || !isContinuation(text, at + 3) ? 0 : 4;
}

/// Of the characters in front that are the same in both.
std::size_t asciiLength(std::string_view text) {
  const auto* const end =
      std::ranges::find_if(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
  return static_cast<std::size_t>(end - text.begin());
}

void appendUtf8(std::string& out, char32_t codePoint) {
  if (codePoint < 0x80) {
    out += static_cast<char>(codePoint);
  } else if (codePoint < 0x800) {
    out += static_cast<char>(0xC0 | (codePoint >> 6));
    out += static_cast<char>(0x80 | (codePoint & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (codePoint >> 12));
    out += static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (codePoint & 0x3F));
  }
}

}  // namespace

std::string toUtf8(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t plain = asciiLength(text.substr(i));
    out.append(text, i, plain);
    i += plain;
    if (i == text.size()) break;
    if (const std::size_t length = sequenceLength(text, i); length > 0) {
      out.append(text.substr(i, length));
      i += length;
      continue;
    }
    const auto byte = static_cast<unsigned char>(text[i]);
    appendUtf8(out, byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80U] : byte);
    ++i;
  }
  return out;
}

}  // namespace cp1252
