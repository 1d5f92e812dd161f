#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "generator/name_list.h"

/// What a template line may be to a generation. None of it depends on the typology, so that it can
/// be found out once for all the buildings of a template (see template_stops.h).

/// The lists of names that the emitters look template lines up in.
enum class EmitterNames : std::uint8_t {
  kFloor,         // see FloorName
  kSpace,         // see SpaceName
  kConstruction,  // see ConstructionName
  kWindow,        // what the generated window does without or gets anew; kWindowEnd: ".."
  kEnd            // ".." alone
};
inline constexpr std::size_t kEmitterNameLists = 5;

enum FloorName { kFloorHeight, kFloorSpaceHeight, kFloorMultiplier, kFloorEnd };
enum SpaceName { kSpaceHeight, kSpaceMultiplier, kSpaceAirChanges, kSpaceEnd };
enum ConstructionName { kConstruction, kConstructionEnd };
inline constexpr int kWindowEnd = 26;

/// All of them, in the order of the enumeration.
const std::array<NameList, kEmitterNameLists>& emitterNames();

/// The types of command that the generation goes to one after the other.
inline constexpr std::string_view kShadeType = "BUILDING-SHADE";
inline constexpr std::string_view kPolygonType = "POLYGON";
inline constexpr std::string_view kParametersType = "BUILD-PARAMETERS";
inline constexpr std::array kSoughtTypes = {kShadeType, kPolygonType, kParametersType};

/// The number of the vertex that a line names as its key or its value, the lower one if both are
/// vertices; 0 when neither is. A vertex is a V and a number: V1, V2, ...
int vertexIn(const Assignment& line);

/// A whole-building ventilation of 4 air changes an hour. Only this very text is recognised; the
/// same values with other blanks between them are somebody's own schedule.
inline bool isAirChangeSchedule(std::string_view line) {
  return line.find("VALUES = ( 4, 4, 4, 4, 4, 4, 4, 4, 1 )") != std::string_view::npos;
}

/// A line that ends what is skipped even inside a command.
inline bool isRule(std::string_view line) {
  return line.find("----------") != std::string_view::npos;
}

/// Whether a line that names a surface is the header of a command that is rewritten.
bool isSurfaceCommand(std::string_view line);

/// Bytes of the longest template line.
inline constexpr std::size_t kLongestLine = 3000;
