#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "plan/plan.h"
#include "report/drawing.h"

/// The plan of a building to scale on a sheet that fits A4: rooms, walls by what they are, bays,
/// courtyards hatched, dimensions, façades by their index and by where they really look.
namespace report {

/// A window of the drawn storey, on the wall that looks to `side`. m.
struct PlanWindow {
  Facade side = kSouth;
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
};

struct PlanSheet {
  PlanData data;
  Plan plan;
  double giro = 0;          // ORIENTACION, degrees clockwise
  std::string title;        // of the typology, as its file has it
  std::string content;      // which storeys
  std::string program;      // name and version
  std::string fingerprint;  // of the typology file
  PerFacade<bool> party{};  // sides that a neighbour touches, where that is known
  std::vector<PlanWindow> windows;
};

/// The storeys that the plan of a number is the plan of: "Planta baja", "Planta tipo".
std::string planContent(int tipo);
/// What the number means: "casa", "bloque con patio central".
std::string familyTitle(int tipo);

/// Where a plan is printed: alone on A4, upright or lying, or on a page of a report, which has
/// margins and a heading of its own. True to scale on both.
enum class PlanPaper { kA4, kReport };

/// `sheet.plan` is one that passed its checks.
Drawing planDrawing(const PlanSheet& sheet, PlanPaper paper = PlanPaper::kA4);

}  // namespace report
