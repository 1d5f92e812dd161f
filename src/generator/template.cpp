#include "generator/template.h"

#include <string_view>
#include <utility>
#include <vector>

#include "core/line_reader.h"
#include "core/paths.h"
#include "generator/orientation.h"

namespace {

std::string baseNameOf(const std::string& path) {
  const std::string name = path.substr(folderOf(path).size());
  return name.substr(0, name.rfind('.'));
}

std::vector<std::string_view> commandNamesOf(const TableFile& table) {
  std::vector<std::string_view> names;
  names.reserve(table.surfaces.size() + 2);
  for (const Surface& surface : table.surfaces) names.push_back(surface.name);
  names.push_back(" SPACE ");
  names.push_back(" FLOOR ");
  return names;
}

}  // namespace

SurfaceSums::SurfaceSums(const TableFile& table) {
  for (const Surface& surface : table.surfaces) {
    meanSurfaceValue += surface.value * surface.area;
    if (surface.kind == 2) {
      kind2Area += surface.area;
      continue;
    }
    if (surface.kind == -2) {
      kindMinus2Area += surface.area;
      continue;
    }
    const int orientation = classifyOrientation(surface.azimuth, surface.tilt);
    if (orientation < 0) continue;
    const auto sector = static_cast<std::size_t>(orientation);
    if (surface.kind == 1) windowAreaByOrientation[sector] += surface.area;
    if (surface.kind == 0) wallAreaByOrientation[sector] += surface.area;
  }
  meanSurfaceValue = table.zoneAreaSum != 0 ? meanSurfaceValue / table.zoneAreaSum : 0;
}

Template::Template(SourceText building, SourceText table, Use use)
    : building_(std::move(building)),
      tableText_(std::move(table)),
      table_(readTableFile(tableText_)),
      commandNames_(commandNamesOf(table_)),
      templateBaseName_(baseNameOf(building_.name())),
      sums_(table_) {
  if (use == Use::kOften && building_.bytes().size() <= TemplateStops::kLargestTemplate) {
    stops_.emplace(building_.bytes(), commandNames_);
  }
}

Place TemplatePlaces::placeOf(long number) {
  if (!index_) {
    index_.emplace(building_);
    LineReader reader(building_.bytes());
    for (std::string_view line; reader.ReadLine(line);) lines_.push_back(reader.span());
  }
  return index_->placeOf(lines_.at(static_cast<std::size_t>(number - 1)));
}
