#pragma once

#include <string>
#include <string_view>

/// `utf8` in the encoding of the user's terminal, as the environment's locale names it. What that
/// encoding lacks becomes "?". A locale without accents ("C") says nothing about the terminal;
/// there the text stays UTF-8, as nearly every terminal is.
std::string forTerminal(std::string_view utf8);
