#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Makes of the bytes of a file what the system's text mode hands out, in place, and gives their
/// new number.
std::size_t asTextMode(char* bytes, std::size_t size);

/// What that mode makes of a text that is written, whose lines end in LF.
std::string asWrittenInTextMode(std::string_view text);
