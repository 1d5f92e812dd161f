#include "report/plan_cells.h"

#include <algorithm>
#include <cmath>

namespace report {

namespace {

constexpr double kSame = 1e-4;  // m; coordinates are 32-bit reals

void addLine(std::vector<double>& lines, double value) {
  if (std::ranges::none_of(lines, [&](double line) {
        return std::abs(line - value) <= kSame + 1e-6 * std::abs(value);
      })) {
    lines.push_back(value);
  }
}

/// The edges that a line across the plan meets, and by them the regions along it.
class CrossedEdges {
 public:
  CrossedEdges(const Plan& plan, double y) {
    for (std::size_t i = 0; i < plan.outlines.size(); ++i) {
      if (plan.outlines[i].role == Role::kBlock) continue;
      add(plan.outlines[i].vertices, y, static_cast<int>(i));
    }
    for (const Outline& courtyard : plan.edgeCourtyards) add(courtyard.vertices, y, kEdgeCourtyard);
  }

  /// That of the first outline which runs round the point, whatever doubles back.
  int regionAt(double x) const {
    int turns = 0;
    for (const Edge& edge : edges_) {
      if (edge.x > x) turns += edge.turn;
      if (!edge.last) continue;
      if (turns != 0) return edge.region;
      turns = 0;
    }
    return kOpenAir;
  }

 private:
  struct Edge {
    double x;
    int turn;
    int region;  // of its outline
    bool last;   // of its outline
  };

  void add(const Vertices& outline, double y, int region) {
    const std::size_t before = edges_.size();
    for (std::size_t i = 0; i < outline.size(); ++i) {
      const Vertex& a = outline[i];
      const Vertex& b = outline[i + 1 < outline.size() ? i + 1 : 0];
      if ((a.y > y) == (b.y > y)) continue;
      edges_.push_back({(static_cast<double>(a.x) + b.x) / 2, b.y > a.y ? 1 : -1, region, false});
    }
    if (edges_.size() > before) edges_.back().last = true;
  }

  std::vector<Edge> edges_;
};

/// The piece of the wall of `cell` that looks to `side`.
WallPiece pieceOf(const PlanCells& cells, int column, int row, Facade side) {
  const double x0 = cells.x(column), x1 = cells.x(column + 1);
  const double y0 = cells.y(row), y1 = cells.y(row + 1);
  WallPiece piece;
  piece.side = side;
  piece.inside = cells.region(column, row);
  piece.column = column;
  piece.row = row;
  switch (side) {
    case kSouth:
      piece.x0 = x0, piece.y0 = y0, piece.x1 = x1, piece.y1 = y0;
      break;
    case kEast:
      piece.x0 = x1, piece.y0 = y0, piece.x1 = x1, piece.y1 = y1;
      break;
    case kNorth:
      piece.x0 = x1, piece.y0 = y1, piece.x1 = x0, piece.y1 = y1;
      break;
    case kWest:
      piece.x0 = x0, piece.y0 = y1, piece.x1 = x0, piece.y1 = y0;
      break;
  }
  return piece;
}

int beyond(const PlanCells& cells, int column, int row, Facade side) {
  constexpr int kColumns[] = {0, 1, 0, -1};
  constexpr int kRows[] = {-1, 0, 1, 0};
  return cells.region(column + kColumns[side], row + kRows[side]);
}

bool isAlong(const WallPiece& piece, const Vertex& a, const Vertex& b) {
  const auto near = [](double one, double other) {
    return std::abs(one - other) <= 2 * kSame + 2e-6 * std::abs(one);
  };
  const auto between = [](double value, double one, double other) {
    const double room = 2 * kSame + 2e-6 * std::abs(value);
    return value >= std::min(one, other) - room && value <= std::max(one, other) + room;
  };
  const double ax = a.x, ay = a.y, bx = b.x, by = b.y;
  const bool upright = near(piece.x0, piece.x1);
  if (upright) {
    return near(ax, piece.x0) && near(bx, piece.x0) && (by > ay) == (piece.y1 > piece.y0) &&
           between(piece.y0, ay, by) && between(piece.y1, ay, by);
  }
  return near(ay, piece.y0) && near(by, piece.y0) && (bx > ax) == (piece.x1 > piece.x0) &&
         between(piece.x0, ax, bx) && between(piece.x1, ax, bx);
}

/// The edge of an outline, from 1, that a piece of wall lies on; 0 when there is none.
int edgeOf(const Vertices& outline, const WallPiece& piece) {
  for (std::size_t i = 0; i < outline.size(); ++i) {
    if (isAlong(piece, outline[i], outline[(i + 1) % outline.size()])) {
      return static_cast<int>(i) + 1;
    }
  }
  return 0;
}

Bay* bayOf(std::vector<Bay>& found, int outline, int edge) {
  const auto bay = std::ranges::find_if(
      found, [&](const Bay& each) { return each.outline == outline && each.edge == edge; });
  return bay == found.end() ? nullptr : &*bay;
}

void addPiece(std::vector<Bay>& found, const WallPiece& piece, int outline, int edge,
              bool courtyard) {
  Bay* bay = bayOf(found, outline, edge);
  if (bay == nullptr) {
    found.push_back({courtyard, piece.side, piece.x0, piece.y0, piece.x1, piece.y1, outline, edge});
    return;
  }
  // Pieces of one edge lie on one line: the bay reaches from the first to the last.
  const auto widen = [](double& from, double& to, double a, double b) {
    const bool rising = to > from || (to == from && b > a);
    from = rising ? std::min(from, a) : std::max(from, a);
    to = rising ? std::max(to, b) : std::min(to, b);
  };
  if (bay->side == kSouth || bay->side == kNorth) {
    widen(bay->x0, bay->x1, piece.x0, piece.x1);
  } else {
    widen(bay->y0, bay->y1, piece.y0, piece.y1);
  }
}

}  // namespace

PlanCells::PlanCells(const Plan& plan) : plan_(&plan) {
  const auto add = [this](const Outline& outline) {
    for (const Vertex& vertex : outline.vertices) {
      addLine(xs_, vertex.x);
      addLine(ys_, vertex.y);
    }
  };
  std::ranges::for_each(plan.outlines, add);
  std::ranges::for_each(plan.edgeCourtyards, add);
  std::ranges::sort(xs_);
  std::ranges::sort(ys_);
  for (int row = 0; row < rows(); ++row) {
    const CrossedEdges edges(plan, (y(row) + y(row + 1)) / 2);
    for (int column = 0; column < columns(); ++column) {
      regions_.push_back(edges.regionAt((x(column) + x(column + 1)) / 2));
    }
  }
}

int PlanCells::region(int column, int row) const {
  if (column < 0 || row < 0 || column >= columns() || row >= rows()) return kOpenAir;
  return regions_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns()) +
                  static_cast<std::size_t>(column)];
}

