#include "core/paths.h"
#include "core/wide_text.h"

// The standard library's own conversions throw at names beyond ASCII.
std::filesystem::path filePath(const std::string& path) { return toWide(path); }
std::string nameOf(const std::filesystem::path& path) { return toUtf8(path.native()); }
