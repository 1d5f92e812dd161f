#pragma once

#include <string_view>

/// What the codes of a results file are about: those of a check and the list's own.
namespace stock {

/// Empty for a code that nobody knows. UTF-8.
std::string_view titleOfCode(std::string_view code);

/// "aviso" or "nota", of a code in AVISOS.
std::string_view gravityOfCode(std::string_view code);

}  // namespace stock
