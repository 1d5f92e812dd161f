#pragma once

#include <string>

/// The running program's own file; empty where the platform does not tell.
std::string executablePath();
