#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "generator/table_file.h"
#include "plan/plan.h"
#include "report/original_building.h"
#include "report/plan_cells.h"
#include "report/written_commands.h"

class OutputLines;

/// A generated building read back: what the run really wrote. A command stands in the last FLOOR,
/// SPACE and wall before it. Lengths in m, areas in m2, names as written (Windows-1252).
namespace report {

/// How often something stands in the building. A file may say anything: sums of a whole building of
/// such numbers still fit.
using Count = std::int64_t;

struct WrittenFloor {
  std::string name;
  double height = 0;     // floor to floor
  Count multiplier = 1;  // storeys that it stands for
  double level = 0;      // of its lowest storey, above the ground
};

struct WrittenSpace {
  std::string name;
  int floor = 0;     // index
  int outline = -1;  // of the plan; -1: its polygon is none of the plan's
  double area = 0;   // of one
  double height = 0;
  Count multiplier = 1;  // with the floor's
  bool counted = false;  // its zone's flag in the table
};

enum class SurfaceKind {
  kFacade,     // to the street
  kCourtyard,  // to a courtyard; the ends of a row's stair as well
  kParty,
  kPartition,  // between spaces
  kInner,      // inside one space
  kSlab,       // between storeys
  kRoof,
  kGround,
  kOther  // without a place that could be read
};

struct WrittenSurface {
  SurfaceKind kind = SurfaceKind::kOther;
  std::string construction;
  int space = -1;
  std::string nextTo;  // the space beyond, of a partition
  Count multiplier = 1;
  double area = 0;  // gross, of one
  // Of walls on an edge of their space's outline; as seen from outside, left to right.
  Facade side = kSouth;
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
};

struct WrittenWindow {
  int wall = -1;                               // index into surfaces
  double x = 0, y = 0, width = 0, height = 0;  // in its wall, from the lower left corner
  Count multiplier = 1;
  bool takesCourtyard = false;  // as the run read its name in the table
  bool storeyHigh = false;      // in the template, which makes it take the courtyard's data
  double area() const { return width * height; }
};

struct GeneratedBuilding {
  std::vector<WrittenFloor> floors;
  std::vector<WrittenSpace> spaces;
  std::vector<WrittenSurface> surfaces;
  std::vector<WrittenWindow> windows;
  std::vector<Bay> bays;        // of the plan
  PerFacade<int> lostStreet{};  // windows of the template that the run removed
  PerFacade<int> lostCourtyard{};
  std::map<std::string, CommandCount> commands;
  /// By which the run multiplies the air changes of summer nights; 0 where it rewrote no schedule.
  double nightFactor = 0;

  /// Whether every space has a contour of the plan: a template of another family keeps its own.
  bool followsPlan() const;
  Count storeys() const;
  /// Of the lowest storey; all have the same.
  double storeyHeight() const { return floors.empty() ? 0 : floors.front().height; }
  double height() const;
};

/// Whether a building's floors, spaces and surfaces get the names that they have and refer to: the
/// measures of the whole need none of them.
enum class Names { kKept, kLeftOut };

/// Reads what a run of a typology, whose bytes are `typologyText`, put together: `output` is of a
/// template that is used often, the one that `original` was read from. What compares the two is
/// left out: `commands` and `nightFactor`.
GeneratedBuilding readBuilding(const OutputLines& output, std::string_view typologyText,
                               const OriginalBuilding& original, const Plan& plan, Names names);

/// The same from texts. `output`: what the run wrote, with `typologyText` at its end; `original`:
/// the template's text; `plan`: of the typology.
GeneratedBuilding readBuilding(std::string_view output, std::string_view typologyText,
                               std::string_view original, const TableFile& table, const Plan& plan);

}  // namespace report
