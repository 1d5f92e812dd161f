#pragma once

#include <string>

class GeneratorContext;
class TProgressBar;

/// Reads the typology file `tipPath` into the context and sums the table's surfaces by kind and
/// orientation. Comes before `generate`.
void prepare(GeneratorContext& context, const std::string& tipPath);

/// Writes the whole building description: header, courtyard shades, plan polygons, building
/// parameters, the rest of the template with its floors, spaces and listed surfaces rewritten, and
/// the typology text. Once a context. `progressBar` moves a step for every rewritten command.
void generate(GeneratorContext& context, TProgressBar& progressBar);
