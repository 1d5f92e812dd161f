#pragma once

class GeneratorContext;

/// Draws the plan of the context's typology: checks its plan numbers (the first failing check ends
/// the run, before anything is written), fills the record's four per-façade arrays and writes the
/// outlines into the template's next POLYGON commands.
void geometriaTipologia(GeneratorContext& context);
