#include "plan/checks.h"
#include "plan/shapes.h"

// A plain rectangle of one storey (typology 1) or two.
//   y = D +---------+
//         |  house  |
//   y = 0 +---------+  main façade; x from 0 to L
PlanResult planHouse(const PlanData& data) {
  const double A = data.areaPlanta;
  const double L = data.longitudFachada;
  PlanChecks check;
  check("Área de planta no válida. Debe ser >30 y <1000"_cp1252, A > 30 && A < 1000, {kA});
  check("Longitud de fachada no válida. Debe ser >3 al igual que la profundidad"_cp1252,
        {L > 3, {kL}}, {A / 3 > L, {kL, kA}});
  if (check.failed()) return check.failure();

  const double D = length(A / L);
  const double height = heightOf(data);
  Plan plan;
  plan.numHuecosFachada.fill(storeysOf(data));
  plan.superficieFachada = areas(height * L, height * D);
  // The house is its own block.
  plan.outlines = {dwelling(rectangle(0, 0, L, D))};
  return plan;
}
