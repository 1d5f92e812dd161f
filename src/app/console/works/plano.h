#pragma once

struct WorkArguments;

/// The plan of a typology as SVG. A typology that a run would refuse ends this one with its
/// message.
int plano(const WorkArguments& arguments);
