#pragma once

#include "check/finding.h"
#include "generator/template.h"
#include "typology/typology_record.h"

/// Warnings and notes about a template and its table, whatever the typology.
Findings templateFindings(const Template& plantilla);

/// Warnings and notes about what only a template and a typology together show: names that are
/// defined nowhere, façades without windows, plans and storeys of another building, glazing that
/// will differ from what was asked.
Findings fitFindings(const Template& plantilla, const TypologyRecord& typology);
