#include "generator/polygon_emitter.h"

#include <string>

#include "core/concat.h"
#include "generator/generator_context.h"

void emitPolygon(GeneratorContext& context, std::span<const Vertex> vertices) {
  context.copyUntilCommand("POLYGON");
  context.writeCurrentLine();
  context.dropVerticesUntilEnd(static_cast<int>(vertices.size()));
  for (std::size_t k = 0; k < vertices.size(); ++k) {
    const std::string key = concat("V", std::to_string(k + 1));
    const std::string x = context.formatFinite(key, vertices[k].x);
    context.writeLine(key, " = ( ", x, " , ", context.formatFinite(key, vertices[k].y), " )");
  }
  context.writeLine("..");
}
