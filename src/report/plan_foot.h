#pragma once

#include <vector>

#include "report/drawing.h"
#include "report/plan_drawing.h"
#include "report/plan_rooms.h"

/// What stands below a plan: areas, legend and title block.
namespace report {

struct PlanFoot {
  const PlanSheet& sheet;
  const std::vector<Room>& rooms;
  const std::vector<Sign>& wallSigns;  // in use
  bool hasOpenAir;
  int scale;  // 1 to so much
};

/// Draws it from `top` down, between `left` and `right`, mm; gives its lower end.
double addPlanFoot(Drawing& drawing, const PlanFoot& foot, double left, double right, double top);

}  // namespace report
