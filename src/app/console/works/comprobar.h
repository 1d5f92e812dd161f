#pragma once

struct WorkArguments;

/// The work `comprobar`: all faults and warnings of a run's inputs.
int comprobar(const WorkArguments& arguments);
