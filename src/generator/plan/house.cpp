#include "core/cp1252.h"
#include "generator/plan/plan.h"

// A plain rectangle of one storey (typology 1) or two.
//   y = D +---------+
//         |  house  |
//   y = 0 +---------+  main façade; x from 0 to L
PlanResult planHouse(const PlanData& data) {
  const double A = data.areaPlanta;
  const double L = data.longitudFachada;
  PlanChecks check;
  check(A > 30 && A < 1000, "Área de planta no válida. Debe ser >30 y <1000"_cp1252);
  check(L > 3 && A / 3 > L,
        "Longitud de fachada no válida. Debe ser >3 al igual que la profundidad"_cp1252);
  if (check.failed()) return check.failure();

  const double D = length(A / L);
  const int storeys = data.tipo == 1 ? 1 : 2;
  const double height = 3.0 * storeys;
  Plan plan;
  plan.numHuecosFachada.fill(storeys);
  plan.superficieFachada = areas(height * L, height * D);
  plan.outlines = {rectangle(0, 0, L, D)};
  return plan;
}
