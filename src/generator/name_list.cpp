#include "generator/name_list.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <utility>

#include "core/numbers.h"

namespace {

float realOrZero(std::string_view text) {
  float value = 0;
  scanReal(text, value);
  return value;
}

constexpr int kFree = -1;

}  // namespace

NameList::NameList(std::vector<std::string_view> names)
    : names_(std::move(names)), places_(std::bit_ceil(2 * names_.size() + 1), kFree) {
  for (std::string_view& name : names_) name = trimBlanks(name);
  for (std::size_t i = 0; i < names_.size(); ++i) {
    int& place = places_[placeOf(names_[i])];
    if (place == kFree) place = static_cast<int>(i);
    glances_.set(glanceAt(names_[i]));
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

LineMatch sizesIn(const Assignment& line) {
  return {.index = -1,
          .width = line.key == "WIDTH" ? realOrZero(line.value) : 0,
          .height = line.key == "HEIGHT" ? realOrZero(line.value) : 0};
}

bool findKey(std::string_view line, const NameList& names, LineMatch& match) {
  const Assignment assignment = splitAssignment(line);
  const int index = names.matchKey(assignment);
  if (index < 0) return false;
  match = sizesIn(assignment);
  match.index = index;
  return true;
}
