#include "report/original_building.h"

#include <algorithm>

#include "generator/orientation.h"
#include "generator/window_emitter.h"
#include "report/written_commands.h"
#include "typology/tipo.h"

namespace report {

namespace {

/// Gives `take` each line of `text`, with where it begins.
template <typename Take>
void forEachLine(std::string_view text, const Take& take) {
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    take(begin, text.substr(begin, end - begin));
    begin = end + 1;
  }
}

}  // namespace

OriginalBuilding::OriginalBuilding(std::string_view text, const TableFile& table) : text_(text) {
  for (const Surface& surface : table.surfaces) {
    const Surface*& named = names_[unquoted(trimmed(surface.name))].surface;
    if (named == nullptr) named = &surface;
  }
  for (const Zone& zone : table.zones) {
    const Zone*& named = names_[unquoted(trimmed(zone.name))].zone;
    if (named == nullptr) named = &zone;
  }
  forEachLine(text, [this](std::size_t begin, std::string_view line) {
    if (const auto read = readBuildingLine(line)) lines_.push_back({begin, *read, nullptr});
  });
  addNames();
  addWindows();
  for (Line& line : lines_) findNamed(line);
}

void OriginalBuilding::addNames() {
  for (const Line& each : lines_) {
    if (each.line.kind != BuildingLine::Kind::kHeader) continue;
    if (each.line.type == CommandType::kPolygon) {
      int& polygon = names_[each.line.text].polygon;
      if (polygon < 0) polygon = static_cast<int>(polygons_++);
    }
    const bool isSurface =
        each.line.type == CommandType::kInteriorWall || each.line.type == CommandType::kOtherWall;
    if (isSurface) ++surfaces_;
  }
}

/// Of windows of one name the first counts, and of a window the first HEIGHT.
void OriginalBuilding::addWindows() {
  using Kind = BuildingLine::Kind;
  OriginalWindow* heightless = nullptr;  // the window that the lines belong to
  for (const auto& [begin, line, ignored] : lines_) {
    if (line.kind != Kind::kKeyword) heightless = nullptr;
    if (line.kind == Kind::kHeader && line.type == CommandType::kWindow) {
      Named& named = names_[line.text];
      if (named.window >= 0) continue;
      named.window = static_cast<int>(windows_.size());
      OriginalWindow& window = windows_.emplace_back();
      window.courtyard = looksIntoCourtyard(line.text);
      heightless = &window;
      if (named.surface == nullptr) continue;
      const int orientation = classifyOrientation(named.surface->azimuth, named.surface->tilt);
      window.looksOut = orientation >= 0;
      if (window.looksOut) window.side = facadeIndex(orientation);
    } else if (heightless != nullptr && line.keyword == Keyword::kHeight) {
      heightless->storeyHigh = line.isNumber && line.number >= kStoreyHeight;
      heightless = nullptr;
    }
  }
}

const Named& OriginalBuilding::named(std::string_view name) const {
  static const Named kNothing;
  const auto found = names_.find(name);
  return found == names_.end() ? kNothing : found->second;
}

void OriginalBuilding::findNamed(Line& line) const {
  if (line.line.kind == BuildingLine::Kind::kHeader) line.named = &named(line.line.text);
  if (line.line.kind == BuildingLine::Kind::kKeyword && line.line.keyword == Keyword::kPolygon) {
    line.named = &named(unquoted(line.line.text));
  }
}

std::vector<OriginalBuilding::Line> OriginalBuilding::linesOf(std::string_view text) const {
  std::vector<Line> lines;
  forEachLine(text, [&](std::size_t begin, std::string_view bytes) {
    const std::optional<BuildingLine> read = readBuildingLine(bytes);
    if (read) findNamed(lines.emplace_back(Line{begin, *read, nullptr}));
  });
  return lines;
}

}  // namespace report
