#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/fault.h"
#include "generator/template.h"
#include "report/generated_building.h"
#include "report/measures.h"
#include "report/plan_drawing.h"
#include "typology/typology_record.h"

/// The report of one building: what it is, what it measures, what it was made from. Put together
/// once; HTML and JSON are two ways to write it down.
namespace report {

/// One of the four inputs.
struct InputFile {
  std::string role;         // "Plantilla", "Tipología", ...
  std::string name;         // without its folders
  std::string fingerprint;  // empty: could not be read
  std::size_t bytes = 0;
};

/// What a check found; see the check's manual for its codes.
struct Finding {
  std::string severity;  // "error", "aviso", "nota"
  std::string code;
  std::string message;
  std::string place;  // "casa.tip:5:18", or empty
};

/// A keyword of the typology. Bytes as in the file.
struct Datum {
  std::string command;  // whose keyword it is; empty: of the dwelling
  std::string keyword;
  std::string value;
  std::string unit;
  std::string file;  // empty: not in the file, so the default was used
  long line = 0;
};

struct ConstructionUse {
  std::string name;
  std::string where;   // "Fachadas", "Cubierta", ...
  Count surfaces = 0;  // with their multipliers
  double area = 0;     // m2, gross
};

/// What a typology that was read says of itself.
struct Identity {
  std::string title;  // of its command
  int tipo = 0;
  int numeroPlantas = 0;
  double giro = 0;  // ORIENTACION, degrees clockwise
  double airChanges = 0;
};

struct Report {
  std::string program;  // name and version
  std::vector<InputFile> inputs;
  std::optional<Fault> fault;  // the run refuses the inputs
  std::vector<Finding> findings;

  // What can be shown: of a run that refused, perhaps only some of it.
  std::optional<Identity> identity;
  std::optional<PlanSheet> sheet;
  std::vector<Datum> data;
  std::optional<GeneratedBuilding> building;
  std::optional<Measures> measures;
  std::vector<ConstructionUse> constructions;
};

/// The name of a file without its folders: a report names files so, wherever they lie.
std::string baseName(const std::string& path);

/// Adds to `report` what a typology that was read says: its data and, where its plan passes the
/// checks, the plan.
void addTypology(Report& report, const TypologyRecord& typology);
/// Adds the building that a run wrote, `output`, and what follows from it. Comes after
/// `addTypology`.
void addBuilding(Report& report, const TypologyRecord& typology, const Template& plantilla,
                 std::string_view output);

/// One file, UTF-8: no script, nothing from elsewhere.
std::string asHtml(const Report& report);
/// See docs/informe.md.
std::string asJson(const Report& report);
inline constexpr int kJsonVersion = 1;

}  // namespace report
