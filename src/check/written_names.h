#pragma once

#include "check/written_typology.h"
#include "check/written_vivienda.h"

/// Whether the names that VIVIENDA gives are those of commands that there are. Frames and shades
/// are commands of the typology file; constructions and glass are the template's, and are looked up
/// only where its names are known.
void compareDefinitions(WrittenVivienda& vivienda, const TemplateNames* ofTemplate);
