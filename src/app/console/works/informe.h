#pragma once

struct WorkArguments;

/// The report of the building that a run of a template and a typology would write, as HTML or JSON.
/// Where the run would refuse them, the report is of what could be read, the run's message is shown
/// and the exit code is that of an error.
int informe(const WorkArguments& arguments);
