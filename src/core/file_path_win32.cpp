#include "core/paths.h"
#include "core/wide_text.h"

/// The standard library's own conversion throws at bytes that are no UTF-8.
std::filesystem::path filePath(const std::string& path) { return toWide(path); }
