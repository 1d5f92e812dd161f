#include "core/text_mode.h"

std::size_t asTextMode(char*, std::size_t size) { return size; }

std::string asWrittenInTextMode(std::string_view text) { return std::string(text); }
