#include "plan/checks.h"
#include "plan/shapes.h"
#include "typology/tipo.h"

// A stair-well in the middle of the block and two courtyards, notches half the courtyard area each:
// in the middle of the front and back façades, lp long and Pp deep, or in the middle of the side
// walls, lp deep and Pp wide. Four quarter dwellings wrap round them.
//
//   +-----+ c +-----+        +---------------+
//   |  5  +-+-+  4  |        |   5   |   4   |
//   |     |st |     |        +-+   +-+-+   +-+
//   +-----+   +-----+        c |---+st +---| c
//   |     +-+-+     |        +-+   +-+-+   +-+
//   |  2  + | +  3  |        |   2   |   3   |
//   +-----+ c +-----+        +---------------+

namespace {

/// The lengths of a block that passed its checks.
struct Block {
  double L, D;
  double Pp, lp;   // courtyard
  double dE, dPE;  // from the front façade and from the side walls to the stair-well
};

/// The checks on the plan numbers themselves, which both families share.
void checkNumbers(const PlanData& data, PlanChecks& check) {
  const double A = data.areaPlanta;
  const double L = data.longitudFachada;
  const double Ap = data.areaPatio;
  const double Pp = data.profundidadPatio;
  const double Ae = data.areaEscalera;
  const double Pe = data.profundidadEscalera;
  check(kBadArea124, A > 124 && A < 4000, {kA});
  check(kBadFacade, {L > 6, {kL}}, {A / 6 > L, {kL, kA}});
  check(kBadCourtyard, {Ap > 4, {kAp}}, {A - 120 > Ap, {kAp, kA}});
  check(kBadCourtyardDepth, {Pp > 2, {kPp}}, {Ap * 0.5 > Pp, {kPp, kAp}});
  check(kBadStair, {Ae > 4, {kAe}}, {A - 120 > Ae, {kAe, kA}});
  check(kBadStairDepth, {Pe > 2, {kPe}}, {Ae * 0.5 > Pe, {kPe, kAe}});
}

/// The checks on the lengths that follow from them.
Block checkedBlock(const PlanData& data, CourtyardPlace courtyards, PlanChecks& check) {
  const bool inFacades = courtyards == CourtyardPlace::kInFacades;
  const double Ap = data.areaPatio;
  const double Ae = data.areaEscalera;
  const double Pe = data.profundidadEscalera;
  Block b{};
  b.L = data.longitudFachada;
  b.Pp = data.profundidadPatio;

  check("La longitud de fachada debe ser >0", b.L > 0, {kL});
  b.D = length((static_cast<double>(data.areaPlanta) + Ap) / b.L);
  check("La profundidad del bloque debe ser >0", b.D > 0, {kA, kAp, kL});
  b.dE = length((b.D - Pe) * 0.5);
  check("La distancia de la fachada a la escalera debe ser >0", b.dE > 0, {kPe, kA, kAp, kL});
  check("La profundidad de la escalera no es válida"_cp1252, 0.5 * b.D > b.dE, {kPe, kA, kAp, kL});
  check("La profundidad del patio debe ser >0", b.Pp > 0, {kPp});
  if (inFacades) {
    check("La profundidad del patio debe ser menor que la distancia de la fachada a la escalera",
          b.Pp < b.dE, {kPp, kPe, kA, kAp, kL});
  } else {
    check("La profundidad del patio debe ser menor que la del bloque", b.Pp < b.D,
          {kPp, kA, kAp, kL});
  }
  b.lp = length(Ap / (2 * b.Pp));
  check("La longitud del patio debe ser >0", b.lp > 0, {kAp, kPp});
  check("La longitud del patio debe ser menor que la de la fachada",
        inFacades ? b.lp < b.L : 0.5 * b.L > b.lp, {kAp, kPp, kL});
  b.dPE = length((b.L - Ae / Pe) * 0.5);
  // With side courtyards the stair-well must stay clear of them, though the message says only ">0".
  constexpr std::string_view kMeetsStair = "La distancia del patio a la escalera debe ser >0";
  if (inFacades) {
    check(kMeetsStair, b.dPE > 0, {kL, kAe, kPe});
  } else {
    check(kMeetsStair, b.dPE > b.lp, {kL, kAe, kPe, kAp, kPp});
  }
  check("La longitud de la escalera debe ser >0", 0.5 * b.L > b.dPE, {kL, kAe, kPe});
  return b;
}

std::vector<Outline> outlinesInFacades(const Block& b) {
  const auto& [L, D, Pp, lp, dE, dPE] = b;
  const double left = (L - lp) / 2;  // of the courtyards
  const double right = (L + lp) / 2;
  return {
      block(L, D),
      dwelling({at(0, 0), at(left, 0), at(left, Pp), at(L / 2, Pp), at(L / 2, dE), at(dPE, dE),
                at(dPE, D / 2), at(0, D / 2), at(0, D / 3), at(0, D / 6)}),
      dwelling({at(L / 2, Pp), at(right, Pp), at(right, 0), at(L, 0), at(L, D / 6), at(L, D / 3),
                at(L, D / 2), at(L - dPE, D / 2), at(L - dPE, dE), at(L / 2, dE)}),
      dwelling({at(L - dPE, D / 2), at(L, D / 2), at(L, 2 * D / 3), at(L, 5 * D / 6), at(L, D),
                at(right, D), at(right, D - Pp), at(L / 2, D - Pp), at(L / 2, D - dE),
                at(L - dPE, D - dE)}),
      dwelling({at(0, D / 2), at(dPE, D / 2), at(dPE, D - dE), at(L / 2, D - dE), at(L / 2, D - Pp),
                at(left, D - Pp), at(left, D), at(0, D), at(0, 5 * D / 6), at(0, 2 * D / 3)}),
      stair(centralRectangle(L, D, dPE, dE)),
  };
}

std::vector<Outline> outlinesInSides(const Block& b) {
  const auto& [L, D, Pp, lp, dE, dPE] = b;
  const double front = (D - Pp) / 2;  // of the courtyards
  const double back = (D + Pp) / 2;
  return {
      block(L, D),
      dwelling({at(0, 0), at(L / 6, 0), at(L / 3, 0), at(L / 2, 0), at(L / 2, dE), at(dPE, dE),
                at(dPE, D / 2), at(lp, D / 2), at(lp, front), at(0, front)}),
      dwelling({at(L / 2, 0), at(2 * L / 3, 0), at(5 * L / 6, 0), at(L, 0), at(L, front),
                at(L - lp, front), at(L - lp, D / 2), at(L - dPE, D / 2), at(L - dPE, dE),
                at(L / 2, dE)}),
      dwelling({at(L - dPE, D / 2), at(L - lp, D / 2), at(L - lp, back), at(L, back), at(L, D),
                at(5 * L / 6, D), at(2 * L / 3, D), at(L / 2, D), at(L / 2, D - dE),
                at(L - dPE, D - dE)}),
      dwelling({at(lp, D / 2), at(dPE, D / 2), at(dPE, D - dE), at(L / 2, D - dE), at(L / 2, D),
                at(L / 3, D), at(L / 6, D), at(0, D), at(0, back), at(lp, back)}),
      stair(centralRectangle(L, D, dPE, dE)),
  };
}

/// Half the courtyard area each.
std::vector<Outline> courtyardsOf(const Block& b, CourtyardPlace courtyards) {
  const auto& [L, D, Pp, lp, dE, dPE] = b;
  if (courtyards == CourtyardPlace::kInFacades) {
    return {courtyard(rectangle((L - lp) / 2, 0, (L + lp) / 2, Pp)),
            courtyard(rectangle((L - lp) / 2, D - Pp, (L + lp) / 2, D))};
  }
  return {courtyard(rectangle(0, (D - Pp) / 2, lp, (D + Pp) / 2)),
          courtyard(rectangle(L - lp, (D - Pp) / 2, L, (D + Pp) / 2))};
}

PlanResult planWith(CourtyardPlace courtyards, const PlanData& data) {
  PlanChecks check;
  checkNumbers(data, check);
  const Block b = checkedBlock(data, courtyards, check);
  if (check.failed()) return check.failure();

  const int storeys = storeysOf(data);
  const double height = heightOf(data);
  Plan plan;
  plan.numHuecosPatio.fill(2 * storeys);
  plan.edgeCourtyards = courtyardsOf(b, courtyards);
  if (courtyards == CourtyardPlace::kInFacades) {
    plan.numHuecosFachada = {2 * storeys, 6 * storeys, 2 * storeys, 6 * storeys};
    plan.superficieFachada = areas(height * (b.L - b.lp), height * b.D);
    plan.superficiePatio = areas(height * b.lp, 2 * height * b.Pp);
    plan.outlines = outlinesInFacades(b);
  } else {
    plan.numHuecosFachada = {6 * storeys, 2 * storeys, 6 * storeys, 2 * storeys};
    plan.superficieFachada = areas(height * b.L, height * (b.D - b.Pp));
    plan.superficiePatio = areas(2 * height * b.lp, height * b.Pp);
    plan.outlines = outlinesInSides(b);
  }
  return plan;
}

}  // namespace

PlanResult planCourtyardsInFacades(const PlanData& data) {
  return planWith(CourtyardPlace::kInFacades, data);
}

PlanResult planCourtyardsInSides(const PlanData& data) {
  return planWith(CourtyardPlace::kInSides, data);
}
