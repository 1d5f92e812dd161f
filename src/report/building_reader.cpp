#include "report/building_reader.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "generator/window_emitter.h"

namespace report {

namespace {

constexpr Count kMostOften = 2'147'483'647;

Count multiplierOf(const ReadCommand& command) {
  const double value = command.real(Keyword::kMultiplier).value_or(1);
  if (!(value >= 1)) return 1;
  return std::llround(std::min(value, static_cast<double>(kMostOften)));
}

/// Where a counter-clockwise edge looks.
Facade sideOf(const Vertex& a, const Vertex& b) {
  const double dx = static_cast<double>(b.x) - a.x, dy = static_cast<double>(b.y) - a.y;
  if (std::abs(dx) >= std::abs(dy)) return dx >= 0 ? kSouth : kNorth;
  return dy >= 0 ? kEast : kWest;
}

}  // namespace

CommandReader::CommandReader(const OriginalBuilding& original, Take take)
    : original_(original), take_(std::move(take)), windowsSeen_(original.windows().size(), false) {}

void CommandReader::take(const Line& line) {
  switch (line.line.kind) {
    case BuildingLine::Kind::kHeader:
      endCommand();
      command_.begin(line);
      if (line.named->window >= 0)
        windowsSeen_[static_cast<std::size_t>(line.named->window)] = true;
      break;
    case BuildingLine::Kind::kKeyword:
      command_.add(line);
      break;
    case BuildingLine::Kind::kEnd:
      command_.end();
      break;
  }
}

void CommandReader::takeCopied(std::string_view lines) {
  const auto begin = static_cast<std::size_t>(lines.data() - original_.text().data());
  const auto& known = original_.lines();
  while (nextCopied_ < known.size() && known[nextCopied_].begin < begin) ++nextCopied_;
  for (; nextCopied_ < known.size() && known[nextCopied_].begin < begin + lines.size();
       ++nextCopied_) {
    take(known[nextCopied_]);
  }
}

/// The last command; its keywords are all there.
void CommandReader::endCommand() {
  if (command_.type() != CommandType::kOther) take_(command_);
}

BuildingReader::BuildingReader(const OriginalBuilding& original, const Plan& plan,
                               std::vector<Bay> bays, Names names)
    : original_(original),
      keepsNames_(names == Names::kKept),
      outlines_(plan.outlines.size()),
      polygons_(original.polygons()) {
  building_.bays = std::move(bays);
  building_.surfaces.reserve(original.surfaces());
  building_.windows.reserve(original.windows().size());
}

void BuildingReader::take(const ReadCommand& command) {
  switch (command.type()) {
    case CommandType::kPolygon:
      return addPolygon(command);
    case CommandType::kFloor:
      return addFloor(command);
    case CommandType::kSpace:
      return addSpace(command);
    case CommandType::kInteriorWall:
    case CommandType::kOtherWall:
      return addSurface(command);
    case CommandType::kWindow:
      return addWindow(command);
    case CommandType::kOther:
      return;
  }
}

/// Of polygons of one name the first counts.
void BuildingReader::addPolygon(const ReadCommand& command) {
  Polygon& polygon = command.named().polygon >= 0
                         ? polygons_[static_cast<std::size_t>(command.named().polygon)]
                         : otherPolygons_[command.name()];
  if (polygon.there) return;
  polygon.there = true;
  if (polygonsRead_ < outlines_) polygon.outline = static_cast<int>(polygonsRead_);
  ++polygonsRead_;
  const Vertices vertices = command.vertices();
  polygon.area = areaOf(vertices);
  polygon.edges.reserve(vertices.size());
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    const Vertex& a = vertices[i];
    const Vertex& b = vertices[(i + 1) % vertices.size()];
    const int number = static_cast<int>(i) + 1;
    const auto bay = std::ranges::find_if(building_.bays, [&](const Bay& each) {
      return each.outline == polygon.outline && each.edge == number;
    });
    polygon.edges.push_back(
        {a, b, sideOf(a, b),
         std::hypot(static_cast<double>(b.x) - a.x, static_cast<double>(b.y) - a.y),
         bay != building_.bays.end() && bay->courtyard});
  }
}

void BuildingReader::addFloor(const ReadCommand& command) {
  WrittenFloor floor;
  if (keepsNames_) floor.name = command.name();
  floor.height = command.real(Keyword::kFloorHeight).value_or(0);
  floor.multiplier = multiplierOf(command);
  floor.level = building_.height();
  building_.floors.push_back(std::move(floor));
  inSpace_ = false;
  wall_ = -1;
}

