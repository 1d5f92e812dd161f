#pragma once

#include <string>

/// The command line as one text, as the platform hands it to a program, without the program's own
/// name. Where the platform hands over separate arguments they are joined by one blank.
std::string platformCommandLine(int argc, const char* const argv[]);
