#pragma once

#include <vector>

#include "report/drawing.h"
#include "report/plan_frame.h"

/// Walls by what they are, bays, windows and open air.
namespace report {

/// Draws the walls, party walls and neighbours' walls on top; gives the signs that are in use.
std::vector<Sign> addPlanWalls(Drawing& drawing, const PlanFrame& frame);
/// Short ticks outwards at both ends of every bay.
void addBayMarks(Drawing& drawing, const PlanFrame& frame);
/// Two parallels in a white gap of the wall, of every window of the sheet.
void addPlanWindows(Drawing& drawing, const PlanFrame& frame);
/// Hatches courtyards and open corners, free of `holes`; whether there is any.
bool addOpenAir(Drawing& drawing, const PlanFrame& frame, const std::vector<Box>& holes);

}  // namespace report
