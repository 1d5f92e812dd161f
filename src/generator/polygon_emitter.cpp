#include "generator/polygon_emitter.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/concat.h"
#include "generator/generator_context.h"

void emitPolygon(GeneratorContext& context, std::span<const Vertex> vertices) {
  context.copyUntilCommand("POLYGON");
  context.writeCurrentLine();

  std::vector<std::string> keys;
  for (std::size_t k = 1; k <= vertices.size(); ++k) keys.push_back(concat("V", std::to_string(k)));
  std::vector<std::string_view> ends(keys.begin(), keys.end());
  ends.push_back("..");
  const NameList names(std::move(ends));
  const int end = static_cast<int>(vertices.size());

  context.dropKeysUntil(end, names);
  for (std::size_t k = 0; k < vertices.size(); ++k) {
    context.writeLine(concat(keys[k], " = ( ", context.formatFinite(keys[k], vertices[k].x), " , ",
                             context.formatFinite(keys[k], vertices[k].y), " )"));
  }
  context.writeLine("..");
}
