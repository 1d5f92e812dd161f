#pragma once

#include "report/drawing.h"
#include "report/generated_building.h"
#include "report/plan_drawing.h"

/// Pictures of a generated building: its façades, and the whole of it.
namespace report {

/// Storeys that a view shows at most, from the ground up.
inline constexpr int kMostStoreys = 40;

/// The windows of the lowest storey on the plan.
std::vector<PlanWindow> windowsOfPlan(const GeneratedBuilding& building);
/// Sides of which all outside walls are party walls.
PerFacade<bool> partySides(const GeneratedBuilding& building);

/// The greatest scale at which all elevations fit a page: 1 to so much.
int elevationScale(const GeneratedBuilding& building, const Plan& plan);
/// One side seen from outside, the street's walls or the courtyard's.
Drawing elevation(const GeneratedBuilding& building, const Plan& plan, Facade side, bool courtyard,
                  double giro, int scale);
/// "Alzado sureste (135°), fachada principal «sur»", "Patio, pared que mira al sur (180°)".
std::string elevationTitle(Facade side, bool courtyard, double giro);

/// The block from the south-west, turned by `giro`, with all its storeys and windows.
Drawing axonometric(const GeneratedBuilding& building, const Plan& plan, double giro);

}  // namespace report
