#include "core/open_file.h"

std::FILE* openFile(const std::string& path, const char* mode) {
  return std::fopen(path.c_str(), mode);
}

std::FILE* createNewFile(const std::string& path) { return std::fopen(path.c_str(), "wbx"); }
