#pragma once

#include <functional>
#include <random>

#include "plan/plan.h"

/// Random plan numbers of typology `tipo` that pass its checks.
PlanData randomPlan(int tipo, std::mt19937& random);

/// Calls `body` with `count` random plans of each kind of building.
void forRandomPlans(int count, const std::function<void(const PlanData&, const Plan&)>& body);
