#pragma once

#include <functional>
#include <set>
#include <tuple>
#include <vector>

#include "typology/tipo.h"

/// The typology numbers for tests that try every kind of building: from the table of the numbers,
/// so that a new number or a new family is tried as soon as it has its row there.

/// The numbers for which `holds`, rising.
inline std::vector<int> numbersWhere(const std::function<bool(const TipoRow&)>& holds) {
  std::vector<int> tipos;
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    if (holds(tipoRow(tipo))) tipos.push_back(tipo);
  }
  return tipos;
}

/// The first number of each kind: numbers of a kind have the same family, storeys in their plan and
/// courtyard shades, and a run does the same for them but for the class that it writes.
inline std::vector<int> oneTipoAKind() {
  std::set<std::tuple<PlanFamily, int, CourtyardShades>> kinds;
  return numbersWhere([&](const TipoRow& row) {
    return kinds.insert({row.family, row.planStoreys, row.shades}).second;
  });
}

/// Of these, the blocks: they may have any number of storeys.
inline std::vector<int> oneBlockAKind() {
  std::vector<int> tipos = oneTipoAKind();
  std::erase_if(tipos, [](int tipo) { return tipoRow(tipo).storeys.most != kAnyNumber; });
  return tipos;
}
