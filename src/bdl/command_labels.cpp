#include "bdl/command_labels.h"

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::size_t kMostBeforeEquals = 2;  // characters between the name's end and the "="
constexpr std::size_t kMostToType = 3;        // from the "=" to the type word

/// Whether the name can be looked up by its quotes: it is one quoted word.
bool isQuoted(const std::string& name) {
  return name.starts_with('"') && name.find('"', 1) == name.size() - 1;
}

}  // namespace

CommandLabels::CommandLabels(std::string_view text, std::string_view type) : text_(text) {
  for (std::size_t equals = text.find('='); equals != kNone; equals = text.find('=', equals + 1)) {
    const std::string_view behind = text.substr(equals, kMostToType + type.size());
    if (behind.find(type) == kNone) continue;
    equals_.push_back(equals);
    enterLabelsBefore(equals);
  }
}

/// Enters the quoted names that end at most two characters before the "=". From the farthest place
/// to the nearest: a name's first label is the one that counts.
void CommandLabels::enterLabelsBefore(std::size_t equals) {
  for (std::size_t gap = kMostBeforeEquals + 1; gap-- > 0;) {
    const std::size_t close = equals - gap - 1;
    if (equals < gap + 2 || text_[close] != '"') continue;
    const std::size_t open = text_.rfind('"', close - 1);
    if (open == kNone) continue;
    if (text_.substr(open, equals - open).find('=') != kNone) continue;
    quoted_.try_emplace(std::string(text_.substr(open, close + 1 - open)), open);
  }
}

std::size_t CommandLabels::find(const std::string& name) const {
  if (isQuoted(name)) {
    const auto label = quoted_.find(name);
    return label == quoted_.end() ? kNone : label->second;
  }
  for (const std::size_t equals : equals_) {
    for (std::size_t gap = kMostBeforeEquals + 1; gap-- > 0;) {
      if (equals <= gap + name.size()) continue;
      const std::size_t at = equals - gap - name.size();
      const std::string_view label = text_.substr(at, equals - at);
      if (label.starts_with(name) && label.find('=') == kNone) return at;
    }
  }
  return kNone;
}
