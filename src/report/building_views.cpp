#include "report/building_views.h"

#include <algorithm>
#include <cmath>

#include "report/plan_cells.h"
#include "report/sheet.h"
#include "report/words.h"

namespace report {

namespace {

constexpr double kGreatestWidth = 150;   // mm, of an elevation
constexpr double kGreatestHeight = 200;  // mm

/// A storey as it is drawn: repeated ones one by one.
struct Storey {
  int floor;
  double level;   // m
  double height;  // m
};

std::vector<Storey> storeysOf(const GeneratedBuilding& building) {
  std::vector<Storey> storeys;
  for (std::size_t i = 0; i < building.floors.size(); ++i) {
    const WrittenFloor& floor = building.floors[i];
    for (Count k = 0; k < floor.multiplier; ++k) {
      if (storeys.size() == static_cast<std::size_t>(kMostStoreys)) return storeys;
      storeys.push_back(
          {static_cast<int>(i), floor.level + static_cast<double>(k) * floor.height, floor.height});
    }
  }
  return storeys;
}

double topOf(const std::vector<Storey>& storeys) {
  return storeys.empty() ? 0 : storeys.back().level + storeys.back().height;
}

/// The place of a point along a façade, from its left end as seen from outside. m.
double along(Facade side, double x, double y, double L, double D) {
  switch (side) {
    case kSouth:
      return x;
    case kEast:
      return y;
    case kNorth:
      return L - x;
    case kWest:
      return D - y;
  }
  return x;
}

const WrittenSurface& wallOf(const GeneratedBuilding& building, const WrittenWindow& window) {
  return building.surfaces[static_cast<std::size_t>(window.wall)];
}

int floorOf(const GeneratedBuilding& building, const WrittenSurface& wall) {
  return building.spaces[static_cast<std::size_t>(wall.space)].floor;
}

bool isOuter(const WrittenSurface& wall) {
  return wall.kind == SurfaceKind::kFacade || wall.kind == SurfaceKind::kCourtyard ||
         wall.kind == SurfaceKind::kParty;
}

/// The ends of a window on the plan, left to right as seen from outside.
PlanWindow placeOf(const WrittenSurface& wall, const WrittenWindow& window) {
  const double length = std::hypot(wall.x1 - wall.x0, wall.y1 - wall.y0);
  const double dx = length > 0 ? (wall.x1 - wall.x0) / length : 0;
  const double dy = length > 0 ? (wall.y1 - wall.y0) / length : 0;
  const double from = window.x, to = window.x + window.width;
  return {wall.side, wall.x0 + from * dx, wall.y0 + from * dy, wall.x0 + to * dx,
          wall.y0 + to * dy};
}

std::string level(double metres) { return (metres > 0 ? "+" : "±") + number(metres, 2); }

}  // namespace

std::vector<PlanWindow> windowsOfPlan(const GeneratedBuilding& building) {
  std::vector<PlanWindow> found;
  for (const WrittenWindow& window : building.windows) {
    const WrittenSurface& wall = wallOf(building, window);
    if (isOuter(wall) && floorOf(building, wall) == 0) found.push_back(placeOf(wall, window));
  }
  return found;
}

PerFacade<bool> partySides(const GeneratedBuilding& building) {
  PerFacade<bool> party{};
  PerFacade<bool> open{};
  for (const WrittenSurface& wall : building.surfaces) {
    if (wall.kind == SurfaceKind::kParty) party[wall.side] = true;
    if (wall.kind == SurfaceKind::kFacade) open[wall.side] = true;
  }
  for (std::size_t side = 0; side < 4; ++side) party[side] = party[side] && !open[side];
  return party;
}

std::string elevationTitle(Facade side, bool courtyard, double giro) {
  const double azimuth = realAzimuth(side, giro);
  const std::string looks(directionName(azimuth));
  if (courtyard) return "Patio, pared que mira al " + looks + " (" + degrees(azimuth) + ")";
  std::string title(facadeTitle(side));
  title[0] = 'f';
  return "Alzado " + looks + " (" + degrees(azimuth) + "), " + title + " «" +
         std::string(kFacadeNames[side]) + "»";
}

int elevationScale(const GeneratedBuilding& building, const Plan& plan) {
  const auto& corners = plan.outlines.front().vertices;
  const double width = std::max(corners[2].x, corners[2].y);
  const double height = topOf(storeysOf(building));
  for (const int scale : kScales) {
    const double k = 1000.0 / scale;
    if (width * k <= kGreatestWidth && height * k <= kGreatestHeight) return scale;
  }
  return kScales[std::size(kScales) - 1];
}

Drawing elevation(const GeneratedBuilding& building, const Plan& plan, Facade side, bool courtyard,
                  double giro, int scale) {
  const double k = 1000.0 / scale;
  const auto& corners = plan.outlines.front().vertices;
  const double L = corners[2].x, D = corners[2].y;
  const std::vector<Storey> storeys = storeysOf(building);
  const double top = topOf(storeys);
  const auto u = [&](double x, double y) { return along(side, x, y, L, D); };
  const auto at = [&](double x, double z) { return Point{x * k, -z * k}; };
  const auto rectangle = [&](double a, double b, double low, double high) {
    return std::vector<Point>{at(a, low), at(b, low), at(b, high), at(a, high)};
  };
  Drawing drawing;

  // Walls as the bays cut them, joined where they touch at the same depth.
  struct Piece {
    double from, to, depth;
  };
  std::vector<Piece> pieces;
  const SurfaceKind kind = courtyard ? SurfaceKind::kCourtyard : SurfaceKind::kFacade;
  for (const WrittenSurface& wall : building.surfaces) {
    if (wall.side != side || floorOf(building, wall) != 0) continue;
    if (wall.kind != kind && (courtyard || wall.kind != SurfaceKind::kParty)) continue;
    const double depth = side == kSouth || side == kNorth ? wall.y0 : wall.x0;
    pieces.push_back({u(wall.x0, wall.y0), u(wall.x1, wall.y1), depth});
  }
  std::ranges::sort(pieces, {}, &Piece::from);
  std::vector<Piece> joined;
  for (const Piece& piece : pieces) {
    if (!joined.empty() && std::abs(joined.back().to - piece.from) < 1e-3 &&
        std::abs(joined.back().depth - piece.depth) < 1e-3) {
      joined.back().to = piece.to;
    } else {
      joined.push_back(piece);
    }
  }
  double left = 1e9, right = -1e9;
  for (const Piece& piece : joined) {
    left = std::min(left, piece.from);
    right = std::max(right, piece.to);
  }
  if (joined.empty()) return drawing;
  // What stands farther back closes the gaps between them.
  drawing.area(Sign::kWindow, rectangle(left, right, 0, top));
  for (const Piece& piece : joined) {
    drawing.area(Sign::kWall, rectangle(piece.from, piece.to, 0, top));
    Shape slabs{Sign::kStoreyLine, {}, false};
    for (const Storey& storey : storeys) {
      if (storey.level > 0) {
        slabs.lines.push_back({at(piece.from, storey.level), at(piece.to, storey.level)});
      }
    }
    if (!slabs.lines.empty()) drawing.shapes.push_back(std::move(slabs));
  }
  Shape glass{Sign::kGlass, {}, true};
  for (const Storey& storey : storeys) {
    for (const WrittenWindow& window : building.windows) {
      const WrittenSurface& wall = wallOf(building, window);
      if (wall.kind != kind || wall.side != side || floorOf(building, wall) != storey.floor) {
        continue;
      }
      const double from = u(wall.x0, wall.y0) + window.x;
      const double low = storey.level + window.y;
      glass.lines.push_back(rectangle(from, from + window.width, low, low + window.height));
    }
  }
  if (!glass.lines.empty()) drawing.shapes.push_back(std::move(glass));
  drawing.line(Sign::kGround, {left * k - 6, 0}, {right * k + 6, 0});

  // Levels at the right, as many as have room, the total height at the left.
  double last = -1e9;
  Shape marks{Sign::kDimension, {}, false};
  for (std::size_t i = 0; i <= storeys.size(); ++i) {
    const double z = i < storeys.size() ? storeys[i].level : top;
    if (z * k - last < 4.2 || (i < storeys.size() && i > 0 && top * k - z * k < 4.2)) continue;
    last = z * k;
    marks.lines.push_back({at(right, z), {right * k + 9, -z * k}});
    drawing.labels.push_back(
        {{right * k + 10, -z * k + kSmall / 2}, kSmall, Anchor::kStart, false, false, level(z)});
  }
  drawing.shapes.push_back(std::move(marks));
  addChain(drawing, ChainSide::kLeft, {{0, -top * k}, {0, top}}, left * k - 8, left * k);
  // Its parts, then all of it: of a courtyard in two parts that would be no wall's length.
  const auto chainOf = [&](const std::vector<double>& metres) {
    Chain chain;
    for (const double each : metres) {
      chain.metres.push_back(each);
      chain.places.push_back(each * k);
    }
    return chain;
  };
  std::vector<double> ends;
  double length = 0;
  for (const Piece& piece : joined) {
    length += piece.to - piece.from;
    for (const double end : {piece.from, piece.to}) {
      if (ends.empty() || end - ends.back() > 2e-3) ends.push_back(end);
    }
  }
  const Chain parts = chainOf(ends);
  double line = 8;
  const bool inParts = ends.size() > 2 && fits(parts);
  if (inParts) addChain(drawing, ChainSide::kBelow, parts, line, 0);
  if (!inParts || !courtyard) {
    const double from = inParts ? line : 0;
    if (inParts) line += 6.5;
    addChain(drawing, ChainSide::kBelow, chainOf({left, right}), line, from);
  }

  const Box bounds = boundsOf(drawing);
  drawing.shift(3 - bounds.x0, 3 - bounds.y0);
  drawing.width = bounds.width() + 6;
  drawing.height = bounds.height() + 6;
  drawing.title = elevationTitle(side, courtyard, giro);
  drawing.description = "A escala 1:" + std::to_string(scale) + ", de " +
                        quantity(courtyard ? length : right - left, 2, "m") + " de largo y " +
                        quantity(top, 2, "m") + " de alto, con " + std::to_string(storeys.size()) +
                        (storeys.size() == 1 ? " planta." : " plantas.");
  return drawing;
}

}  // namespace report
