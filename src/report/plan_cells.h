#pragma once

#include <vector>

#include "plan/plan.h"

/// The plan cut into rectangles by all its vertices, and what stands between them: every edge of
/// every outline runs along or across the main façade.
namespace report {

/// What a cell belongs to: an index into the plan's outlines, or one of these.
inline constexpr int kOpenAir = -1;        // the street, and what the outlines leave open
inline constexpr int kEdgeCourtyard = -2;  // a courtyard that is a notch in the block's edge

class PlanCells {
 public:
  explicit PlanCells(const Plan& plan);

  int columns() const { return static_cast<int>(xs_.size()) - 1; }
  int rows() const { return static_cast<int>(ys_.size()) - 1; }
  double x(int line) const { return xs_[static_cast<std::size_t>(line)]; }
  double y(int line) const { return ys_[static_cast<std::size_t>(line)]; }
  /// Open air outside of the grid.
  int region(int column, int row) const;
  /// Whether a region is built: a dwelling or the stair.
  bool isBuilt(int region) const;
  bool isCourtyard(int region) const;
  const Plan& plan() const { return *plan_; }

 private:
  const Plan* plan_;
  std::vector<double> xs_, ys_;
  std::vector<int> regions_;
};

enum class WallKind { kStreet, kCourtyard, kPartition };

/// A piece of wall between two cells. For outside walls `from` and `to` run as seen from outside,
/// left to right.
struct WallPiece {
  WallKind kind = WallKind::kStreet;
  Facade side = kSouth;                   // where it looks, on the drawing
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0;  // m
  int inside = kOpenAir;                  // region
  int column = 0, row = 0;                // of the cell inside
};

/// All walls, partitions once; pieces in no special order but always the same.
std::vector<WallPiece> wallPieces(const PlanCells& cells);

/// A piece of façade that takes one window a storey: an edge of an outline, as far as it is
/// outside.
struct Bay {
  bool courtyard = false;  // takes the courtyard's data: also the ends of a row's stair
  Facade side = kSouth;
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0;  // m, left to right as seen from outside
  int outline = 0;                        // index
  int edge = 0;                           // from 1, as EDGE-n
  double length() const;
};

std::vector<Bay> bays(const PlanCells& cells);

/// m2.
double areaOf(const Vertices& outline);

}  // namespace report
