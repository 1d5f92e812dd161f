#include "core/paths.h"

std::filesystem::path filePath(const std::string& path) { return path; }
