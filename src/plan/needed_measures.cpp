#include "plan/needed_measures.h"

#include <algorithm>

#include "core/concat.h"
#include "plan/families.h"
#include "plan/plan_numbers.h"

bool needsMeasure(int tipo, std::string_view keyword) {
  const auto numbers = planNumbers();
  const auto number = std::ranges::find(numbers, keyword, &PlanNumber::name);
  return number != numbers.end() && !number->ofEveryFamily &&
         familyRow(tipoRow(tipo).family).looksAt(number->inPlan);
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
