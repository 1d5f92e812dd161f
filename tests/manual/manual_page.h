#pragma once

#include <string>
#include <string_view>

/// Tables of the manual that follow from the program's. A page has them between the comments
/// `<!-- tabla: NAME -->` and `<!-- fin -->`.

/// Compares the table of that name on a page of docs/manual; with TIP2BDL_UPDATE_GOLDENS in the
/// environment it is written instead.
void expectTable(std::string_view page, std::string_view name, const std::string& table);

/// `text` as code.
std::string code(std::string_view text);
/// As few digits as tell the value.
std::string shortest(float value);
