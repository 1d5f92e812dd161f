#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace report {

/// Tells one input from another: 16 hexadecimal digits (XXH3, 64 bits, canonical order). No
/// protection against somebody who means to deceive.
std::string fingerprint(std::string_view bytes);

/// The same for tables of texts.
struct TextHash {
  std::size_t operator()(std::string_view text) const;
};

}  // namespace report
