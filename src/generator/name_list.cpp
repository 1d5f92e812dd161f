#include "generator/name_list.h"

#include <algorithm>
#include <bit>
#include <functional>

#include "core/numbers.h"

namespace {

float realOrZero(std::string_view text) {
  float value = 0;
  scanReal(text, value);
  return value;
}

constexpr int kFree = -1;

}  // namespace

NameList::NameList(std::span<const std::string_view> names)
    : places_(std::bit_ceil(2 * names.size() + 1), kFree) {
  names_.reserve(names.size());
  for (const std::string_view untrimmed : names) {
    const std::string_view name = names_.emplace_back(trimBlanks(untrimmed));
    int& place = places_[placeOf(name)];
    if (place == kFree) place = static_cast<int>(names_.size()) - 1;
    glances_.set(glanceAt(name));
  }
}

std::size_t NameList::glanceAt(std::string_view text) {
  const std::size_t first = text.empty() ? 0 : static_cast<unsigned char>(text.front());
  return first * kLengths + std::min(text.size(), kLengths - 1);
}

std::size_t NameList::placeOf(std::string_view text) const {
  const std::size_t mask = places_.size() - 1;
  std::size_t place = std::hash<std::string_view>{}(text)&mask;
  while (places_[place] != kFree && names_[static_cast<std::size_t>(places_[place])] != text) {
    place = (place + 1) & mask;
  }
  return place;
}

int NameList::indexOf(std::string_view text) const {
  return glances_[glanceAt(text)] ? places_[placeOf(text)] : kFree;
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
