#include "core/cp1252.h"
#include "generator/plan/plan.h"

// Four dwellings side by side, and a stair-well as deep as the block at the end.
//   y = D +---+---+---+---+--+
//         | 1 | 2 | 3 | 4 |st|
//   y = 0 +---+---+---+---+--+  x from 0 to L; w wide each, the stair le long
PlanResult planRow(const PlanData& data) {
  const double A = data.areaPlanta;
  const double L = data.longitudFachada;
  const double Ae = data.areaEscalera;
  PlanChecks check;
  check(A > 126 && A < 4000, "Área de planta no válida. Debe ser >126 y <4000"_cp1252);
  check(L > 14 && A / 3 > L,
        "Longitud de fachada no válida. Debe ser >14 y la profundidad >3"_cp1252);
  check(Ae > 6 && A - 120 > Ae,
        "Área de escalera no válida. Debe ser >6 y < area de planta-120"_cp1252);
  const double D = length(A / L);
  const double le = length(Ae / D);
  const double w = length((L - le) * 0.25);
  check(L > 0 && D > 0 && le > 0 && w > 0, "Datos geométricos incoherentes"_cp1252);
  if (check.failed()) return check.failure();

  Plan plan;
  plan.numHuecosFachada = {12, 3, 12, 3};
  plan.superficieFachada = areas(9 * (L - le), 9 * D);
  plan.numHuecosPatio = {3, 0, 3, 0};
  plan.superficiePatio = areas(9 * le, 0);
  plan.outlines = {rectangle(0, 0, L, D)};
  for (int i = 0; i < 4; ++i) plan.outlines.push_back(rectangle(i * w, 0, i * w + w, D));
  plan.outlines.push_back(rectangle(L - le, 0, L, D));
  return plan;
}
