#include "generator/polygon_emitter.h"

#include "generator/generator_context.h"

void emitPolygon(GeneratorContext& context, std::span<const Vertex> vertices, std::size_t outline) {
  context.copyUntilCommand("POLYGON");
  context.writeCurrentLine();
  context.dropVerticesUntilEnd(static_cast<int>(vertices.size()));
  context.begin({.kind = OwnPiece::Kind::kPolygon, .outline = outline});
  writePolygon(vertices, context.lines());
}
