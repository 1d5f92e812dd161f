#include "generator/name_list.h"

#include <algorithm>

#include "core/numbers.h"

namespace {

float realOrZero(std::string_view text) {
  float value = 0;
  scanReal(text, value);
  return value;
}

}  // namespace

std::string_view trimBlanks(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

Assignment splitAssignment(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return {trimBlanks(line), {}};
  return {trimBlanks(line.substr(0, equals)), trimBlanks(line.substr(equals + 1))};
}

NameList::NameList(std::span<const std::string_view> names) {
  earliest_.reserve(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string_view name = trimBlanks(names[i]);
    earliest_.try_emplace(name, static_cast<int>(i));
    glances_.set(glanceAt(name));
  }
}

std::size_t NameList::glanceAt(std::string_view text) {
  const std::size_t first = text.empty() ? 0 : static_cast<unsigned char>(text.front());
  return first * kLengths + std::min(text.size(), kLengths - 1);
}

int NameList::indexOf(std::string_view text) const {
  if (!glances_[glanceAt(text)]) return -1;
  const auto found = earliest_.find(text);
  return found == earliest_.end() ? -1 : found->second;
}

int NameList::matchKey(const Assignment& line) const {
  const int byKey = indexOf(line.key);
  const int byValue = indexOf(line.value);
  if (byKey < 0 || byValue < 0) return std::max(byKey, byValue);
  return std::min(byKey, byValue);
}

bool findKey(std::string_view line, const NameList& names, LineMatch& match) {
  const Assignment assignment = splitAssignment(line);
  const int index = names.matchKey(assignment);
  if (index < 0) return false;
  match.index = index;
  match.width = assignment.key == "WIDTH" ? realOrZero(assignment.value) : 0;
  match.height = assignment.key == "HEIGHT" ? realOrZero(assignment.value) : 0;
  return true;
}
