#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace stock {

/// Tells one text from another (XXH3, 64 bits); no protection against somebody who means to
/// deceive.
std::uint64_t hashOf(std::string_view text);

/// The same of a text that comes in pieces, as 16 hexadecimal digits.
class RunningHash {
 public:
  RunningHash();
  ~RunningHash();
  RunningHash(const RunningHash&) = delete;
  RunningHash& operator=(const RunningHash&) = delete;
  void add(std::string_view piece);
  std::string text() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace stock
