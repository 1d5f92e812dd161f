#pragma once

class OutputLines;
class TProgressBar;
class Template;
struct TypologyRecord;

/// Puts the whole building description of a typology together in `output`: header, courtyard
/// shades, plan polygons, building parameters, the rest of the template with its floors, spaces and
/// listed surfaces rewritten, and the typology text. `progressBar` moves a step for every rewritten
/// command. `plantilla` must outlive `output`, whose lines are mostly the template's own bytes.
void generate(const Template& plantilla, const TypologyRecord& typology, OutputLines& output,
              TProgressBar& progressBar);
