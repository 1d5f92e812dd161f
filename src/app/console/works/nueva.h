#pragma once

struct WorkArguments;

/// The work `nueva`: a typology file to start from, in Windows-1252, as the run reads it.
int nueva(const WorkArguments& arguments);
