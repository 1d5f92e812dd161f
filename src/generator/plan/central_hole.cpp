#include "core/cp1252.h"
#include "generator/plan/plan.h"

// Four quarter dwellings around a hole in the middle of the block, a courtyard or a stair-well.
// Every outer side of a quarter carries vertices at its thirds, so that each façade of the block
// comes in six pieces: 18 bays on three storeys.
//   y = D     +----+----+----+----+
//             |  5      |      4  |
//   y = D-dF  |    +----+----+    |
//   y = D/2   +----+   hole  +----+
//   y = dF    |    +----+----+    |
//             |  2      |      3  |
//   y = 0     +----+----+----+----+   x = 0, dH, L/2, L-dH, L

namespace {

std::vector<Outline> quartersAroundHole(double L, double D, double dF, double dH) {
  return {
      rectangle(0, 0, L, D),
      {at(0, 0), at(L / 6, 0), at(L / 3, 0), at(L / 2, 0), at(L / 2, dF), at(dH, dF), at(dH, D / 2),
       at(0, D / 2), at(0, D / 3), at(0, D / 6)},
      {at(L / 2, 0), at(2 * L / 3, 0), at(5 * L / 6, 0), at(L, 0), at(L, D / 6), at(L, D / 3),
       at(L, D / 2), at(L - dH, D / 2), at(L - dH, dF), at(L / 2, dF)},
      {at(L - dH, D / 2), at(L, D / 2), at(L, 2 * D / 3), at(L, 5 * D / 6), at(L, D),
       at(5 * L / 6, D), at(2 * L / 3, D), at(L / 2, D), at(L / 2, D - dF), at(L - dH, D - dF)},
      {at(0, D / 2), at(dH, D / 2), at(dH, D - dF), at(L / 2, D - dF), at(L / 2, D), at(L / 3, D),
       at(L / 6, D), at(0, D), at(0, 5 * D / 6), at(0, 2 * D / 3)},
      centralRectangle(L, D, dH, dF),
  };
}

}  // namespace

PlanResult planCourtyard(const PlanData& data) {
  const double A = data.areaPlanta;
  const double L = data.longitudFachada;
  const double Ap = data.areaPatio;
  const double Pp = data.profundidadPatio;
  PlanChecks check;
  check(A > 124 && A < 4000, "Área de planta no válida. Debe ser >124 y <4000"_cp1252);
  check(L > 6 && A / 6 > L,
        "Longitud de fachada no válida. Debe ser >14 y la profundidad >3"_cp1252);
  check(Ap > 4 && A - 120 > Ap,
        "Área de patio no válida. Debe ser >4 y < area de planta - 120"_cp1252);
  check(Pp > 2 && Ap * 0.5 > Pp,
        "Profundidad de patio no válida. Debe ser >2 al igual que la longitud"_cp1252);
  check(L > 0, "La longitud de fachada debe ser >0");
  const double D = length((A + Ap) / L);
  check(D > 0, "La profundidad del bloque debe ser >0");
  const double dF = length(0.5 * D - 0.5 * Pp);
  check(dF > 0, "La distancia de la fachada al patio debe ser >0");
  check(0.5 * D > dF, "La profundidad del patio debe ser >0");
  const double dH = length(0.5 * L - 0.5 * (Ap / Pp));
  check(dH > 0, "La distancia horizontal de la fachada al patio debe ser >0");
  check(0.5 * L > dH, "La longitud del patio debe ser >0");
  if (check.failed()) return check.failure();

  Plan plan;
  plan.numHuecosFachada.fill(18);
  plan.superficieFachada = areas(9 * L, 9 * D);
  plan.numHuecosPatio.fill(6);
  plan.superficiePatio = areas(9 * (L - 2 * dH), 9 * (D - 2 * dF));
  plan.outlines = quartersAroundHole(L, D, dF, dH);
  return plan;
}

PlanResult planStairwell(const PlanData& data) {
  const double A = data.areaPlanta;
  const double L = data.longitudFachada;
  const double Ae = data.areaEscalera;
  const double Pe = data.profundidadEscalera;
  PlanChecks check;
  check(A > 120 && A < 4000, "Área de planta no válida. Debe ser >120 y <4000"_cp1252);
  check(L > 6 && A / 6 > L,
        "Longitud de fachada no válida. Debe ser >14 y la profundidad >3"_cp1252);
  check(Ae > 4 && A - 120 > Ae,
        "Área de escalera no válida. Debe ser >4 y < area de planta - 120"_cp1252);
  check(Pe > 2 && Ae * 0.5 > Pe,
        "Profundidad de escalera no válida. Debe ser >2 al igual que la longitud"_cp1252);
  check(L > 0, "La longitud de fachada debe ser >0");
  const double D = length(A / L);
  check(D > 0, "La profundidad del bloque debe ser >0");
  const double dF = length(0.5 * D - 0.5 * Pe);
  check(dF > 0, "La distancia de la fachada a la escalera debe ser >0");
  check(0.5 * D > dF, "La profundidad de la escalera debe ser >0");
  const double dH = length(0.5 * L - 0.5 * (Ae / Pe));
  check(dH > 0, "La distancia horizontal de la fachada a la escalera debe ser >0");
  check(0.5 * L > dH, "La longitud de la escalera debe ser >0");
  if (check.failed()) return check.failure();

  Plan plan;
  plan.numHuecosFachada.fill(18);
  plan.superficieFachada = areas(9 * L, 9 * D);
  plan.outlines = quartersAroundHole(L, D, dF, dH);
  return plan;
}
