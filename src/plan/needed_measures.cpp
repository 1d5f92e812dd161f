#include "plan/needed_measures.h"

#include <algorithm>

#include "core/concat.h"
#include "plan/families.h"

namespace {

struct Measure {
  std::string_view keyword;
  bool FamilyNeeds::*used;
};
constexpr Measure kMeasures[] = {
    {"AREA-PATIO", &FamilyNeeds::areaPatio},
    {"AREA-ESCALERA", &FamilyNeeds::areaEscalera},
    {"PROFUNDIDAD-PATIO", &FamilyNeeds::profundidadPatio},
    {"PROFUNDIDAD-ESCALERA", &FamilyNeeds::profundidadEscalera},
};

}  // namespace

bool needsMeasure(int tipo, std::string_view keyword) {
  const FamilyNeeds& needs = needsOf(tipoRow(tipo).family);
  const auto* measure = std::ranges::find(kMeasures, keyword, &Measure::keyword);
  return measure != std::end(kMeasures) && needs.*measure->used;
}

std::string tiposWhere(const std::function<bool(int)>& holds) {
  std::string text;
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    if (!holds(tipo)) continue;
    int last = tipo;
    while (last < kLastTipo && holds(last + 1)) ++last;
    text += concat(text.empty() ? "" : ", ", std::to_string(tipo));
    if (last > tipo) text += concat(last == tipo + 1 ? ", " : " a ", std::to_string(last));
    tipo = last;
  }
  return text;
}
