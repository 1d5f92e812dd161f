#pragma once

#include <string>

/// The text of a typology file for the number `tipo`, to be changed into a dwelling's own: every
/// keyword with what it is, its unit, its range and what its absence means, and the numbers of an
/// ordinary building. UTF-8. `tipo` is one with a plan.
///
/// The names of constructions, glass and shades are those of the sample templates.
std::string newTypology(int tipo);
