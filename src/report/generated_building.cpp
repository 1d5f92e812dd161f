#include "report/generated_building.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <unordered_map>

#include "core/output_lines.h"
#include "report/fingerprint.h"
#include "report/read_command.h"

namespace report {

namespace {

constexpr Count kMostOften = 2'147'483'647;

using Line = OriginalBuilding::Line;

Count multiplierOf(const ReadCommand& command) {
  const double value = command.real(Keyword::kMultiplier).value_or(1);
  if (!(value >= 1)) return 1;
  return std::llround(std::min(value, static_cast<double>(kMostOften)));
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

/// A run puts the typology's text behind the building, and a line feed behind that.
std::string_view withoutTypology(std::string_view output, std::string_view typologyText) {
  if (output.ends_with('\n')) output.remove_suffix(1);
  if (output.ends_with(typologyText)) output.remove_suffix(typologyText.size());
  return output;
}

/// An edge of a polygon: what all walls on it have in common.
struct Edge {
  Vertex from, to;
  Facade side = kSouth;
  double length = 0;
  bool courtyard = false;
};

struct Polygon {
  bool there = false;
  int outline = -1;
  double area = 0;
  std::vector<Edge> edges;
};

class BuildingReader {
 public:
  BuildingReader(const OriginalBuilding& original, const Plan& plan, Names names)
      : original_(original),
        keepsNames_(names == Names::kKept),
        outlines_(plan.outlines.size()),
        windowsSeen_(original.windows().size(), false),
        polygons_(original.polygons()) {
    building_.bays = bays(PlanCells(plan));
    building_.surfaces.reserve(original.surfaces());
    building_.windows.reserve(original.windows().size());
  }

  /// Lines that the run has put together. Many pieces are there again and again, and read once.
  void readText(std::string_view text) {
    if (text.empty()) return;
    const auto [known, isNew] = pieces_.try_emplace(text);
    if (isNew) known->second = original_.linesOf(text);
    for (const Line& line : known->second) take(line);
  }

  /// The same for lines of the template, which have been read before; ever further on.
  void readCopied(std::string_view lines) {
    const auto begin = static_cast<std::size_t>(lines.data() - original_.text().data());
    const auto& known = original_.lines();
    while (nextCopied_ < known.size() && known[nextCopied_].begin < begin) ++nextCopied_;
    for (; nextCopied_ < known.size() && known[nextCopied_].begin < begin + lines.size();
         ++nextCopied_) {
      take(known[nextCopied_]);
    }
  }

  GeneratedBuilding finish() {
    endCommand();
    countLost();
    return std::move(building_);
  }

 private:
  void take(const Line& line) {
    switch (line.line.kind) {
      case BuildingLine::Kind::kHeader:
        endCommand();
        command_.begin(line);
        if (line.named->window >= 0) {
          windowsSeen_[static_cast<std::size_t>(line.named->window)] = true;
        }
        break;
      case BuildingLine::Kind::kKeyword:
        command_.add(line);
        break;
      case BuildingLine::Kind::kEnd:
        command_.end();
        break;
    }
  }

  /// What the last command has become; its keywords are all there.
  void endCommand() {
    switch (command_.type()) {
      case CommandType::kPolygon:
        addPolygon(command_);
        break;
      case CommandType::kFloor:
        addFloor(command_);
        break;
      case CommandType::kSpace:
        addSpace(command_);
        break;
      case CommandType::kInteriorWall:
      case CommandType::kOtherWall:
        addSurface(command_);
        break;
      case CommandType::kWindow:
        addWindow(command_);
        break;
      case CommandType::kOther:
        break;
    }
  }

  /// Of polygons of one name the first counts.
  void addPolygon(const ReadCommand& command) {
    Polygon& polygon = command.named().polygon >= 0
                           ? polygons_[static_cast<std::size_t>(command.named().polygon)]
                           : otherPolygons_[command.name()];
    if (polygon.there) return;
    polygon.there = true;
    if (polygonsRead_ < outlines_) polygon.outline = static_cast<int>(polygonsRead_);
    ++polygonsRead_;
    polygon.area = areaOf(command.vertices());
    const std::size_t count = command.vertices().size();
    for (std::size_t i = 0; i < count; ++i) {
      const Vertex& a = command.vertices()[i];
      const Vertex& b = command.vertices()[(i + 1) % count];
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

  void addFloor(const ReadCommand& command) {
    WrittenFloor floor;
    if (keepsNames_) floor.name = command.name();
    floor.height = command.real(Keyword::kFloorHeight).value_or(0);
    floor.multiplier = multiplierOf(command);
    floor.level = building_.height();
    building_.floors.push_back(std::move(floor));
    inSpace_ = false;
    wall_ = -1;
  }

  void addSpace(const ReadCommand& command) {
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
  const Polygon* polygonOf(const ReadCommand& command) const {
    const Line* const line = command.find(Keyword::kPolygon);
    if (line == nullptr) return nullptr;
    if (line->named->polygon >= 0) {
      const Polygon& polygon = polygons_[static_cast<std::size_t>(line->named->polygon)];
      return polygon.there ? &polygon : nullptr;
    }
    const auto found = otherPolygons_.find(unquoted(line->line.text));
    return found == otherPolygons_.end() ? nullptr : &found->second;
  }

  void addSurface(const ReadCommand& command) {
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

  void placeOnEdge(WrittenSurface& surface, const ReadCommand& command, int edge) {
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

  void addWindow(const ReadCommand& command) {
    if (wall_ < 0) return;
    WrittenWindow window;
    window.wall = wall_;
    window.x = command.real(Keyword::kX).value_or(0);
    window.y = command.real(Keyword::kY).value_or(0);
    window.width = command.real(Keyword::kWidth).value_or(0);
    window.height = command.real(Keyword::kHeight).value_or(0);
    window.multiplier = building_.surfaces.back().multiplier;
    if (command.named().window >= 0) {
      const OriginalWindow& original = originalOf(command);
      window.takesCourtyard = original.courtyard;
      window.storeyHigh = original.storeyHigh;
    } else {
      window.takesCourtyard = command.name().find("Med") != std::string_view::npos;
    }
    // A wall with windows is a façade, whatever its construction.
    WrittenSurface& wall = building_.surfaces.back();
    if (wall.kind == SurfaceKind::kParty) wall.kind = SurfaceKind::kFacade;
    building_.windows.push_back(window);
  }

  const OriginalWindow& originalOf(const ReadCommand& window) const {
    return original_.windows()[static_cast<std::size_t>(window.named().window)];
  }

  void countLost() {
    for (std::size_t i = 0; i < windowsSeen_.size(); ++i) {
      const OriginalWindow& window = original_.windows()[i];
      if (windowsSeen_[i] || !window.looksOut) continue;
      ++(window.courtyard ? building_.lostCourtyard : building_.lostStreet)[window.side];
    }
  }

  const OriginalBuilding& original_;
  bool keepsNames_;
  std::size_t outlines_;
  std::size_t nextCopied_ = 0;     // of the template's lines
  std::vector<bool> windowsSeen_;  // of the template's
  ReadCommand command_;
  GeneratedBuilding building_;
  std::unordered_map<std::string_view, std::vector<Line>, TextHash> pieces_;  // put together
  std::vector<Polygon> polygons_;                                             // of the template
  std::unordered_map<std::string_view, Polygon> otherPolygons_;
  std::size_t polygonsRead_ = 0;
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

GeneratedBuilding readBuilding(const OutputLines& output, std::string_view typologyText,
                               const OriginalBuilding& original, const Plan& plan, Names names) {
  BuildingReader reader(original, plan, names);
  output.handOver([&](std::string_view lines, OutputLines::Origin origin) {
    switch (origin) {
      case OutputLines::Origin::kCopied:
        reader.readCopied(lines);
        break;
      case OutputLines::Origin::kOwn:
        reader.readText(lines);
        break;
      case OutputLines::Origin::kOwnEnd:
        reader.readText(withoutTypology(lines, typologyText));
        break;
    }
    return true;
  });
  return reader.finish();
}

GeneratedBuilding readBuilding(std::string_view output, std::string_view typologyText,
                               std::string_view original, const TableFile& table,
                               const Plan& plan) {
  output = withoutTypology(output, typologyText);
  const OriginalBuilding known(original, table);
  BuildingReader reader(known, plan, Names::kKept);
  reader.readText(output);
  GeneratedBuilding building = reader.finish();
  const std::vector<WrittenCommand> before = readCommands(original);
  const std::vector<WrittenCommand> after = readCommands(output);
  building.commands = countCommands(before, after);
  building.nightFactor = nightFactorOf(before, after);
  return building;
}

}  // namespace report
