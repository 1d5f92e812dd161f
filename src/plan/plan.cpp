#include "plan/plan.h"

#include <algorithm>

#include "core/cp1252.h"
#include "plan/families.h"
#include "typology/tipo.h"

namespace {

/// Kept on purpose: the number is not appended to the text but skips as many of its characters, so
/// that 24 shows ": ", 25 a blank and 26 and above nothing.
PlanResult unknownTipo(int tipo) {
  constexpr auto kText = "No existe el tipo número: "_cp1252;
  const auto skipped = std::min(static_cast<std::size_t>(tipo), kText.size());
  return PlanFailure{{{std::string(kText.substr(skipped)), {PlanKeyword::kTipo}}}};
}

}  // namespace

PlanResult planTipologia(const PlanData& data) {
  const FamilyRow& family = familyRow(tipoRow(data.tipo).family);
  return family.plan != nullptr ? family.plan(data) : unknownTipo(data.tipo);
}
