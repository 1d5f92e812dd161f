#include "generator/polygon_emitter.h"

#include "generator/generator_context.h"

void emitPolygon(GeneratorContext& context, const Plan& plan, std::size_t outline) {
  context.copyUntilCommand(kPolygonType);
  context.writeCurrentLine();
  context.dropVerticesUntilEnd(static_cast<int>(plan.outlines[outline].vertices.size()));
  context.write({.kind = OwnPiece::Kind::kPolygon, .outline = outline}, plan);
}
