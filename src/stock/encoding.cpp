#include "stock/encoding.h"

#include <algorithm>

#include "core/cp1252.h"

namespace stock {

namespace {

/// Takes one character from the front; U+FFFF, which is none, for a sequence that is cut.
char32_t takeCharacter(std::string_view& utf8) {
  const auto lead = static_cast<unsigned char>(utf8.front());
  const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (length > utf8.size()) {
    utf8 = {};
    return 0xFFFF;
  }
  char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    character = (character << 6) | (static_cast<unsigned char>(utf8[i]) & 0x3FU);
  }
  utf8.remove_prefix(length);
  return character;
}

}  // namespace

std::optional<std::string> toCp1252(std::string_view utf8) {
  if (cp1252::isAscii(utf8)) return std::string(utf8);
  std::string bytes;
  bytes.reserve(utf8.size());
  while (!utf8.empty()) {
    const char32_t character = takeCharacter(utf8);
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
      bytes += static_cast<char>(character);
      continue;
    }
    const auto* const found = std::ranges::find(cp1252::kHighControls, character);
    if (found == cp1252::kHighControls.end()) return std::nullopt;
    bytes += static_cast<char>(0x80 + (found - cp1252::kHighControls.begin()));
  }
  return bytes;
}

}  // namespace stock
