#pragma once

#include <string>
#include <variant>
#include <vector>

#include "typology/facade.h"

/// Plan geometry as pure functions: from the plan numbers of a typology either to the limits that
/// they break, or to the outlines and the per-façade arrays. One function a family; its checks and
/// its outlines stand in the order in which they are made and written.
///
/// Storeys and their height are those of typology/tipo.h, whatever the typology file says of its
/// building.

/// The plan numbers. m and m2.
struct PlanData {
  int tipo = 0;
  float areaPlanta = 0;
  float areaPatio = 0;
  float areaEscalera = 0;
  float longitudFachada = 0;
  float profundidadPatio = 0;
  float profundidadEscalera = 0;
};

/// The keywords of the plan numbers.
enum class PlanKeyword {
  kTipo,
  kAreaPlanta,
  kAreaPatio,
  kAreaEscalera,
  kLongitudFachada,
  kProfundidadPatio,
  kProfundidadEscalera
};

/// A point of the plan, m: x along the main façade, y across the block.
struct Vertex {
  float x = 0;
  float y = 0;
  friend bool operator==(const Vertex&, const Vertex&) = default;
};

using Vertices = std::vector<Vertex>;

enum class Role { kBlock, kDwelling, kStair, kCourtyard };

/// Counter-clockwise.
struct Outline {
  Role role = Role::kBlock;
  Vertices vertices;
  friend bool operator==(const Outline&, const Outline&) = default;
};

struct Plan {
  /// In writing order: the block first, its hole or stair last. A house is one dwelling alone.
  std::vector<Outline> outlines;
  /// Courtyards that are notches in the block's edge, for drawings: no polygon of the building.
  std::vector<Outline> edgeCourtyards;
  PerFacade<int> numHuecosFachada{};
  PerFacade<int> numHuecosPatio{};
  PerFacade<float> superficieFachada{};  // m2, all storeys
  PerFacade<float> superficiePatio{};    // m2
};

/// A limit that plan numbers break.
struct PlanFault {
  std::string message;
  std::vector<PlanKeyword> keywords;  // whose values it looks at; the first is the one to blame
};

/// All limits that are broken, in the order of the checks: at least one. A run ends with the first.
/// Those that look at a keyword which an earlier one blames are left out.
struct PlanFailure {
  std::vector<PlanFault> faults;
  const PlanFault& first() const { return faults.front(); }
};

using PlanResult = std::variant<Plan, PlanFailure>;

PlanResult planHouse(const PlanData& data);
PlanResult planRow(const PlanData& data);
PlanResult planCourtyard(const PlanData& data);
PlanResult planStairwell(const PlanData& data);
PlanResult planCourtyardsInFacades(const PlanData& data);
PlanResult planCourtyardsInSides(const PlanData& data);
PlanResult planXpala(const PlanData& data);

/// The plan of any typology number.
PlanResult planTipologia(const PlanData& data);
