#include "plan/checks.h"
#include "plan/shapes.h"

// A stair core with four wings ("palas") round it, each turned a quarter against the next.
//
//   y = Db             +--------+
//                      |  back  |            from x = c to L-a
//   y = d+Pe  +-----+--+--------+
//             |left |   core    +-------+    left: y from e to d+Pe
//   y = e     +-----+           | right |    right: y from d to d+b
//   y = d           +-------+---+-------+    core: from (a, d) to (a+le, d+Pe)
//                   | front |                from x = a to a+xp
//   y = 0           +-------+                x from 0 to L
//
// The outlines are those that the templates of this family are made for: some vertices lie on a
// straight edge or double back along it, which splits the walls for the windows.

namespace {

/// The lengths of the figure, m. Templates and messages know them by these letters.
struct Wings {
  double L, Db;   // of the rectangle round all of it: façade and depth
  double Pe, le;  // core: depth and length
  double a, b;    // side wings: length and depth
  double xp, d;   // front and back wings: length and depth
  double c, e;    // from the side to the back wing; from the front to the left wing
};

Wings checkedWings(const PlanData& data, PlanChecks& check) {
  constexpr auto kLongerFacade =
      "Para el área de planta y de escalera, la longitud de la fachada debe ser mayor."_cp1252;
  const double A = data.areaPlanta;
  const double L = data.longitudFachada;
  const double Ae = data.areaEscalera;
  const double Pe = data.profundidadEscalera;
  check(kBadArea124, A > 125 && A < 4000, {kA});
  check(kBadFacade, {L > 9, {kL}}, {A / 9 > L, {kL, kA}});
  check(kBadStair, {Ae > 6, {kAe}}, {A - 120 > Ae, {kAe, kA}});
  check(kBadStairDepth, {Pe > 3, {kPe}}, {Ae / 3 > Pe, {kPe, kAe}});
  check("La longitud de la fachada debe ser > 3", L > 3, {kL});
  check("La profundidad de la escalera debe ser > 2", Pe > 2, {kPe});
  const double le = length(Ae / Pe);
  check("La longitud de la escalera debe ser > 2", le > 2, {kAe, kPe});
  const double a = length((L - le) * 0.5);
  check(kLongerFacade, a > 2, {kL, kAe, kPe});
  const double b = length((A - Ae) / (4 * a));
  check(kLongerFacade, b > 2, {kA, kAe, kL, kPe});
  const double xp = length((le / Pe) * b);
  check("La longitud Xpala debe ser > 0", xp > 2, {kPe, kAe, kA, kL});
  const double c = length(L - a - xp);
  check(kLongerFacade, c > 2, {kL, kA, kAe, kPe});
  const double d = length((A - Ae) / (4 * xp));
  check(kLongerFacade, d > 2, {kA, kAe, kL, kPe});
  const double Db = length(2 * d + Pe);
  check("La profundidad del bloque debe ser > 3", Db > 3, {kPe, kA, kAe, kL});
  const double e = length(Db - d - b);
  check(kLongerFacade, e > 2, {kA, kAe, kL, kPe});
  return {L, Db, Pe, le, a, b, xp, d, c, e};
}

}  // namespace

PlanResult planXpala(const PlanData& data) {
  PlanChecks check;
  const Wings wings = checkedWings(data, check);
  if (check.failed()) return check.failure();

  const auto& [L, Db, Pe, le, a, b, xp, d, c, e] = wings;
  const double height = heightOf(data);
  Plan plan;
  plan.numHuecosFachada.fill(6 * storeysOf(data));
  plan.superficieFachada = areas(height * L, height * Db);
  plan.outlines = {
      block(L, Db),
      dwelling({at(a + xp / 2, 0), at(a + xp, 0), at(a + xp, d / 2), at(a + xp, d), at(a + le, d),
                at(a + le / 2, d), at(a, d), at(a, e), at(a, e / 2), at(a, 0)}),
      dwelling({at(a + xp, d), at(L - c / 2, d), at(L, d), at(L, d + b / 2), at(L, d + b),
                at(L - a / 2, d + b), at(L - a, d + b), at(L - a, Db - d), at(L - a, d + Pe / 2),
                at(L - a, d)}),
      dwelling({at(a + le, Db - d), at(L - a, d + b), at(L - a, Db - e / 2), at(L - a, Db),
                at(c + xp / 2, Db), at(c, Db), at(c, Db - d / 2), at(c, Db - d), at(a, Db - d),
                at(a + le / 2, Db - d)}),
      dwelling({at(a, e), at(a, d), at(a, d + Pe / 2), at(a, d + Pe), at(c, d + Pe),
                at(c / 2, d + Pe), at(0, d + Pe), at(0, e + b / 2), at(0, e), at(a / 2, e)}),
      stair({at(a + le / 2, d), at(a + le, d), at(a + le, d + Pe / 2), at(a + le, d + Pe),
             at(a + le / 2, d + Pe), at(a, d + Pe), at(a, d + Pe / 2), at(a, d)}),
  };
  return plan;
}
