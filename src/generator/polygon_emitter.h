#pragma once

#include <cstddef>
#include <span>

#include "plan/plan.h"

class GeneratorContext;

/// Copies the template up to its next POLYGON command and replaces the vertices V1 to Vn of that
/// command by `vertices`. A template vertex with a higher number is kept.
/// They are those of the plan's outline of that index.
/// The run ends when the template has no further POLYGON.
void emitPolygon(GeneratorContext& context, std::span<const Vertex> vertices,
                 std::size_t outline = 0);
