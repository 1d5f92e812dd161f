#include "report/sample_plans.h"

#include <gtest/gtest.h>

#include <cmath>

#include "plan/ordinary_plan.h"
#include "typology/kinds_of_buildings.h"

namespace {

float between(std::mt19937& random, double low, double high) {
  const double share = static_cast<double>(random()) / 4294967296.0;
  return static_cast<float>(std::round(low * std::pow(high / low, share) * 100) / 100);
}

}  // namespace

PlanData randomPlan(int tipo, std::mt19937& random) {
  constexpr int kTries = 100000;  // far more than any family needs
  for (int i = 0; i < kTries; ++i) {
    PlanData data;
    data.tipo = tipo;
    const bool house = tipoRow(tipo).family == PlanFamily::kHouse;
    data.areaPlanta = between(random, house ? 30 : 125, house ? 1000 : 4000);
    data.longitudFachada = between(random, 3, data.areaPlanta / 3);
    data.areaPatio = between(random, 4, data.areaPlanta / 3);
    data.areaEscalera = between(random, 6, data.areaPlanta / 4);
    data.profundidadPatio = between(random, 2, data.areaPatio / 2);
    data.profundidadEscalera = between(random, 2, data.areaEscalera / 2);
    if (std::holds_alternative<Plan>(planTipologia(data))) return data;
  }
  ADD_FAILURE() << "no random plan of TIPO " << tipo << " passes its checks: draw other measures";
  return ordinaryPlan(tipo);
}

void forRandomPlans(int count, const std::function<void(const PlanData&, const Plan&)>& body) {
  std::mt19937 random(20240607);
  for (const int tipo : oneTipoAKind()) {
    for (int i = 0; i < count; ++i) {
      const PlanData data = randomPlan(tipo, random);
      SCOPED_TRACE(testing::Message()
                   << "tipo " << tipo << ", A " << data.areaPlanta << ", Ap " << data.areaPatio
                   << ", Ae " << data.areaEscalera << ", L " << data.longitudFachada << ", Pp "
                   << data.profundidadPatio << ", Pe " << data.profundidadEscalera);
      body(data, std::get<Plan>(planTipologia(data)));
    }
  }
}
