#include "report/building_lines.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "core/numbers.h"
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

/// The n of "EDGE-n"; 0 when it is none.
int edgeNumber(std::string_view location) {
  constexpr std::string_view kEdge = "EDGE-";
  if (!location.starts_with(kEdge)) return 0;
  const std::string_view digits = location.substr(kEdge.size());
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

bool readVertex(std::string_view value, Vertex& vertex) {
  const std::size_t open = value.find('(');
  const std::size_t comma = value.find(',');
  if (open >= comma || comma == std::string_view::npos) return false;
  std::string_view x = trimmed(value.substr(open + 1, comma - open - 1));
  std::string_view y = trimmed(value.substr(comma + 1));
  return scanReal(x, vertex.x) && scanReal(y, vertex.y);
}

void readValue(BuildingLine& line) {
  switch (line.keyword) {
    case Keyword::kMultiplier:
    case Keyword::kFloorHeight:
    case Keyword::kHeight:
    case Keyword::kArea:
    case Keyword::kX:
    case Keyword::kY:
    case Keyword::kWidth: {
      std::string_view digits = line.text;
      line.isNumber = scanReal(digits, line.number);
      break;
    }
    case Keyword::kLocation:
      line.edge = edgeNumber(line.text);
      break;
    case Keyword::kVertex:
      line.isNumber = readVertex(line.text, line.vertex);
      break;
    case Keyword::kPolygon:
    case Keyword::kConstruction:
    case Keyword::kNextTo:
      break;
  }
}

}  // namespace

std::optional<BuildingLine> readBuildingLine(std::string_view line) {
  using Kind = BuildingLine::Kind;
  line = trimmed(line);
  if (line.empty() || line.front() == '$') return std::nullopt;
  if (line == "..") return BuildingLine{};
  if (const auto header = readHeader(line)) {
    BuildingLine read;
    read.kind = Kind::kHeader;
    read.type = typeOf(header->type);
    read.text = header->name;
    return read;
  }
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  const std::optional<Keyword> keyword = keywordOf(trimmed(line.substr(0, equals)));
  if (!keyword) return std::nullopt;
  BuildingLine read;
  read.kind = Kind::kKeyword;
  read.keyword = *keyword;
  read.text = trimmed(line.substr(equals + 1));
  readValue(read);
  return read;
}

}  // namespace report
