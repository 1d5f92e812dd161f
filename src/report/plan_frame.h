#pragma once

#include <vector>

#include "report/plan_cells.h"
#include "report/plan_drawing.h"
#include "report/plan_rooms.h"

/// A plan at one scale: what all parts of its drawing stand on. The upper left corner of the block
/// is (0, 0) on the paper.
namespace report {

struct PlanFrame {
  PlanFrame(const PlanSheet& planSheet, int planScale)
      : sheet(planSheet),
        cells(planSheet.plan),
        rooms(report::rooms(planSheet.plan)),
        bays(report::bays(cells)),
        scale(planScale),
        k(1000.0 / planScale),
        L(cells.x(cells.columns())),
        D(cells.y(cells.rows())) {}

  const PlanSheet& sheet;
  PlanCells cells;
  std::vector<Room> rooms;
  std::vector<Bay> bays;
  int scale;    // 1 to so much
  double k;     // mm a metre
  double L, D;  // m, of the block

  double width() const { return L * k; }   // mm
  double height() const { return D * k; }  // mm
  Point at(double x, double y) const { return {x * k, (D - y) * k}; }
  Box onPaper(const CellBox& box) const {
    return {box.x0 * k, (D - box.y1) * k, box.x1 * k, (D - box.y0) * k};
  }
};

}  // namespace report
