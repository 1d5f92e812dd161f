#include "core/new_file.h"

std::FILE* createNewFile(const std::string& path) { return std::fopen(path.c_str(), "wbx"); }
