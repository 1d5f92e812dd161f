#pragma once

#include <cstddef>

#include "plan/plan.h"

class GeneratorContext;

/// Copies the template up to its next POLYGON command and replaces the vertices V1 to Vn of that
/// command by those of the plan's outline of the index `outline`. A template vertex with a higher
/// number is kept. The run ends when the template has no further POLYGON.
void emitPolygon(GeneratorContext& context, const Plan& plan, std::size_t outline);
