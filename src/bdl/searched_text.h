#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

/// A text that is searched over and over for the same patterns, mostly ever further on. It keeps
/// the last far search of each pattern, so that many searches which end at the same place, or
/// nowhere, cost one walk: a library's thousands of commands may share one "..", or lack one
/// keyword. What is near is found sooner than remembered.
class SearchedText {
 public:
  explicit SearchedText(std::string bytes) : bytes_(std::move(bytes)) {}

  std::string_view bytes() const { return bytes_; }

  /// Position of the first `pattern` at or after `from`; npos when there is none.
  std::size_t find(std::string_view pattern, std::size_t from) {
    constexpr std::size_t kNearBytes = 1024;
    constexpr std::size_t kSmallText = 4096;  // not worth remembering anything
    if (bytes_.size() <= kSmallText) return bytes().find(pattern, from);
    if (from > bytes_.size()) return std::string_view::npos;  // not even an empty pattern
    const std::string_view rest = bytes().substr(from);
    const std::size_t near = rest.substr(0, kNearBytes).find(pattern);
    if (near != std::string_view::npos) return from + near;
    if (rest.size() <= kNearBytes) return std::string_view::npos;
    auto last = searches_.find(pattern);
    if (last == searches_.end()) last = searches_.try_emplace(std::string(pattern)).first;
    Search& search = last->second;
    if (from < search.from || from > search.position) {
      search = {from, bytes().find(pattern, from)};
    }
    return search.position;
  }

 private:
  struct Search {
    std::size_t from = 1;
    std::size_t position = 0;
  };

  std::string bytes_;
  std::map<std::string, Search, std::less<>> searches_;
};
