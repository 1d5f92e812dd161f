#pragma once

#include <array>

#include "typology/tipo.h"

/// Which of the plan numbers a family of plans looks at, one row a family.
struct FamilyNeeds {
  PlanFamily family;
  bool areaPatio;
  bool profundidadPatio;
  bool areaEscalera;
  bool profundidadEscalera;
  bool courtyardBays;  // windows look into courtyards, or out of a stair's ends
};

inline constexpr std::array<FamilyNeeds, 8> kFamilyNeeds = {{
    {PlanFamily::kHouse, false, false, false, false, false},
    {PlanFamily::kRow, false, false, true, false, true},
    {PlanFamily::kCourtyard, true, true, false, false, true},
    {PlanFamily::kStairwell, false, false, true, true, false},
    {PlanFamily::kCourtyardsInFacades, true, true, true, true, true},
    {PlanFamily::kCourtyardsInSides, true, true, true, true, true},
    {PlanFamily::kXpala, false, false, true, true, false},
    {PlanFamily::kNone, false, false, false, false, false},
}};

constexpr const FamilyNeeds& needsOf(PlanFamily family) {
  return kFamilyNeeds[static_cast<std::size_t>(family)];
}

// The row of a family stands at its place.
static_assert([] {
  for (const FamilyNeeds& row : kFamilyNeeds) {
    if (&needsOf(row.family) != &row) return false;
  }
  return true;
}());