bool PlanCells::isBuilt(int region) const { return region >= 0 && !isCourtyard(region); }

bool PlanCells::isCourtyard(int region) const {
  if (region < 0) return region == kEdgeCourtyard;
  return plan_->outlines[static_cast<std::size_t>(region)].role == Role::kCourtyard;
}

std::vector<WallPiece> wallPieces(const PlanCells& cells) {
  std::vector<WallPiece> pieces;
  for (int row = 0; row < cells.rows(); ++row) {
    for (int column = 0; column < cells.columns(); ++column) {
      const int inside = cells.region(column, row);
      if (!cells.isBuilt(inside)) continue;
      for (const Facade side : {kSouth, kEast, kNorth, kWest}) {
        const int other = beyond(cells, column, row, side);
        const bool once = side == kEast || side == kNorth;
        if (other == inside || (cells.isBuilt(other) && !once)) continue;
        WallPiece piece = pieceOf(cells, column, row, side);
        piece.kind = cells.isBuilt(other)       ? WallKind::kPartition
                     : cells.isCourtyard(other) ? WallKind::kCourtyard
                                                : WallKind::kStreet;
        pieces.push_back(piece);
      }
    }
  }
  return pieces;
}

double Bay::length() const { return std::abs(x1 - x0) + std::abs(y1 - y0); }

std::vector<Bay> bays(const PlanCells& cells) {
  const std::vector<Outline>& outlines = cells.plan().outlines;
  const bool isRow =
      cells.plan().numHuecosPatio[kSouth] > 0 && cells.plan().numHuecosPatio[kEast] == 0;
  std::vector<Bay> found;
  std::vector<WallPiece> borrowed;  // beside the stair, on the edge of a dwelling
  for (const WallPiece& piece : wallPieces(cells)) {
    if (piece.kind == WallKind::kPartition) continue;
    const auto inside = static_cast<std::size_t>(piece.inside);
    const bool isStair = outlines[inside].role == Role::kStair;
    if (isStair && !isRow) {
      borrowed.push_back(piece);
      continue;
    }
    const bool stairEnd = isStair && (piece.side == kSouth || piece.side == kNorth);
    const int edge = edgeOf(outlines[inside].vertices, piece);
    if (edge > 0) {
      addPiece(found, piece, piece.inside, edge, stairEnd || piece.kind == WallKind::kCourtyard);
    }
  }
  // Between wings a dwelling's edge may run on in front of the stair core.
  for (const WallPiece& piece : borrowed) {
    for (std::size_t i = 0; i < outlines.size(); ++i) {
      if (outlines[i].role != Role::kDwelling) continue;
      const int edge = edgeOf(outlines[i].vertices, piece);
      if (edge > 0 && bayOf(found, static_cast<int>(i), edge) != nullptr) {
        addPiece(found, piece, static_cast<int>(i), edge, false);
        break;
      }
    }
  }
  return found;
}

double areaOf(const Vertices& outline) {
  double doubled = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Vertex& a = outline[i];
    const Vertex& b = outline[(i + 1) % outline.size()];
    doubled += static_cast<double>(a.x) * b.y - static_cast<double>(b.x) * a.y;
  }
  return doubled / 2;
}

}  // namespace report
