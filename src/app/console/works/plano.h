#pragma once

struct WorkArguments;

/// The plan of a typology as SVG. A typology that a run would refuse ends the process with its
/// message.
int plano(const WorkArguments& arguments);
