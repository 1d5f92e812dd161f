#pragma once

#include <vector>

#include "report/drawing.h"
#include "report/plan_frame.h"

/// What the rooms of a plan are called: inside of them, or beside the block with a line.
namespace report {

struct PlanCaptions {
  std::vector<Box> inside;  // with some air round each: kept free of hatching
  std::vector<Box> led;     // letters outside
};

PlanCaptions addPlanCaptions(Drawing& drawing, const PlanFrame& frame);

}  // namespace report
