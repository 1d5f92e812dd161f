#include "generator/line_meanings.h"

#include <algorithm>
#include <charconv>
#include <span>
#include <system_error>

namespace {

constexpr std::string_view kFloorKeywords[] = {"FLOOR-HEIGHT", "SPACE-HEIGHT", "MULTIPLIER", ".."};
static_assert(kFloorKeywords[kFloorHeight] == "FLOOR-HEIGHT" &&
              kFloorKeywords[kFloorSpaceHeight] == "SPACE-HEIGHT" &&
              kFloorKeywords[kFloorMultiplier] == "MULTIPLIER" &&
              kFloorKeywords[kFloorEnd] == "..");

constexpr std::string_view kSpaceKeywords[] = {"HEIGHT", "MULTIPLIER", "AIR-CHANGES/HR", ".."};
static_assert(kSpaceKeywords[kSpaceHeight] == "HEIGHT" &&
              kSpaceKeywords[kSpaceMultiplier] == "MULTIPLIER" &&
              kSpaceKeywords[kSpaceAirChanges] == "AIR-CHANGES/HR" &&
              kSpaceKeywords[kSpaceEnd] == "..");

constexpr std::string_view kConstructionKeywords[] = {"CONSTRUCTION", ".."};
static_assert(kConstructionKeywords[kConstruction] == "CONSTRUCTION" &&
              kConstructionKeywords[kConstructionEnd] == "..");

constexpr std::string_view kWindowKeywords[] = {"GLASS-TYPE",
                                                "INF-COEF",
                                                "SETBACK",
                                                "OVERHANG-A",
                                                "OVERHANG-B",
                                                "OVERHANG-W",
                                                "OVERHANG-D",
                                                "OVERHANG-ANGLE",
                                                "LEFT-FIN-A",
                                                "LEFT-FIN-B",
                                                "LEFT-FIN-H",
                                                "LEFT-FIN-D",
                                                "RIGHT-FIN-A",
                                                "RIGHT-FIN-B",
                                                "RIGHT-FIN-H",
                                                "RIGHT-FIN-D",
                                                "FRAME-WIDTH",
                                                "FRAME-CONDUCT",
                                                "FRAME-ABS",
                                                "POSITION-LAMAS",
                                                "LAMAS-WIDTH",
                                                "LAMAS-DISTANCE",
                                                "LAMAS-ANGLE",
                                                "LAMAS-TRANSMISIVITY",
                                                "LAMAS-REFLECTIVITY",
                                                "COEFF",
                                                "..",
                                                "WIDTH",
                                                "HEIGHT",
                                                "X",
                                                "Y"};
static_assert(kWindowKeywords[kWindowEnd] == "..");

NameList listOf(std::span<const std::string_view> names) {
  return NameList({names.begin(), names.end()});
}

/// The n of "Vn", written as numbers are; 0 for any other text.
int vertexNumber(std::string_view name) {
  if (name.size() < 2 || name[0] != 'V' || name[1] == '0') return 0;
  int number = 0;
  const auto read = std::from_chars(name.data() + 1, name.data() + name.size(), number);
  const bool whole = read.ec == std::errc() && read.ptr == name.data() + name.size();
  return whole ? std::max(number, 0) : 0;
}

}  // namespace

const std::array<NameList, kEmitterNameLists>& emitterNames() {
  static const std::array<NameList, kEmitterNameLists> lists = {
      listOf(kFloorKeywords), listOf(kSpaceKeywords), listOf(kConstructionKeywords),
      listOf(kWindowKeywords), NameList({".."})};
  return lists;
}

int vertexIn(const Assignment& line) {
  const int byKey = vertexNumber(line.key);
  const int byValue = vertexNumber(line.value);
  return byKey > 0 && byValue > 0 ? std::min(byKey, byValue) : std::max(byKey, byValue);
}

bool isSurfaceCommand(std::string_view line) {
  constexpr std::string_view kTypes[] = {
      "EXTERIOR-WALL", "ROOF", "TROMBE-WALL", "INTERIOR-WALL", "UNDERGROUND-WALL", "WINDOW"};
  return std::ranges::any_of(
      kTypes, [&](std::string_view type) { return line.find(type) != std::string_view::npos; });
}
