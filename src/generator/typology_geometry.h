#pragma once

#include "plan/plan.h"

class GeneratorContext;

/// Draws the plan of the context's typology, writes its outlines into the template's next POLYGON
/// commands and gives it to those who need its bays. The first limit that it breaks ends the run
/// before any outline is written.
Plan geometriaTipologia(GeneratorContext& context);
