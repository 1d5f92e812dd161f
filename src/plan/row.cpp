#include "plan/checks.h"
#include "plan/shapes.h"

// Four dwellings side by side, and a stair-well as deep as the block at the end.
//   y = D +---+---+---+---+--+
//         | 1 | 2 | 3 | 4 |st|
//   y = 0 +---+---+---+---+--+  x from 0 to L; w wide each, the stair le long
PlanResult planRow(const PlanData& data) {
  const double A = data.areaPlanta;
  const double L = data.longitudFachada;
  const double Ae = data.areaEscalera;
  PlanChecks check;
  check("Área de planta no válida. Debe ser >126 y <4000"_cp1252, A > 126 && A < 4000, {kA});
  check(kBadFacade, {L > 14, {kL}}, {A / 3 > L, {kL, kA}});
  check("Área de escalera no válida. Debe ser >6 y < area de planta-120"_cp1252, {Ae > 6, {kAe}},
        {A - 120 > Ae, {kAe, kA}});
  const double D = length(A / L);
  const double le = length(Ae / D);
  const double w = length((L - le) * 0.25);
  check("Datos geométricos incoherentes"_cp1252, L > 0 && D > 0 && le > 0 && w > 0, {kL, kA, kAe});
  if (check.failed()) return check.failure();

  const int storeys = storeysOf(data);
  const double height = heightOf(data);
  Plan plan;
  plan.numHuecosFachada = {4 * storeys, storeys, 4 * storeys, storeys};
  plan.superficieFachada = areas(height * (L - le), height * D);
  plan.numHuecosPatio = {storeys, 0, storeys, 0};
  plan.superficiePatio = areas(height * le, 0);
  plan.outlines = {block(L, D)};
  for (int i = 0; i < 4; ++i) plan.outlines.push_back(dwelling(rectangle(i * w, 0, i * w + w, D)));
  plan.outlines.push_back(stair(rectangle(L - le, 0, L, D)));
  return plan;
}
