#pragma once

#include "app/command_line.h"

class TProgressBar;

/// The run driver: turns the four paths into a generated building description. Opens Error.log in
/// the marker's folder, checks that the template, its table (*.tbl beside it), the typology file
/// and defectos.inp (in the template's folder) exist, loads the defaults library, generates, and
/// writes the output.
/// Returns 1. Any fault ends the run instead, with exit code 3. The output is then empty, or as it
/// was before where the fault came before it was opened. The marker is its caller's business.
int RunGeneration(TProgressBar& progressBar, const RunPaths& paths);
