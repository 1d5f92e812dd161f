#include "core/cp1252.h"
#include "generator/plan/plan.h"

// A stair core of depth Pe and length le with four wings ("palas") around it, each turned a
// quarter against the next. The outlines are those that the templates of this family are made for:
// some vertices lie on a straight edge or double back along it, which splits the walls for the
// windows.
PlanResult planXpala(const PlanData& data) {
  constexpr auto kLongerFacade =
      "Para el área de planta y de escalera, la longitud de la fachada debe ser mayor."_cp1252;
  const double A = data.areaPlanta;
  const double L = data.longitudFachada;
  const double Ae = data.areaEscalera;
  const double Pe = data.profundidadEscalera;
  PlanChecks check;
  check(A > 125 && A < 4000, "Área de planta no válida. Debe ser >124 y <4000"_cp1252);
  check(L > 9 && A / 9 > L,
        "Longitud de fachada no válida. Debe ser >14 y la profundidad >3"_cp1252);
  check(Ae > 6 && A - 120 > Ae,
        "Área de escalera no válida. Debe ser >4 y < area de planta - 120"_cp1252);
  check(Pe > 3 && Ae / 3 > Pe,
        "Profundidad de escalera no válida. Debe ser >2 al igual que la longitud"_cp1252);
  check(L > 3, "La longitud de la fachada debe ser > 3");
  check(Pe > 2, "La profundidad de la escalera debe ser > 2");
  const double le = length(Ae / Pe);
  check(le > 2, "La longitud de la escalera debe ser > 2");
  const double a = length((L - le) * 0.5);
  check(a > 2, kLongerFacade);
  const double b = length((A - Ae) / (4 * a));
  check(b > 2, kLongerFacade);
  const double xp = length((le / Pe) * b);
  check(xp > 2, "La longitud Xpala debe ser > 0");
  const double c = length(L - a - xp);
  check(c > 2, kLongerFacade);
  const double d = length((A - Ae) / (4 * xp));
  check(d > 2, kLongerFacade);
  const double Db = length(2 * d + Pe);
  check(Db > 3, "La profundidad del bloque debe ser > 3");
  const double e = length(Db - d - b);
  check(e > 2, kLongerFacade);
  if (check.failed()) return check.failure();

  Plan plan;
  plan.numHuecosFachada.fill(18);
  plan.superficieFachada = areas(9 * L, 9 * Db);
  plan.outlines = {
      rectangle(0, 0, L, Db),
      {at(a + xp / 2, 0), at(a + xp, 0), at(a + xp, d / 2), at(a + xp, d), at(a + le, d),
       at(a + le / 2, d), at(a, d), at(a, e), at(a, e / 2), at(a, 0)},
      {at(a + xp, d), at(L - c / 2, d), at(L, d), at(L, d + b / 2), at(L, d + b),
       at(L - a / 2, d + b), at(L - a, d + b), at(L - a, Db - d), at(L - a, d + Pe / 2),
       at(L - a, d)},
      {at(a + le, Db - d), at(L - a, d + b), at(L - a, Db - e / 2), at(L - a, Db),
       at(c + xp / 2, Db), at(c, Db), at(c, Db - d / 2), at(c, Db - d), at(a, Db - d),
       at(a + le / 2, Db - d)},
      {at(a, e), at(a, d), at(a, d + Pe / 2), at(a, d + Pe), at(c, d + Pe), at(c / 2, d + Pe),
       at(0, d + Pe), at(0, e + b / 2), at(0, e), at(a / 2, e)},
      {at(a + le / 2, d), at(a + le, d), at(a + le, d + Pe / 2), at(a + le, d + Pe),
       at(a + le / 2, d + Pe), at(a, d + Pe), at(a, d + Pe / 2), at(a, d)},
  };
  return plan;
}
