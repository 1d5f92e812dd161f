#pragma once

#include <span>
#include <string>

#include "check/written_vivienda.h"

/// Whether the frame and the shade that VIVIENDA names are commands of the file; see
/// compareReadings.
void compareDefinitions(WrittenVivienda& vivienda, std::span<const std::string> framesOfTemplate);
