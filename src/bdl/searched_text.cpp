#include "bdl/searched_text.h"

#include "core/numbers.h"

namespace {

std::optional<float> scannedReal(std::string_view text) {
  float value = 0;
  if (!scanReal(text, value)) return std::nullopt;
  return value;
}

}  // namespace

std::size_t SearchedText::find(std::string_view pattern, std::size_t from) {
  constexpr std::size_t kNearBytes = 1024;
  constexpr std::size_t kNone = std::string_view::npos;
  if (bytes_.size() <= kSmallText) return bytes().find(pattern, from);
  if (from > bytes_.size()) return kNone;  // not even an empty pattern
  const std::string_view rest = bytes().substr(from);
  const std::size_t near = rest.substr(0, kNearBytes).find(pattern);
  if (near != kNone) return from + near;
  if (rest.size() <= kNearBytes) return kNone;

  auto known = searches_.find(pattern);
  if (known == searches_.end()) known = searches_.try_emplace(std::string(pattern)).first;
  Searches& searches = known->second;
  const auto next = searches.lower_bound(from);
  if (next != searches.end() && next->second <= from) return next->first;
  // What begins in front of the next known stretch may still reach into it.
  const std::size_t unknown = next == searches.end() ? rest.size() : next->second - from;
  const std::size_t found = rest.substr(0, unknown + pattern.size() - 1).find(pattern);
  if (found != kNone) {
    searches.emplace(from + found, from);
    return from + found;
  }
  if (next == searches.end()) {
    searches.emplace(kNone, from);
    return kNone;
  }
  next->second = from;
  return next->first;
}

std::optional<float> SearchedText::real(std::size_t from) {
  const std::string_view rest = bytes().substr(from);
  if (bytes_.size() <= kSmallText) return scannedReal(rest);
  const auto [known, isNew] = reals_.try_emplace(from);
  if (isNew) known->second = scannedReal(rest);
  return known->second;
}
