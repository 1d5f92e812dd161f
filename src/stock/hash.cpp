#include "stock/hash.h"

#include <array>
#include <cstdio>

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace stock {

struct RunningHash::State {
  XXH3_state_t xxh3;
};

std::uint64_t hashOf(std::string_view text) { return XXH3_64bits(text.data(), text.size()); }

RunningHash::RunningHash() : state_(std::make_unique<State>()) { XXH3_64bits_reset(&state_->xxh3); }

RunningHash::~RunningHash() = default;

void RunningHash::add(std::string_view piece) {
  XXH3_64bits_update(&state_->xxh3, piece.data(), piece.size());
}

std::string RunningHash::text() const {
  std::array<char, 17> digits{};
  std::snprintf(digits.data(), digits.size(), "%016llx",
                static_cast<unsigned long long>(XXH3_64bits_digest(&state_->xxh3)));
  return digits.data();
}

}  // namespace stock
