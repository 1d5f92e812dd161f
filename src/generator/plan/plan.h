#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "generator/polygon_emitter.h"
#include "typology/typology_record.h"

/// Plan geometry as pure functions: from the plan numbers of a typology either to the message of
/// the first check that they fail, or to the outlines and the per-façade arrays. One function a
/// family; its checks and its outlines stand in the order in which they are made and written.
///
/// Storey heights and counts are the family's own (3.0 m; 1 or 2 storeys for houses, 3 for blocks),
/// whatever the typology file says of its building.

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

using Outline = std::vector<Vertex>;

struct Plan {
  std::vector<Outline> outlines;  // in writing order: the block first, the hole or stair last
  PerFacade<int> numHuecosFachada{};
  PerFacade<int> numHuecosPatio{};
  PerFacade<float> superficieFachada{};  // m2, all storeys
  PerFacade<float> superficiePatio{};    // m2
};

struct PlanFailure {
  std::string message;
};

using PlanResult = std::variant<Plan, PlanFailure>;

PlanResult planHouse(const PlanData& data);                // 1 to 9, and any number below
PlanResult planRow(const PlanData& data);                  // 10 to 12
PlanResult planCourtyard(const PlanData& data);            // 13, 16, 19
PlanResult planStairwell(const PlanData& data);            // 23
PlanResult planCourtyardsInFacades(const PlanData& data);  // 14, 17, 20
PlanResult planCourtyardsInSides(const PlanData& data);    // 15, 18, 21
PlanResult planXpala(const PlanData& data);                // 22

/// The plan of any typology number.
PlanResult planTipologia(const PlanData& data);

// What the families are written with.

/// The checks of a family. All are strict, a NaN fails them, and the first failing one speaks.
class PlanChecks {
 public:
  void operator()(bool ok, std::string_view message) {
    if (!ok && !failed_) {
      failed_ = true;
      message_ = message;
    }
  }
  bool failed() const { return failed_; }
  PlanFailure failure() const { return {message_}; }

 private:
  bool failed_ = false;
  std::string message_;
};

/// A named length: computed in double from 32-bit operands, kept as a 32-bit real, and used so by
/// the formulas that follow.
inline double length(double value) { return static_cast<float>(value); }

inline Vertex at(double x, double y) { return {static_cast<float>(x), static_cast<float>(y)}; }

/// Corners from the lower left one, counter-clockwise.
inline Outline rectangle(double x0, double y0, double x1, double y1) {
  return {at(x0, y0), at(x1, y0), at(x1, y1), at(x0, y1)};
}

/// A rectangle in the middle of a block of L x D, `dx` and `dy` away from its sides, with a vertex
/// in the middle of each side, where the dwellings around it meet.
inline Outline centralRectangle(double L, double D, double dx, double dy) {
  return {at(dx, dy),         at(L / 2, dy),     at(L - dx, dy), at(L - dx, D / 2),
          at(L - dx, D - dy), at(L / 2, D - dy), at(dx, D - dy), at(dx, D / 2)};
}

/// The same area on opposite façades: `front` on the south and north ones, `side` on the others.
inline PerFacade<float> areas(double front, double side) {
  const auto f = static_cast<float>(front);
  const auto s = static_cast<float>(side);
  return {f, s, f, s};
}
