#pragma once

#include "report/drawing.h"
#include "report/plan_frame.h"
#include "report/sheet.h"

/// The dimensions of a plan.
namespace report {

/// Bays, parts, total, from inside outwards; a chain that says nothing new is left out. Returns how
/// far the last one is from the outline, mm.
double addPlanChains(Drawing& drawing, const PlanFrame& frame, ChainSide side);

}  // namespace report
