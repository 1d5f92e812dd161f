#pragma once

#include <cstdio>
#include <memory>
#include <string>

/// Opens a file as std::fopen does, which would misread names beyond ASCII, and refuse long ones,
/// where the system's own names are no bytes. Every file is opened by one of these or from a
/// filePath.
std::FILE* openFile(const std::string& path, const char* mode);

/// Creates a file and opens it to be written, bytes as they are. Null where it cannot be created,
/// or is there already.
std::FILE* createNewFile(const std::string& path);

/// Owns a file that one of these has opened, and closes it. Who wants to know whether closing went
/// well, which is when the last bytes are written, releases the file and closes it himself.
struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenedFile = std::unique_ptr<std::FILE, CloseFile>;
