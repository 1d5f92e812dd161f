#pragma once

#include <optional>
#include <string>
#include <vector>

#include "report/drawing.h"
#include "report/plan_cells.h"

/// Names, places and areas of what a plan holds.
namespace report {

/// A dwelling, the stair or a courtyard.
struct Room {
  int region = 0;      // of PlanCells
  std::string letter;  // of a dwelling where there are several
  std::string name;    // "Vivienda A", "Escalera", "Patio"
  double area = 0;     // m2
  double width = 0;    // m, of a rectangle; 0 where the outline is none
  double depth = 0;
  int count = 1;  // of equal ones
};

/// In the order of the outlines, equal courtyards in the edge as one.
std::vector<Room> rooms(const Plan& plan);

/// A rectangle of whole cells of one region, m: x0 < x1, y0 < y1.
struct CellBox {
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
};
/// All that no other one contains.
std::vector<CellBox> largestBoxes(const PlanCells& cells, int region);

/// What a room is called inside of it, by how much room there is: several rows, or one small word,
/// or nothing. The first fitting one of `choices` in the best of `boxes` (mm on paper).
using Caption = std::vector<Label>;
std::optional<Caption> captionInside(const std::vector<Box>& boxes,
                                     const std::vector<Caption>& choices);
/// Rows centred round (0, 0).
Caption rowsOf(const std::vector<std::pair<std::string, double>>& rows);

/// Lines at 45 degrees across `box`, free of `holes`. They continue from one box to the next.
void addHatch(std::vector<std::vector<Point>>& lines, const Box& box,
              const std::vector<Box>& holes);

}  // namespace report
