#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "plan/plan.h"

/// What a line of a building description says to who reads the building back; it does not depend on
/// the lines around it.
namespace report {

enum class CommandType : std::uint8_t {
  kOther,
  kPolygon,
  kFloor,
  kSpace,
  kInteriorWall,
  kOtherWall,  // exterior, underground, Trombe, and roofs
  kWindow
};

enum class Keyword : std::uint8_t {
  kMultiplier,
  kFloorHeight,
  kHeight,
  kPolygon,
  kConstruction,
  kLocation,
  kArea,
  kX,
  kY,
  kWidth,
  kNextTo,
  kVertex  // any that begins with V
};
inline constexpr std::size_t kSingleKeywords = 11;  // those before kVertex

struct BuildingLine {
  enum class Kind : std::uint8_t { kHeader, kKeyword, kEnd };
  Kind kind = Kind::kEnd;
  CommandType type = CommandType::kOther;  // of a header
  Keyword keyword = Keyword::kVertex;      // of a keyword line
  std::string_view text;                   // a header's name without quotes, a keyword's value
  // What the value of a keyword says.
  bool isNumber = false;  // of a vertex: that it is one
  float number = 0;
  Vertex vertex{};
  int edge = 0;  // the n of a location "EDGE-n"; 0 when it is none
};

/// Nothing for a line that says nothing: a comment, an empty line, a keyword of no interest.
/// `line` may have its line end.
std::optional<BuildingLine> readBuildingLine(std::string_view line);

}  // namespace report
