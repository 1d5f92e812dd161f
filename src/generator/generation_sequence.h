#pragma once

#include <vector>

#include "core/fault.h"

class OutputLines;
class TProgressBar;
class Template;
struct BegunPiece;
struct TypologyRecord;

/// Puts the whole building description of a typology together in `output`: header, courtyard
/// shades, plan polygons, building parameters, the rest of the template with its floors, spaces and
/// listed surfaces rewritten, and the typology text. `progressBar` moves a step for every rewritten
/// command. `plantilla` must outlive `output`, whose lines are mostly the template's own bytes.
void generate(const Template& plantilla, const TypologyRecord& typology, OutputLines& output,
              TProgressBar& progressBar);

/// The same where nobody looks on. `pieces`: where in the output each piece of its own begins; null
/// where nobody asks.
void generate(const Template& plantilla, const TypologyRecord& typology, OutputLines& output,
              std::vector<BegunPiece>* pieces = nullptr);

/// The faults that stand in the way of the same building, for a check: the first is the one that
/// `generate` ends with, and all there is to say of a plan that cannot be. None when it comes to
/// its end.
std::vector<Fault> faultsOfGenerating(const Template& plantilla, const TypologyRecord& typology);
