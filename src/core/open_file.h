#pragma once

#include <cstdio>
#include <string>

/// Opens a file as std::fopen does, which would misread names beyond ASCII, and refuse long ones,
/// where the system's own names are no bytes. Every file is opened by one of these or from a
/// filePath.
std::FILE* openFile(const std::string& path, const char* mode);

/// Creates a file and opens it to be written, bytes as they are. Null where it cannot be created,
/// or is there already.
std::FILE* createNewFile(const std::string& path);
