#include "report/building_lines.h"

#include <algorithm>
#include <iterator>

#include "report/written_commands.h"

namespace report {

namespace {

constexpr struct {
  std::string_view word;
  CommandType type;
} kTypes[] = {{"POLYGON", CommandType::kPolygon},
              {"FLOOR", CommandType::kFloor},
              {"SPACE", CommandType::kSpace},
              {"EXTERIOR-WALL", CommandType::kOtherWall},
              {"INTERIOR-WALL", CommandType::kInteriorWall},
              {"UNDERGROUND-WALL", CommandType::kOtherWall},
              {"ROOF", CommandType::kOtherWall},
              {"TROMBE-WALL", CommandType::kOtherWall},
              {"WINDOW", CommandType::kWindow}};

// In the order of the enumeration.
constexpr std::string_view kKeywords[] = {
    "MULTIPLIER", "FLOOR-HEIGHT", "HEIGHT", "POLYGON", "CONSTRUCTION", "LOCATION", "AREA", "X",
    "Y",          "WIDTH",        "NEXT-TO"};
static_assert(std::size(kKeywords) == kSingleKeywords);

CommandType typeOf(std::string_view word) {
  const auto* row =
      std::ranges::find_if(kTypes, [&](const auto& each) { return each.word == word; });
  return row == std::end(kTypes) ? CommandType::kOther : row->type;
}

std::optional<Keyword> keywordOf(std::string_view key) {
  if (key.starts_with('V')) return Keyword::kVertex;
  if (key.empty()) return std::nullopt;
  // No two begin alike.
  const auto* found = std::ranges::find(kKeywords, key.front(), [](auto word) { return word[0]; });
  if (found == std::end(kKeywords) || *found != key) return std::nullopt;
  return static_cast<Keyword>(found - kKeywords);
}

}  // namespace

std::optional<BuildingLine> readBuildingLine(std::string_view line) {
  using Kind = BuildingLine::Kind;
  line = trimmed(line);
  if (line.empty() || line.front() == '$') return std::nullopt;
  if (line == "..") return BuildingLine{.kind = Kind::kEnd, .text = {}};
  if (const auto header = readHeader(line)) {
    return BuildingLine{.kind = Kind::kHeader, .type = typeOf(header->type), .text = header->name};
  }
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  const std::optional<Keyword> keyword = keywordOf(trimmed(line.substr(0, equals)));
  if (!keyword) return std::nullopt;
  return BuildingLine{
      .kind = Kind::kKeyword, .keyword = *keyword, .text = trimmed(line.substr(equals + 1))};
}

}  // namespace report
