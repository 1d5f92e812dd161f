#include "plan/checks.h"
#include "plan/shapes.h"

// Four quarter dwellings around a hole in the middle of the block, a courtyard or a stair-well.
// Every outer side of a quarter carries vertices at its thirds, so that each façade of the block
// comes in six pieces: as many bays a storey.
//   y = D     +----+----+----+----+
//             |  5      |      4  |
//   y = D-dF  |    +----+----+    |
//   y = D/2   +----+   hole  +----+
//   y = dF    |    +----+----+    |
//             |  2      |      3  |
//   y = 0     +----+----+----+----+   x = 0, dH, L/2, L-dH, L

namespace {

/// The hole's numbers, and what the messages call it.
struct Hole {
  double area, depth;  // m2, m
  PlanKeyword areaKeyword, depthKeyword;
  std::string_view badArea, badDepth;
  std::string_view meetsFacade, hasNoDepth, meetsSide, hasNoLength;
};

Hole courtyardOf(const PlanData& data) {
  return {data.areaPatio,
          data.profundidadPatio,
          kAp,
          kPp,
          kBadCourtyard,
          kBadCourtyardDepth,
          "La distancia de la fachada al patio debe ser >0",
          "La profundidad del patio debe ser >0",
          "La distancia horizontal de la fachada al patio debe ser >0",
          "La longitud del patio debe ser >0"};
}

Hole stairwellOf(const PlanData& data) {
  return {data.areaEscalera,
          data.profundidadEscalera,
          kAe,
          kPe,
          kBadStair,
          kBadStairDepth,
          "La distancia de la fachada a la escalera debe ser >0",
          "La profundidad de la escalera debe ser >0",
          "La distancia horizontal de la fachada a la escalera debe ser >0",
          "La longitud de la escalera debe ser >0"};
}

struct Lengths {
  double L, D;    // of the block
  double dF, dH;  // from the front façade and from the side walls to the hole
};

/// The checks behind that of the floor area. `blockArea`: the block's, the hole's included.
Lengths checkedLengths(const PlanData& data, const Hole& hole, double blockArea,
                       PlanChecks& check) {
  const double A = data.areaPlanta;
  const double L = data.longitudFachada;
  const PlanKeyword kHole = hole.areaKeyword;
  const PlanKeyword kDepth = hole.depthKeyword;
  check(kBadFacade, {L > 6, {kL}}, {A / 6 > L, {kL, kA}});
  check(hole.badArea, {hole.area > 4, {kHole}}, {A - 120 > hole.area, {kHole, kA}});
  check(hole.badDepth, {hole.depth > 2, {kDepth}}, {hole.area * 0.5 > hole.depth, {kDepth, kHole}});
  check("La longitud de fachada debe ser >0", L > 0, {kL});
  const double D = length(blockArea / L);
  check("La profundidad del bloque debe ser >0", D > 0, {kA, kHole, kL});
  const double dF = length(0.5 * D - 0.5 * hole.depth);
  check(hole.meetsFacade, dF > 0, {kDepth, kA, kHole, kL});
  check(hole.hasNoDepth, 0.5 * D > dF, {kDepth, kA, kHole, kL});
  const double dH = length(0.5 * L - 0.5 * (hole.area / hole.depth));
  check(hole.meetsSide, dH > 0, {kL, kHole, kDepth});
  check(hole.hasNoLength, 0.5 * L > dH, {kL, kHole, kDepth});
  return {L, D, dF, dH};
}

std::vector<Outline> quartersAround(Role hole, const Lengths& lengths) {
  const auto& [L, D, dF, dH] = lengths;
  return {
      block(L, D),
      dwelling({at(0, 0), at(L / 6, 0), at(L / 3, 0), at(L / 2, 0), at(L / 2, dF), at(dH, dF),
                at(dH, D / 2), at(0, D / 2), at(0, D / 3), at(0, D / 6)}),
      dwelling({at(L / 2, 0), at(2 * L / 3, 0), at(5 * L / 6, 0), at(L, 0), at(L, D / 6),
                at(L, D / 3), at(L, D / 2), at(L - dH, D / 2), at(L - dH, dF), at(L / 2, dF)}),
      dwelling({at(L - dH, D / 2), at(L, D / 2), at(L, 2 * D / 3), at(L, 5 * D / 6), at(L, D),
                at(5 * L / 6, D), at(2 * L / 3, D), at(L / 2, D), at(L / 2, D - dF),
                at(L - dH, D - dF)}),
      dwelling({at(0, D / 2), at(dH, D / 2), at(dH, D - dF), at(L / 2, D - dF), at(L / 2, D),
                at(L / 3, D), at(L / 6, D), at(0, D), at(0, 5 * D / 6), at(0, 2 * D / 3)}),
      {hole, centralRectangle(L, D, dH, dF)},
  };
}

}  // namespace

PlanResult planCourtyard(const PlanData& data) {
  const double A = data.areaPlanta;
  PlanChecks check;
  check(kBadArea124, A > 124 && A < 4000, {kA});
  const Lengths lengths = checkedLengths(data, courtyardOf(data), A + data.areaPatio, check);
  if (check.failed()) return check.failure();

  const auto& [L, D, dF, dH] = lengths;
  const double height = heightOf(data);
  Plan plan;
  plan.numHuecosFachada.fill(6 * storeysOf(data));
  plan.superficieFachada = areas(height * L, height * D);
  plan.numHuecosPatio.fill(2 * storeysOf(data));
  plan.superficiePatio = areas(height * (L - 2 * dH), height * (D - 2 * dF));
  plan.outlines = quartersAround(Role::kCourtyard, lengths);
  return plan;
}

PlanResult planStairwell(const PlanData& data) {
  const double A = data.areaPlanta;
  PlanChecks check;
  check("Área de planta no válida. Debe ser >120 y <4000"_cp1252, A > 120 && A < 4000, {kA});
  // The stair-well is part of the floor area.
  const Lengths lengths = checkedLengths(data, stairwellOf(data), A, check);
  if (check.failed()) return check.failure();

  const double height = heightOf(data);
  Plan plan;
  plan.numHuecosFachada.fill(6 * storeysOf(data));
  plan.superficieFachada = areas(height * lengths.L, height * lengths.D);
  plan.outlines = quartersAround(Role::kStair, lengths);
  return plan;
}
