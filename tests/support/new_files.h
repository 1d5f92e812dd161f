#pragma once

#include <string>

/// Makes a folder with a name of its own in the system's folder for such, and returns its path.
/// Throws where it cannot.
std::string newFolder();

/// Makes a pipe of that name; false where the system has none in its folders.
bool makePipe(const std::string& path);
