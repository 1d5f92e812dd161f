#pragma once

#include "plan/plan.h"

/// Plan numbers to start from, for whoever writes a new typology file.

/// Those of an ordinary building of the number's family. Measures that the family does not look at
/// are 0. A number without a plan of its own has none: all measures are 0.
PlanData ordinaryPlan(int tipo);

/// The least and the most that a plan number may be, in hundredths, while the others stay as they
/// are. m or m2.
struct PlanRange {
  double least = 0;
  double most = 0;
};

/// The range of `number` in a plan that can be built, found by asking for the plan.
PlanRange rangeIn(const PlanData& data, float PlanData::*number);
