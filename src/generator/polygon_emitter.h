#pragma once

#include <span>

class GeneratorContext;

/// A point of the plan, m: x along the main façade, y across the block.
struct Vertex {
  float x = 0;
  float y = 0;
};

/// Copies the template up to its next POLYGON command and replaces the vertices V1 to Vn of that
/// command by `vertices`. A template vertex with a higher number is kept.
/// The run ends when the template has no further POLYGON.
void emitPolygon(GeneratorContext& context, std::span<const Vertex> vertices);
