#include "report/generated_building.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numeric>
#include <optional>
#include <unordered_map>

#include "core/numbers.h"
#include "core/output_lines.h"

namespace report {

namespace {

std::optional<double> readReal(std::string_view digits) {
  float number = 0;
  if (!scanReal(digits, number)) return std::nullopt;
  return number;
}

constexpr Count kMostOften = 2'147'483'647;

/// A command on its way to the building: its keywords are those that count, each the first time.
struct Command {
  CommandType type = CommandType::kOther;
  std::string_view name;
  const Named* named = nullptr;
  std::array<std::string_view, kSingleKeywords> values{};
  std::vector<std::string_view> vertices;
  bool open = false;  // its ".." is still to come

  void begin(const BuildingLine& header, const Named& itsName) {
    type = header.type;
    name = header.text;
    named = &itsName;
    values = {};
    vertices.clear();
    open = true;
  }
  void add(const BuildingLine& line) {
    if (line.keyword == Keyword::kVertex) {
      vertices.push_back(line.text);
    } else if (auto& first = values[static_cast<std::size_t>(line.keyword)];
               first.data() == nullptr) {
      first = line.text;
    }
  }
  std::string_view value(Keyword keyword) const {
    return values[static_cast<std::size_t>(keyword)];
  }
  std::optional<double> real(Keyword keyword) const { return readReal(value(keyword)); }
};

Count multiplierOf(const Command& command) {
  const double value = command.real(Keyword::kMultiplier).value_or(1);
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
Vertices verticesOf(const Command& polygon) {
  Vertices vertices;
  vertices.reserve(polygon.vertices.size());
  for (const std::string_view value : polygon.vertices) {
    const std::size_t open = value.find('(');
    const std::size_t comma = value.find(',');
    if (open >= comma || comma == std::string_view::npos) continue;
    const auto x = readReal(trimmed(value.substr(open + 1, comma - open - 1)));
    const auto y = readReal(trimmed(value.substr(comma + 1)));
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

/// A run puts the typology's text behind the building, and a line feed behind that.
std::string_view withoutTypology(std::string_view output, std::string_view typologyText) {
  if (output.ends_with('\n')) output.remove_suffix(1);
  if (output.ends_with(typologyText)) output.remove_suffix(typologyText.size());
  return output;
}

struct Polygon {
  Vertices vertices;
  int outline = -1;
};

class BuildingReader {
 public:
  BuildingReader(const OriginalBuilding& original, const Plan& plan)
      : original_(original),
        outlines_(plan.outlines.size()),
        windowsSeen_(original.windows().size(), false) {
    building_.bays = bays(PlanCells(plan));
  }

  void readText(std::string_view text) {
    forEachLine(text, [this](std::size_t, std::string_view bytes) {
      const std::optional<BuildingLine> line = readBuildingLine(bytes);
      if (!line) return;
      const bool header = line->kind == BuildingLine::Kind::kHeader;
      take(*line, header ? &original_.named(line->text) : nullptr);
    });
  }

  /// The same for lines of the template, which have been read before; ever further on.
  void readCopied(std::string_view lines) {
    const auto begin = static_cast<std::size_t>(lines.data() - original_.text().data());
    const auto& known = original_.lines();
    while (nextCopied_ < known.size() && known[nextCopied_].begin < begin) ++nextCopied_;
    for (; nextCopied_ < known.size() && known[nextCopied_].begin < begin + lines.size();
         ++nextCopied_) {
      take(known[nextCopied_].line, known[nextCopied_].named);
    }
  }

  GeneratedBuilding finish() {
    endCommand();
    countLost();
    return std::move(building_);
  }

 private:
  void take(const BuildingLine& line, const Named* named) {
    switch (line.kind) {
      case BuildingLine::Kind::kHeader:
        endCommand();
        command_.begin(line, *named);
        if (named->window >= 0) windowsSeen_[static_cast<std::size_t>(named->window)] = true;
        break;
      case BuildingLine::Kind::kKeyword:
        if (command_.open) command_.add(line);
        break;
      case BuildingLine::Kind::kEnd:
        command_.open = false;
        break;
    }
  }

  /// What the last command has become; its keywords are all there.
  void endCommand() {
    switch (command_.type) {
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

  void addPolygon(const Command& command) {
    const int index = static_cast<int>(polygons_.size());
    polygons_.try_emplace(command.name, Polygon{verticesOf(command),
                                                index < static_cast<int>(outlines_) ? index : -1});
  }

  void addFloor(const Command& command) {
    WrittenFloor floor;
    floor.name = command.name;
    floor.height = command.real(Keyword::kFloorHeight).value_or(0);
    floor.multiplier = multiplierOf(command);
    floor.level = building_.height();
    building_.floors.push_back(std::move(floor));
    inSpace_ = false;
    wall_ = -1;
  }

  void addSpace(const Command& command) {
    inSpace_ = !building_.floors.empty();
    wall_ = -1;
    if (!inSpace_) return;
    WrittenSpace space;
    space.name = command.name;
    space.floor = static_cast<int>(building_.floors.size()) - 1;
    space.height = command.real(Keyword::kHeight).value_or(building_.floors.back().height);
    space.multiplier =
        std::min(multiplierOf(command) * building_.floors.back().multiplier, kMostOften);
    polygon_ = polygonOf(command.value(Keyword::kPolygon));
    if (polygon_ != nullptr) {
      space.outline = polygon_->outline;
      space.area = areaOf(polygon_->vertices);
    }
    const Zone* const zone = command.named->zone;
    space.counted = zone != nullptr && zone->flag != 0;
    building_.spaces.push_back(std::move(space));
  }

  const Polygon* polygonOf(std::string_view name) const {
    const auto found = polygons_.find(unquoted(name));
    return found == polygons_.end() ? nullptr : &found->second;
  }

  void addSurface(const Command& command) {
    if (!inSpace_) return;
    const WrittenSpace& space = building_.spaces.back();
    WrittenSurface surface;
    surface.construction = unquoted(command.value(Keyword::kConstruction));
    surface.space = static_cast<int>(building_.spaces.size()) - 1;
    surface.multiplier = space.multiplier;
    surface.nextTo = unquoted(command.value(Keyword::kNextTo));
    const std::string_view location = command.value(Keyword::kLocation);
    if (const int edge = edgeNumber(location); edge > 0) {
      placeOnEdge(surface, command, edge);
    } else if (location == "TOP" || location == "BOTTOM") {
      const Polygon* own = polygonOf(command.value(Keyword::kPolygon));
      surface.area = own != nullptr ? areaOf(own->vertices) : space.area;
      surface.kind = command.type == CommandType::kInteriorWall ? SurfaceKind::kSlab
                     : location == "TOP"                        ? SurfaceKind::kRoof
                                                                : SurfaceKind::kGround;
    } else if (const auto area = command.real(Keyword::kArea)) {
      surface.area = *area;
      surface.kind =
          command.type == CommandType::kInteriorWall ? SurfaceKind::kInner : SurfaceKind::kOther;
    }
    wall_ = static_cast<int>(building_.surfaces.size());
    building_.surfaces.push_back(std::move(surface));
  }

  void placeOnEdge(WrittenSurface& surface, const Command& command, int edge) {
    const WrittenSpace& space = building_.spaces.back();
    if (polygon_ == nullptr || edge > static_cast<int>(polygon_->vertices.size())) return;
    const auto from = static_cast<std::size_t>(edge) - 1;
    const Vertex& a = polygon_->vertices[from];
    const Vertex& b = polygon_->vertices[(from + 1) % polygon_->vertices.size()];
    surface.side = sideOf(a, b);
    surface.x0 = a.x, surface.y0 = a.y, surface.x1 = b.x, surface.y1 = b.y;
    surface.area = std::hypot(surface.x1 - surface.x0, surface.y1 - surface.y0) * space.height;
    if (command.type == CommandType::kInteriorWall) {
      surface.kind = SurfaceKind::kPartition;
      return;
    }
    const Surface* const row = command.named->surface;
    if (row != nullptr && row->kind == -2) {
      surface.kind = SurfaceKind::kParty;
      return;
    }
    const auto bay = std::ranges::find_if(building_.bays, [&](const Bay& each) {
      return each.outline == space.outline && each.edge == edge;
    });
    surface.kind = bay != building_.bays.end() && bay->courtyard ? SurfaceKind::kCourtyard
                                                                 : SurfaceKind::kFacade;
  }

  void addWindow(const Command& command) {
    if (wall_ < 0) return;
    WrittenWindow window;
    window.wall = wall_;
    window.x = command.real(Keyword::kX).value_or(0);
    window.y = command.real(Keyword::kY).value_or(0);
    window.width = command.real(Keyword::kWidth).value_or(0);
    window.height = command.real(Keyword::kHeight).value_or(0);
    window.multiplier = building_.surfaces.back().multiplier;
    window.takesCourtyard = command.name.find("Med") != std::string_view::npos;
    window.storeyHigh = command.named->window >= 0 && originalOf(command).storeyHigh;
    // A wall with windows is a façade, whatever its construction.
    WrittenSurface& wall = building_.surfaces.back();
    if (wall.kind == SurfaceKind::kParty) wall.kind = SurfaceKind::kFacade;
    building_.windows.push_back(window);
  }

  const OriginalWindow& originalOf(const Command& window) const {
    return original_.windows()[static_cast<std::size_t>(window.named->window)];
  }

  void countLost() {
    for (std::size_t i = 0; i < windowsSeen_.size(); ++i) {
      const OriginalWindow& window = original_.windows()[i];
      if (windowsSeen_[i] || !window.looksOut) continue;
      ++(window.courtyard ? building_.lostCourtyard : building_.lostStreet)[window.side];
    }
  }

  const OriginalBuilding& original_;
  std::size_t outlines_;
  std::size_t nextCopied_ = 0;     // of the template's lines
  std::vector<bool> windowsSeen_;  // of the template's
  Command command_;
  GeneratedBuilding building_;
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

GeneratedBuilding readBuilding(const OutputLines& output, std::string_view typologyText,
                               const OriginalBuilding& original, const Plan& plan) {
  BuildingReader reader(original, plan);
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
  BuildingReader reader(known, plan);
  reader.readText(output);
  GeneratedBuilding building = reader.finish();
  const std::vector<WrittenCommand> before = readCommands(original);
  const std::vector<WrittenCommand> after = readCommands(output);
  building.commands = countCommands(before, after);
  building.nightFactor = nightFactorOf(before, after);
  return building;
}

}  // namespace report
