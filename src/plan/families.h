#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "plan/plan.h"
#include "typology/tipo.h"

/// Lengths that are ordinary, m.
struct OrdinaryLengths {
  float from = 0;
  float to = 0;
};

/// All that a family of plans is, one row a family. What else a new one needs: CONTRIBUTING.md.
struct FamilyRow {
  PlanFamily family;
  std::string_view name;                // for people
  int dwellings;                        // a storey; of a house, in all
  PlanResult (*plan)(const PlanData&);  // null: there is no plan
  bool courtyardBays;                   // windows look into courtyards, or out of a stair's ends
  /// The numbers of an ordinary building, without TIPO; 0 for a measure that the family does not
  /// look at.
  PlanData ordinary;
  std::optional<OrdinaryLengths> ordinaryDepth;  // of the block; nothing where none is ordinary

  constexpr bool isHouse() const { return dwellings == 1; }
  constexpr bool looksAt(float PlanData::*measure) const { return ordinary.*measure > 0; }
};

/// In the order of PlanFamily, one a value.
std::span<const FamilyRow> families();

const FamilyRow& familyRow(PlanFamily family);
