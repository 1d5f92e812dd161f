#pragma once

#include <cstdio>
#include <string>

/// Creates a file and opens it to be written, bytes as they are. Null where it cannot be created,
/// or is there already.
std::FILE* createNewFile(const std::string& path);
