#pragma once

struct WorkArguments;

/// The work `lote`: a list of dwellings, on all cores.
int lote(const WorkArguments& arguments);
