#include "report/original_building.h"

#include "core/numbers.h"
#include "generator/orientation.h"
#include "report/written_commands.h"

namespace report {

namespace {

constexpr float kStorey = 3.0F;  // m, of a window that takes the courtyard's data

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
  addWindows();
  for (Line& line : lines_) {
    if (line.line.kind == BuildingLine::Kind::kHeader) line.named = &named(line.line.text);
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
      window.courtyard = line.text.find("Med") != std::string_view::npos;
      heightless = &window;
      if (named.surface == nullptr) continue;
      const int orientation = classifyOrientation(named.surface->azimuth, named.surface->tilt);
      window.looksOut = orientation >= 0;
      if (window.looksOut) window.side = facadeIndex(orientation);
    } else if (heightless != nullptr && line.keyword == Keyword::kHeight) {
      std::string_view digits = line.text;
      float height = 0;
      heightless->storeyHigh = scanReal(digits, height) && height >= kStorey;
      heightless = nullptr;
    }
  }
}

const Named& OriginalBuilding::named(std::string_view name) const {
  static const Named kNothing;
  const auto found = names_.find(name);
  return found == names_.end() ? kNothing : found->second;
}

}  // namespace report
