#pragma once

#include <cstddef>

/// Makes of the bytes of a file what the system's text mode hands out, in place, and gives their
/// new number.
std::size_t asTextMode(char* bytes, std::size_t size);
