#include "report/plan_walls.h"

#include <cmath>

#include "typology/tipo.h"

namespace report {

namespace {

constexpr double kBayMark = 1.5;  // mm

Sign signOf(const PlanSheet& sheet, const WallPiece& piece) {
  if (piece.kind == WallKind::kPartition) return Sign::kPartition;
  if (piece.kind == WallKind::kStreet && sheet.party[static_cast<std::size_t>(piece.side)]) {
    return Sign::kParty;
  }
  return Sign::kFacade;
}

/// Lengthens the line that ends where this one begins, or the other way round.
void addJoined(Shape& shape, Point a, Point b) {
  const auto same = [](Point p, Point q) {
    return std::abs(p.x - q.x) + std::abs(p.y - q.y) < 1e-6;
  };
  const auto straight = [](Point p, Point q, Point r) {
    return std::abs((q.x - p.x) * (r.y - p.y) - (q.y - p.y) * (r.x - p.x)) < 1e-6;
  };
  for (std::vector<Point>& line : shape.lines) {
    if (!straight(line.front(), line.back(), a) || !straight(line.front(), line.back(), b)) {
      continue;
    }
    if (same(line.back(), a)) {
      line.back() = b;
      return;
    }
    if (same(line.front(), b)) {
      line.front() = a;
      return;
    }
  }
  shape.lines.push_back({a, b});
}

/// The neighbours' walls that close courtyards at the sides.
void addNeighbours(Shape& walls, const PlanFrame& frame) {
  const TipoRow& row = tipoRow(frame.sheet.data.tipo);
  if (row.courtyards != CourtyardPlace::kInSides) return;
  for (const Outline& courtyard : frame.sheet.plan.edgeCourtyards) {
    const auto& v = courtyard.vertices;
    const bool west = v[0].x <= 0;
    if (west ? !row.secondShade() : !row.firstShade()) continue;
    const double x = west ? v[0].x : v[1].x;
    walls.lines.push_back({frame.at(x, v[0].y), frame.at(x, v[2].y)});
  }
}

}  // namespace

std::vector<Sign> addPlanWalls(Drawing& drawing, const PlanFrame& frame) {
  std::vector<Sign> used;
  const std::vector<WallPiece> pieces = wallPieces(frame.cells);
  for (const Sign sign : {Sign::kPartition, Sign::kFacade, Sign::kParty}) {
    Shape walls{sign, {}, false};
    for (const WallPiece& piece : pieces) {
      if (signOf(frame.sheet, piece) == sign) {
        addJoined(walls, frame.at(piece.x0, piece.y0), frame.at(piece.x1, piece.y1));
      }
    }
    if (sign == Sign::kParty) addNeighbours(walls, frame);
    if (walls.lines.empty()) continue;
    used.push_back(sign);
    drawing.shapes.push_back(std::move(walls));
  }
  return used;
}

void addBayMarks(Drawing& drawing, const PlanFrame& frame) {
  Shape marks{Sign::kBayMark, {}, false};
  for (const Bay& bay : frame.bays) {
    const double dx = bay.side == kEast ? kBayMark : bay.side == kWest ? -kBayMark : 0;
    const double dy = bay.side == kSouth ? kBayMark : bay.side == kNorth ? -kBayMark : 0;
    for (const Point& p : {frame.at(bay.x0, bay.y0), frame.at(bay.x1, bay.y1)}) {
      marks.lines.push_back({p, {p.x + dx, p.y + dy}});
    }
  }
  drawing.shapes.push_back(std::move(marks));
}

void addPlanWindows(Drawing& drawing, const PlanFrame& frame) {
  if (frame.sheet.windows.empty()) return;
  Shape gaps{Sign::kGap, {}, false};
  Shape panes{Sign::kWindow, {}, false};
  for (const PlanWindow& window : frame.sheet.windows) {
    const Point a = frame.at(window.x0, window.y0);
    const Point b = frame.at(window.x1, window.y1);
    const bool along = window.side == kSouth || window.side == kNorth;
    gaps.lines.push_back({a, b});
    for (const double d : {-0.35, 0.35}) {
      panes.lines.push_back(along ? std::vector<Point>{{a.x, a.y + d}, {b.x, b.y + d}}
                                  : std::vector<Point>{{a.x + d, a.y}, {b.x + d, b.y}});
    }
  }
  drawing.shapes.push_back(std::move(gaps));
  drawing.shapes.push_back(std::move(panes));
}

bool addOpenAir(Drawing& drawing, const PlanFrame& frame, const std::vector<Box>& holes) {
  Shape hatch{Sign::kHatch, {}, false};
  const PlanCells& cells = frame.cells;
  for (int row = 0; row < cells.rows(); ++row) {
    for (int column = 0; column < cells.columns(); ++column) {
      if (cells.isBuilt(cells.region(column, row))) continue;
      addHatch(
          hatch.lines,
          frame.onPaper({cells.x(column), cells.y(row), cells.x(column + 1), cells.y(row + 1)}),
          holes);
    }
  }
  if (hatch.lines.empty()) return false;
  drawing.shapes.push_back(std::move(hatch));
  return true;
}

}  // namespace report
