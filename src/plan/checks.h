#pragma once

#include <string_view>
#include <vector>

#include "core/cp1252.h"
#include "plan/plan.h"

/// What the checks of the families are written with.

/// One comparison of a check, and the keywords whose values it reads, directly or through lengths
/// that come from them. The first is the one to blame.
struct Limit {
  bool holds;
  std::vector<PlanKeyword> reads;
};

/// The checks of a family, in order. All are strict, a NaN fails them, and the first failing one is
/// the run's message; the later ones are kept where they tell something new.
class PlanChecks {
 public:
  void operator()(std::string_view message, bool holds, std::vector<PlanKeyword> reads);
  /// A check of two comparisons.
  void operator()(std::string_view message, const Limit& one, const Limit& two);

  bool failed() const { return !faults_.empty(); }
  PlanFailure failure() const { return {faults_}; }

 private:
  bool add(std::string_view message, const Limit& limit);
  bool isNew(const std::vector<PlanKeyword>& reads) const;

  std::vector<PlanFault> faults_;
};

// Keywords by the letters of the formulas.
inline constexpr auto kA = PlanKeyword::kAreaPlanta;
inline constexpr auto kAp = PlanKeyword::kAreaPatio;
inline constexpr auto kAe = PlanKeyword::kAreaEscalera;
inline constexpr auto kL = PlanKeyword::kLongitudFachada;
inline constexpr auto kPp = PlanKeyword::kProfundidadPatio;
inline constexpr auto kPe = PlanKeyword::kProfundidadEscalera;

// Messages of several families. Some quote limits other than those that are tested; the tested
// numbers are the rule, and raters know the texts as they are.
inline constexpr auto kBadArea124 = "Área de planta no válida. Debe ser >124 y <4000"_cp1252;
inline constexpr auto kBadFacade =
    "Longitud de fachada no válida. Debe ser >14 y la profundidad >3"_cp1252;
inline constexpr auto kBadCourtyard =
    "Área de patio no válida. Debe ser >4 y < area de planta - 120"_cp1252;
inline constexpr auto kBadCourtyardDepth =
    "Profundidad de patio no válida. Debe ser >2 al igual que la longitud"_cp1252;
inline constexpr auto kBadStair =
    "Área de escalera no válida. Debe ser >4 y < area de planta - 120"_cp1252;
inline constexpr auto kBadStairDepth =
    "Profundidad de escalera no válida. Debe ser >2 al igual que la longitud"_cp1252;
