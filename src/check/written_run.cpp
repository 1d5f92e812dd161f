#include "check/written_run.h"

#include <algorithm>

#include "core/numbers.h"

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kVivienda = "VIVIENDA";
constexpr std::string_view kClose = "..";

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

template <typename T>
std::optional<RunReading::Number<T>> numberAt(std::string_view block, std::size_t at,
                                              bool (*scan)(std::string_view&, T&)) {
  const std::string_view before = block.substr(std::min(at, block.size()));
  std::string_view behind = before;
  T value{};
  if (!scan(behind, value)) return {};
  const std::size_t taken = before.size() - behind.size();
  const auto* const first =
      std::ranges::find_if_not(before, [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); });
  return {{value, {at + static_cast<std::size_t>(first - before.begin()), at + taken}}};
}

}  // namespace

RunReading::RunReading(std::string_view bytes) : bytes_(bytes) {
  const std::size_t begin = bytes.find(kVivienda);
  // What stands at the very start of a file is not found.
  found_ = begin != kNone && begin > 0;
  if (!found_) return;
  const std::size_t end = bytes.find(kClose, begin);
  closed_ = end != kNone;
  block_ = {begin, std::min(end, bytes.size())};
}

std::optional<RunReading::Hit> RunReading::find(const ViviendaKeyword& keyword) const {
  if (!found_) return {};
  const std::string_view text = bytes_.substr(0, block_.end);
  const bool betweenBlanks = keyword.pattern.front() == ' ';
  for (std::size_t at = text.find(keyword.name, block_.begin); at != kNone;
       at = text.find(keyword.name, at + 1)) {
    const std::size_t behind = at + keyword.name.size();
    if (betweenBlanks &&
        (!isBlank(text[at - 1]) || behind >= text.size() || !isBlank(text[behind]))) {
      continue;
    }
    const std::size_t equals = text.find('=', at);
    if (equals == kNone) return {};
    return {{at, equals}};
  }
  return {};
}

std::optional<RunReading::Number<int>> RunReading::integerAt(std::size_t at) const {
  return numberAt(bytes_.substr(0, block_.end), at, &scanInteger);
}

std::optional<RunReading::Number<float>> RunReading::realAt(std::size_t at) const {
  return numberAt(bytes_.substr(0, block_.end), at, &scanReal);
}

std::optional<Span> RunReading::textAt(std::size_t at) const {
  const std::string_view text = bytes_.substr(0, block_.end);
  // A carriage return is no blank here: an empty value before CR LF is that character.
  at = text.find_first_not_of(" \t\n", at);
  if (at == kNone) return {};
  if (text[at] == '"') {
    const std::size_t close = text.find('"', at + 1);
    if (close == kNone) return {};
    return {{at, close + 1}};
  }
  if (text[at] == '\r') return {{at, at + 1}};
  return {{at, std::min(text.find_first_of(" \t\n\r", at), text.size())}};
}

std::optional<RunReading::List> RunReading::listOf(const Hit& hit) const {
  const std::string_view text = bytes_.substr(0, block_.end);
  const std::size_t open = text.find('(', hit.at);
  if (open == kNone) return {};
  // In the blanked text the search for ")" begins one character behind the "(", which lets a ")"
  // right behind it go unseen; a line end there is as good as a character.
  const std::size_t close = text.find(')', std::min(open + 2, text.size()));
  if (close == kNone) return {{open, {open + 1, open + 1}, false}};
  return {{open, {open + 1, close}, true}};
}
