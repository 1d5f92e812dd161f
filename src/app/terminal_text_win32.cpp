#include "app/terminal_text.h"

std::string forTerminal(std::string_view utf8) { return std::string(utf8); }
