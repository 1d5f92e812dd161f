#include "report/fingerprint.h"

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace report {

std::string fingerprint(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  const XXH64_hash_t hash = XXH3_64bits(bytes.data(), bytes.size());
  std::string text;
  for (int shift = 60; shift >= 0; shift -= 4) text += kDigits[(hash >> shift) & 0xFU];
  return text;
}

std::size_t TextHash::operator()(std::string_view text) const {
  return XXH3_64bits(text.data(), text.size());
}

}  // namespace report
