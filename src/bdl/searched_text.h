#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

/// A text that is searched over and over for the same patterns. It keeps the far searches of each
/// pattern and the numbers that were read, so that many look-ups which end at the same place, or
/// nowhere, cost one walk: a library's thousands of commands may share one "..", or lack one
/// keyword, or have one number of a million digits. What is near is found sooner than remembered.
class SearchedText {
 public:
  explicit SearchedText(std::string bytes) : bytes_(std::move(bytes)) {}

  std::string_view bytes() const { return bytes_; }

  /// Position of the first `pattern` at or after `from`; npos when there is none.
  std::size_t find(std::string_view pattern, std::size_t from);

  /// The number at `from`, as scanReal reads it.
  std::optional<float> real(std::size_t from);

 private:
  /// Of a pattern: each first occurrence that was found (npos: none), with the first place from
  /// which on it is that.
  using Searches = std::map<std::size_t, std::size_t>;

  static constexpr std::size_t kSmallText = 4096;  // bytes; not worth remembering anything

  std::string bytes_;
  std::map<std::string, Searches, std::less<>> searches_;
  std::unordered_map<std::size_t, std::optional<float>> reals_;  // by where they stand
};