void BuildingReader::addSpace(const ReadCommand& command) {
  inSpace_ = !building_.floors.empty();
  wall_ = -1;
  if (!inSpace_) return;
  WrittenSpace space;
  if (keepsNames_) space.name = command.name();
  space.floor = static_cast<int>(building_.floors.size()) - 1;
  space.height = command.real(Keyword::kHeight).value_or(building_.floors.back().height);
  space.multiplier =
      std::min(multiplierOf(command) * building_.floors.back().multiplier, kMostOften);
  polygon_ = polygonOf(command);
  if (polygon_ != nullptr) {
    space.outline = polygon_->outline;
    space.area = polygon_->area;
  }
  const Zone* const zone = command.named().zone;
  space.counted = zone != nullptr && zone->flag != 0;
  building_.spaces.push_back(std::move(space));
}

/// The one that a command names; null when it has not been there.
const BuildingReader::Polygon* BuildingReader::polygonOf(const ReadCommand& command) const {
  const Line* const line = command.find(Keyword::kPolygon);
  if (line == nullptr) return nullptr;
  if (line->named->polygon >= 0) {
    const Polygon& polygon = polygons_[static_cast<std::size_t>(line->named->polygon)];
    return polygon.there ? &polygon : nullptr;
  }
  const auto found = otherPolygons_.find(unquoted(line->line.text));
  return found == otherPolygons_.end() ? nullptr : &found->second;
}

void BuildingReader::addSurface(const ReadCommand& command) {
  if (!inSpace_) return;
  const WrittenSpace& space = building_.spaces.back();
  WrittenSurface& surface = building_.surfaces.emplace_back();
  wall_ = static_cast<int>(building_.surfaces.size()) - 1;
  if (keepsNames_) {
    surface.construction = unquoted(command.value(Keyword::kConstruction));
    surface.nextTo = unquoted(command.value(Keyword::kNextTo));
  }
  surface.space = static_cast<int>(building_.spaces.size()) - 1;
  surface.multiplier = space.multiplier;
  const Line* const location = command.find(Keyword::kLocation);
  const std::string_view where = location == nullptr ? std::string_view() : location->line.text;
  if (location != nullptr && location->line.edge > 0) {
    placeOnEdge(surface, command, location->line.edge);
  } else if (where == "TOP" || where == "BOTTOM") {
    const Polygon* const own = polygonOf(command);
    surface.area = own != nullptr ? own->area : space.area;
    surface.kind = command.type() == CommandType::kInteriorWall ? SurfaceKind::kSlab
                   : where == "TOP"                             ? SurfaceKind::kRoof
                                                                : SurfaceKind::kGround;
  } else if (const auto area = command.real(Keyword::kArea)) {
    surface.area = *area;
    surface.kind =
        command.type() == CommandType::kInteriorWall ? SurfaceKind::kInner : SurfaceKind::kOther;
  }
}

void BuildingReader::placeOnEdge(WrittenSurface& surface, const ReadCommand& command, int edge) {
  const WrittenSpace& space = building_.spaces.back();
  if (polygon_ == nullptr || edge > static_cast<int>(polygon_->edges.size())) return;
  const Edge& on = polygon_->edges[static_cast<std::size_t>(edge) - 1];
  surface.side = on.side;
  surface.x0 = on.from.x, surface.y0 = on.from.y, surface.x1 = on.to.x, surface.y1 = on.to.y;
  surface.area = on.length * space.height;
  if (command.type() == CommandType::kInteriorWall) {
    surface.kind = SurfaceKind::kPartition;
    return;
  }
  const Surface* const row = command.named().surface;
  if (row != nullptr && row->kind == -2) {
    surface.kind = SurfaceKind::kParty;
    return;
  }
  surface.kind = on.courtyard ? SurfaceKind::kCourtyard : SurfaceKind::kFacade;
}

void BuildingReader::addWindow(const ReadCommand& command) {
  if (wall_ < 0) return;
  WrittenWindow window;
  window.wall = wall_;
  window.x = command.real(Keyword::kX).value_or(0);
  window.y = command.real(Keyword::kY).value_or(0);
  window.width = command.real(Keyword::kWidth).value_or(0);
  window.height = command.real(Keyword::kHeight).value_or(0);
  window.multiplier = building_.surfaces.back().multiplier;
  if (command.named().window >= 0) {
    const OriginalWindow& original =
        original_.windows()[static_cast<std::size_t>(command.named().window)];
    window.takesCourtyard = original.courtyard;
    window.storeyHigh = original.storeyHigh;
  } else {
    window.takesCourtyard = looksIntoCourtyard(command.name());
  }
  // A wall with windows is a façade, whatever its construction.
  WrittenSurface& wall = building_.surfaces.back();
  if (wall.kind == SurfaceKind::kParty) wall.kind = SurfaceKind::kFacade;
  building_.windows.push_back(window);
}

GeneratedBuilding BuildingReader::finish(const std::vector<bool>& windowsSeen) {
  for (std::size_t i = 0; i < windowsSeen.size(); ++i) {
    const OriginalWindow& window = original_.windows()[i];
    if (windowsSeen[i] || !window.looksOut) continue;
    ++(window.courtyard ? building_.lostCourtyard : building_.lostStreet)[window.side];
  }
  return std::move(building_);
}

}  // namespace report
