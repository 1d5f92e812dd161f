#pragma once

#include <string>

/// The completion of tip2bdl-cli for bash, by the table of works and options: works, options, the
/// words that an option takes, and files of the kinds that stand in a work's usage line.
std::string bashCompletion();
