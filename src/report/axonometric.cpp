#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

#include "report/building_views.h"
#include "report/plan_cells.h"
#include "report/sheet.h"
#include "report/words.h"

// Isometric: seen from the south-west, verticals vertical, no vanishing points. All walls have the
// same height, so nothing hides the roof; walls are painted from the back to the front, cell by
// cell of the plan's grid, whose order is exact.

namespace report {

namespace {

constexpr double kPictureWidth = 150;   // mm, at most
constexpr double kPictureHeight = 130;  // mm, at most
constexpr double kSeam = 0.2;           // mm
constexpr double kArrowAir = 5;         // mm, between the building and the north arrow

struct Storey {
  int floor;
  double level, height;
};

class View {
 public:
  View(const GeneratedBuilding& building, const Plan& plan, double giro)
      : building_(building), cells_(plan), giro_(giro), turn_(giro * std::numbers::pi / 180) {
    for (std::size_t i = 0; i < building.floors.size(); ++i) {
      const WrittenFloor& floor = building.floors[i];
      for (Count k = 0; k < floor.multiplier && storeys_.size() < kMostStoreys; ++k) {
        storeys_.push_back({static_cast<int>(i),
                            floor.level + static_cast<double>(k) * floor.height, floor.height});
      }
    }
    top_ = storeys_.empty() ? 0 : storeys_.back().level + storeys_.back().height;
    setScale();
  }

  Drawing draw() {
    addWalls();
    addRoof();
    addNorthOnGround();
    const Box bounds = boundsOf(drawing_);
    drawing_.shift(3 - bounds.x0, 3 - bounds.y0);
    drawing_.width = bounds.width() + 6;
    drawing_.height = bounds.height() + 6;
    drawing_.title = "Vista axonométrica desde el suroeste";
    drawing_.description = "El bloque con sus " + std::to_string(storeys_.size()) +
                           " plantas y todas sus ventanas, girado " + degrees(giro_) +
                           ". La fachada principal mira al " +
                           std::string(directionName(realAzimuth(kSouth, giro_))) + ".";
    return std::move(drawing_);
  }

 private:
  /// Metres to paper.
  Point at(double x, double y, double z) const {
    const double e = x * std::cos(turn_) + y * std::sin(turn_);
    const double n = -x * std::sin(turn_) + y * std::cos(turn_);
    const double elevation = std::atan(1 / std::numbers::sqrt2);  // 35,26 degrees
    return {k_ * (e - n) / std::numbers::sqrt2,
            -k_ * (z * std::cos(elevation) + (e + n) / std::numbers::sqrt2 * std::sin(elevation))};
  }

  void setScale() {
    k_ = 1;
    Box box{1e9, 1e9, -1e9, -1e9};
    for (const double x : {cells_.x(0), cells_.x(cells_.columns())}) {
      for (const double y : {cells_.y(0), cells_.y(cells_.rows())}) {
        for (const double z : {0.0, top_}) {
          const Point p = at(x, y, z);
          box = {std::min(box.x0, p.x), std::min(box.y0, p.y), std::max(box.x1, p.x),
                 std::max(box.y1, p.y)};
        }
      }
    }
    k_ = std::min(kPictureWidth / box.width(), kPictureHeight / box.height());
  }

  /// Towards east and north, of the outward normal of a side after the turn.
  Point normal(Facade side) const {
    const double azimuth = realAzimuth(side, giro_) * std::numbers::pi / 180;
    return {std::sin(azimuth), std::cos(azimuth)};
  }

  void addWalls() {
    std::vector<WallPiece> pieces;
    for (const WallPiece& piece : wallPieces(cells_)) {
      const Point out = normal(piece.side);
      if (piece.kind != WallKind::kPartition && out.x + out.y < -1e-6) pieces.push_back(piece);
    }
    // The viewer stands in the south-west: what is farther along the cell's axes comes first.
    const double c = std::cos(turn_), s = std::sin(turn_);
    const double alongX = c - s, alongY = s + c;  // how much farther a step along x or y is
    const auto order = [](int index, double away) { return away > 0 ? -index : index; };
    // First by the axis that leads farther away: of the other one, when the view runs across it,
    // rounding would decide.
    const bool columnsFirst = std::abs(alongX) > std::abs(alongY);
    std::ranges::stable_sort(pieces, {}, [&](const WallPiece& piece) {
      const int row = order(piece.row, alongY), column = order(piece.column, alongX);
      return columnsFirst ? std::pair(column, row) : std::pair(row, column);
    });
    for (const WallPiece& piece : pieces) addWall(piece, pieces);
  }

  void addWall(const WallPiece& w, const std::vector<WallPiece>& all) {
    const Point out = normal(w.side);
    const bool lit = out.x - out.y < 0;  // the light comes from the left
    drawing_.area(
        lit ? Sign::kLitWall : Sign::kShadedWall,
        {at(w.x0, w.y0, 0), at(w.x1, w.y1, 0), at(w.x1, w.y1, top_), at(w.x0, w.y0, top_)});
    Shape slabs{Sign::kStoreyLine, {}, false};
    for (const Storey& storey : storeys_) {
      if (storey.level > 0) {
        slabs.lines.push_back({at(w.x0, w.y0, storey.level), at(w.x1, w.y1, storey.level)});
      }
    }
    if (!slabs.lines.empty()) drawing_.shapes.push_back(std::move(slabs));
    addPanes(w);
    Shape edges{Sign::kOutline, {{at(w.x0, w.y0, 0), at(w.x1, w.y1, 0)}}, false};
    const auto goesOn = [&](double x, double y, bool atStart) {
      return std::ranges::any_of(all, [&](const WallPiece& other) {
        const double ox = atStart ? other.x1 : other.x0, oy = atStart ? other.y1 : other.y0;
        return other.side == w.side && std::abs(ox - x) + std::abs(oy - y) < 1e-6;
      });
    };
    if (!goesOn(w.x0, w.y0, true)) edges.lines.push_back({at(w.x0, w.y0, 0), at(w.x0, w.y0, top_)});
    if (!goesOn(w.x1, w.y1, false)) {
      edges.lines.push_back({at(w.x1, w.y1, 0), at(w.x1, w.y1, top_)});
    }
    drawing_.shapes.push_back(std::move(edges));
  }

