#include "core/paths.h"

std::filesystem::path filePath(const std::string& path) { return path; }
std::string nameOf(const std::filesystem::path& path) { return path.native(); }
