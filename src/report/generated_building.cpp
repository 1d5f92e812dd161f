#include "report/generated_building.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>
#include <unordered_map>

#include "generator/orientation.h"
#include "report/plan_cells.h"

namespace report {

namespace {

constexpr double kStorey = 3.0;  // m, of a window that takes the courtyard's data

bool isWall(std::string_view type) {
  return type == "EXTERIOR-WALL" || type == "INTERIOR-WALL" || type == "UNDERGROUND-WALL" ||
         type == "ROOF" || type == "TROMBE-WALL";
}

constexpr Count kMostOften = 2'147'483'647;

Count multiplierOf(const WrittenCommand& command) {
  const double value = command.real("MULTIPLIER").value_or(1);
  if (!(value >= 1)) return 1;
  return std::llround(std::min(value, static_cast<double>(kMostOften)));
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

/// The points of a POLYGON; those that are none are left out.
Vertices verticesOf(const WrittenCommand& polygon) {
  Vertices vertices;
  for (const auto& [key, value] : polygon.keywords) {
    const std::size_t open = value.find('(');
    const std::size_t comma = value.find(',');
    if (!key.starts_with('V') || open >= comma || comma == std::string_view::npos) continue;
    WrittenCommand pair;
    pair.keywords = {{"x", trimmed(value.substr(open + 1, comma - open - 1))},
                     {"y", trimmed(value.substr(comma + 1))}};
    const auto x = pair.real("x");
    const auto y = pair.real("y");
    if (x && y) vertices.push_back({static_cast<float>(*x), static_cast<float>(*y)});
  }
  return vertices;
}

/// The first hourly value of the schedule that the run rewrote.
double nightFactorOf(const std::vector<WrittenCommand>& original,
                     const std::vector<WrittenCommand>& written) {
  std::unordered_map<std::string_view, std::string_view> before;
  for (const WrittenCommand& command : original) before.try_emplace(command.name, command.text);
  for (const WrittenCommand& command : written) {
    const auto found = before.find(command.name);
    if (command.type != "DAY-SCHEDULE" || found == before.end() || found->second == command.text) {
      continue;
    }
    const std::string_view values = command.value("VALUES");
    const std::size_t open = values.find('(');
    WrittenCommand first;
    if (open != values.npos) first.keywords = {{"first", trimmed(values.substr(open + 1))}};
    return first.real("first").value_or(0);
  }
  return 0;
}

/// Where a counter-clockwise edge looks.
Facade sideOf(const Vertex& a, const Vertex& b) {
  const double dx = static_cast<double>(b.x) - a.x, dy = static_cast<double>(b.y) - a.y;
  if (std::abs(dx) >= std::abs(dy)) return dx >= 0 ? kSouth : kNorth;
  return dy >= 0 ? kEast : kWest;
}

struct Polygon {
  Vertices vertices;
  int outline = -1;
};

class BuildingReader {
 public:
  BuildingReader(const TableFile& table, const Plan& plan,
                 const std::vector<WrittenCommand>& original)
      : bays_(bays(PlanCells(plan))), outlines_(plan.outlines.size()) {
    for (const Surface& surface : table.surfaces) {
      table_.try_emplace(unquoted(trimmed(surface.name)), &surface);
    }
    for (const Zone& zone : table.zones) zones_.try_emplace(unquoted(trimmed(zone.name)), &zone);
    for (const WrittenCommand& command : original) {
      if (command.type == "WINDOW") originalWindows_.try_emplace(command.name, &command);
    }
  }

  GeneratedBuilding read(const std::vector<WrittenCommand>& written) {
    for (const WrittenCommand& command : written) take(command);
    countLost(written);
    return std::move(building_);
  }

 private:
  void take(const WrittenCommand& command) {
    if (command.type == "POLYGON") {
      const int index = static_cast<int>(polygons_.size());
      polygons_.try_emplace(
          command.name,
          Polygon{verticesOf(command), index < static_cast<int>(outlines_) ? index : -1});
    } else if (command.type == "FLOOR") {
      addFloor(command);
    } else if (command.type == "SPACE") {
      addSpace(command);
    } else if (isWall(command.type)) {
      addSurface(command);
    } else if (command.type == "WINDOW") {
      addWindow(command);
    }
  }

  void addFloor(const WrittenCommand& command) {
    WrittenFloor floor;
    floor.name = command.name;
    floor.height = command.real("FLOOR-HEIGHT").value_or(0);
    floor.multiplier = multiplierOf(command);
    floor.level = building_.height();
    building_.floors.push_back(std::move(floor));
    inSpace_ = false;
    wall_ = -1;
  }

  void addSpace(const WrittenCommand& command) {
    inSpace_ = !building_.floors.empty();
    wall_ = -1;
    if (!inSpace_) return;
    WrittenSpace space;
    space.name = command.name;
    space.floor = static_cast<int>(building_.floors.size()) - 1;
    space.height = command.real("HEIGHT").value_or(building_.floors.back().height);
    space.multiplier =
        std::min(multiplierOf(command) * building_.floors.back().multiplier, kMostOften);
    polygon_ = polygonOf(command.value("POLYGON"));
    if (polygon_ != nullptr) {
      space.outline = polygon_->outline;
      space.area = areaOf(polygon_->vertices);
    }
    const auto zone = zones_.find(command.name);
    space.counted = zone != zones_.end() && zone->second->flag != 0;
    building_.spaces.push_back(std::move(space));
  }

  const Polygon* polygonOf(std::string_view name) const {
    const auto found = polygons_.find(unquoted(name));
    return found == polygons_.end() ? nullptr : &found->second;
  }

  void addSurface(const WrittenCommand& command) {
    if (!inSpace_) return;
    const WrittenSpace& space = building_.spaces.back();
    WrittenSurface surface;
    surface.name = command.name;
    surface.construction = unquoted(command.value("CONSTRUCTION"));
    surface.space = static_cast<int>(building_.spaces.size()) - 1;
    surface.multiplier = space.multiplier;
    surface.nextTo = unquoted(command.value("NEXT-TO"));
    const std::string_view location = command.value("LOCATION");
    if (const int edge = edgeNumber(location); edge > 0) {
      placeOnEdge(surface, command, edge);
    } else if (location == "TOP" || location == "BOTTOM") {
      const Polygon* own = polygonOf(command.value("POLYGON"));
      surface.area = own != nullptr ? areaOf(own->vertices) : space.area;
      surface.kind = command.type == "INTERIOR-WALL" ? SurfaceKind::kSlab
                     : location == "TOP"             ? SurfaceKind::kRoof
                                                     : SurfaceKind::kGround;
    } else if (const auto area = command.real("AREA")) {
      surface.area = *area;
      surface.kind = command.type == "INTERIOR-WALL" ? SurfaceKind::kInner : SurfaceKind::kOther;
    }
    wall_ = static_cast<int>(building_.surfaces.size());
    building_.surfaces.push_back(std::move(surface));
  }

  void placeOnEdge(WrittenSurface& surface, const WrittenCommand& command, int edge) {
    const WrittenSpace& space = building_.spaces.back();
    if (polygon_ == nullptr || edge > static_cast<int>(polygon_->vertices.size())) return;
    const auto from = static_cast<std::size_t>(edge) - 1;
    const Vertex& a = polygon_->vertices[from];
    const Vertex& b = polygon_->vertices[(from + 1) % polygon_->vertices.size()];
    surface.side = sideOf(a, b);
    surface.x0 = a.x, surface.y0 = a.y, surface.x1 = b.x, surface.y1 = b.y;
    surface.area = std::hypot(surface.x1 - surface.x0, surface.y1 - surface.y0) * space.height;
    if (command.type == "INTERIOR-WALL") {
      surface.kind = SurfaceKind::kPartition;
      return;
    }
    const auto row = table_.find(command.name);
    if (row != table_.end() && row->second->kind == -2) {
      surface.kind = SurfaceKind::kParty;
      return;
    }
    const auto bay = std::ranges::find_if(
        bays_, [&](const Bay& each) { return each.outline == space.outline && each.edge == edge; });
    surface.kind =
        bay != bays_.end() && bay->courtyard ? SurfaceKind::kCourtyard : SurfaceKind::kFacade;
  }

  void addWindow(const WrittenCommand& command) {
    if (wall_ < 0) return;
    WrittenWindow window;
    window.name = command.name;
    window.wall = wall_;
    window.x = command.real("X").value_or(0);
    window.y = command.real("Y").value_or(0);
    window.width = command.real("WIDTH").value_or(0);
    window.height = command.real("HEIGHT").value_or(0);
    window.multiplier = building_.surfaces.back().multiplier;
    window.takesCourtyard = command.name.find("Med") != std::string_view::npos;
    const auto original = originalWindows_.find(command.name);
    window.storeyHigh = original != originalWindows_.end() &&
                        original->second->real("HEIGHT").value_or(0) >= kStorey;
    // A wall with windows is a façade, whatever its construction.
    WrittenSurface& wall = building_.surfaces.back();
    if (wall.kind == SurfaceKind::kParty) wall.kind = SurfaceKind::kFacade;
    building_.windows.push_back(std::move(window));
  }

  void countLost(const std::vector<WrittenCommand>& written) {
    std::unordered_map<std::string_view, bool> there;
    for (const WrittenCommand& command : written) there[command.name] = true;
    for (const auto& [name, command] : originalWindows_) {
      const auto row = table_.find(name);
      if (there.contains(name) || row == table_.end()) continue;
      const int orientation = classifyOrientation(row->second->azimuth, row->second->tilt);
      if (orientation < 0) continue;
      const bool courtyard = name.find("Med") != std::string_view::npos;
      ++(courtyard ? building_.lostCourtyard : building_.lostStreet)[facadeIndex(orientation)];
    }
  }

  GeneratedBuilding building_;
  std::vector<Bay> bays_;
  std::size_t outlines_;
  std::unordered_map<std::string_view, const Surface*> table_;
  std::unordered_map<std::string_view, const Zone*> zones_;
  std::unordered_map<std::string_view, const WrittenCommand*> originalWindows_;
  std::unordered_map<std::string_view, Polygon> polygons_;
  const Polygon* polygon_ = nullptr;  // of the space
  bool inSpace_ = false;
  int wall_ = -1;
};

}  // namespace

bool GeneratedBuilding::followsPlan() const {
  return std::ranges::all_of(spaces, [](const WrittenSpace& space) { return space.outline >= 0; });
}

Count GeneratedBuilding::storeys() const {
  return std::accumulate(
      floors.begin(), floors.end(), Count{0},
      [](Count sum, const WrittenFloor& floor) { return sum + floor.multiplier; });
}

double GeneratedBuilding::height() const {
  return std::accumulate(floors.begin(), floors.end(), 0.0,
                         [](double sum, const WrittenFloor& floor) {
                           return sum + floor.height * static_cast<double>(floor.multiplier);
                         });
}

GeneratedBuilding readBuilding(std::string_view output, std::string_view typologyText,
                               std::string_view original, const TableFile& table,
                               const Plan& plan) {
  if (output.ends_with('\n')) output.remove_suffix(1);
  if (output.ends_with(typologyText)) output.remove_suffix(typologyText.size());
  const std::vector<WrittenCommand> before = readCommands(original);
  const std::vector<WrittenCommand> after = readCommands(output);
  GeneratedBuilding building = BuildingReader(table, plan, before).read(after);
  building.commands = countCommands(before, after);
  building.nightFactor = nightFactorOf(before, after);
  return building;
}

}  // namespace report