  /// The part of every window that lies on this piece of wall.
  void addPanes(const WallPiece& w) {
    Shape panes{Sign::kPane, {}, true};
    const double length = std::hypot(w.x1 - w.x0, w.y1 - w.y0);
    const double dx = (w.x1 - w.x0) / length, dy = (w.y1 - w.y0) / length;
    for (const WrittenWindow& window : building_.windows) {
      const WrittenSurface& wall = building_.surfaces[static_cast<std::size_t>(window.wall)];
      if (wall.side != w.side || wall.kind == SurfaceKind::kPartition ||
          std::abs((wall.x0 - w.x0) * dy - (wall.y0 - w.y0) * dx) > 2e-3) {
        continue;  // on another line
      }
      const double start = (wall.x0 - w.x0) * dx + (wall.y0 - w.y0) * dy;
      const double begin = start + window.x, end = begin + window.width;
      if (std::min(length, end) - std::max(0.0, begin) < 1e-6) continue;
      // Where the window goes on over the next piece they overlap, or the seam would be seen.
      const double from = std::max(-kSeam / k_, begin);
      const double to = std::min(length + kSeam / k_, end);
      const int floor = building_.spaces[static_cast<std::size_t>(wall.space)].floor;
      for (const Storey& storey : storeys_) {
        if (storey.floor != floor) continue;
        const double low = storey.level + window.y;
        const double high = std::min(low + window.height, top_);
        const auto point = [&](double u, double z) { return at(w.x0 + u * dx, w.y0 + u * dy, z); };
        panes.lines.push_back(
            {point(from, low), point(to, low), point(to, high), point(from, high)});
      }
    }
    if (!panes.lines.empty()) drawing_.shapes.push_back(std::move(panes));
  }

  void addRoof() {
    Shape roof{Sign::kRoof, {}, true};
    for (const Outline& outline : cells_.plan().outlines) {
      if (outline.role != Role::kDwelling && outline.role != Role::kStair) continue;
      std::vector<Point> corners;
      for (const Vertex& v : outline.vertices) corners.push_back(at(v.x, v.y, top_));
      roof.lines.push_back(std::move(corners));
    }
    drawing_.shapes.push_back(std::move(roof));
    Shape edges{Sign::kOutline, {}, false};
    for (const WallPiece& piece : wallPieces(cells_)) {
      if (piece.kind == WallKind::kPartition) continue;
      edges.lines.push_back({at(piece.x0, piece.y0, top_), at(piece.x1, piece.y1, top_)});
    }
    drawing_.shapes.push_back(std::move(edges));
  }

  /// Lies on the ground, at the right of the building's foot. North is up and to the left, always,
  /// since the viewer does not move.
  void addNorthOnGround() {
    const double sine = std::sin(std::atan(1 / std::numbers::sqrt2));
    const auto on = [&](double east, double north) {
      return Point{(east - north) / std::numbers::sqrt2,
                   -(east + north) / std::numbers::sqrt2 * sine};
    };
    Drawing arrow;
    arrow.shapes.push_back(
        {Sign::kNorth, {{on(0, 0), on(0, 13)}, {on(-1.8, 8.5), on(0, 13), on(1.8, 8.5)}}, false});
    const Point head = on(0, 17.5);
    arrow.labels.push_back(
        {{head.x, head.y + kLarge / 2}, kLarge, Anchor::kMiddle, false, false, "N"});
    const Box size = boundsOf(arrow);
    const double low = boundsOf(drawing_).y1;
    arrow.shift(rightEnd(low - size.height() - kArrowAir, low) + kArrowAir - size.x0,
                low - size.y1);
    std::ranges::move(arrow.shapes, std::back_inserter(drawing_.shapes));
    std::ranges::move(arrow.labels, std::back_inserter(drawing_.labels));
  }

  /// How far to the right the drawing reaches between two heights on the paper.
  double rightEnd(double top, double bottom) const {
    double right = -1e9;
    for (const Shape& shape : drawing_.shapes) {
      for (const std::vector<Point>& line : shape.lines) {
        for (std::size_t i = 0; i < line.size(); ++i) {
          const Point& a = line[i];
          const Point& b = line[(i + 1) % line.size()];
          if (std::max(a.y, b.y) < top || std::min(a.y, b.y) > bottom) continue;
          for (const double y : {top, bottom}) {
            if ((a.y - y) * (b.y - y) >= 0) continue;
            right = std::max(right, a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y));
          }
          for (const Point& p : {a, b}) {
            if (p.y >= top && p.y <= bottom) right = std::max(right, p.x);
          }
        }
      }
    }
    return right;
  }

  const GeneratedBuilding& building_;
  PlanCells cells_;
  double giro_, turn_;
  std::vector<Storey> storeys_;
  double top_ = 0;
  double k_ = 1;
  Drawing drawing_;
};

}  // namespace

Drawing axonometric(const GeneratedBuilding& building, const Plan& plan, double giro) {
  return View(building, plan, giro).draw();
}

}  // namespace report
