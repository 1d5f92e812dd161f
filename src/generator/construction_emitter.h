#pragma once

#include <string_view>

class GeneratorContext;

/// Gives a surface command (wall, roof, floor, partition) the construction that the typology names
/// for it, right after its header; the template's own CONSTRUCTION line is dropped. Called with the
/// header in the current line.
/// `orientationClass`: see orientation.h. `kind`: of the table file, below 1. `surfaceName` is the
/// table row's name; the command is written under its own header, so it is not used.
void emitConstruction(GeneratorContext& context, int orientationClass, std::string_view surfaceName,
                      int kind);
