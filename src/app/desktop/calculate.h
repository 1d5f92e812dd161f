#pragma once

#include <functional>
#include <string>

#include "app/command_line.h"

/// What the input form's "Calcular" does, without its widgets. `typed` is what stands in the edit:
/// `runModally` shows a progress form with it as the template, without any other path, so that the
/// run fails where it looks for the typology file. An empty text is only remarked upon.
void calculate(const std::string& typed, const std::function<void(const RunPaths&)>& runModally);
