#pragma once

#include <string>
#include <vector>

#include "check/finding.h"
#include "typology/typology_record.h"

/// A command of the template by which a typology may call it.
struct DefinedName {
  std::string name;  // with or without its double quotes; also its long name, as a row of its own
  std::string type;  // CONSTRUCTION, GLASS-TYPE, NAME-FRAME ...
};
using TemplateNames = std::vector<DefinedName>;

/// The second reading of a typology file. A run reads it by search: the first occurrence of a
/// keyword counts, wherever it stands. A person reads lines. Wherever the two readings differ, a
/// finding says so: what is written, what the run takes, how to mend it.
///
/// `record` is what the run's reading gave (of a file with errors: what could be read). No error is
/// found here, only warnings and notes, in the order of their places. Never ends a run.
///
/// With the names that a template defines, those of constructions and glass are looked up there,
/// and a frame that only the template has is told from one that nobody has.
Findings compareReadings(const TypologyRecord& record, const TemplateNames* ofTemplate = nullptr);
