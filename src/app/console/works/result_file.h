#pragma once

#include <string>
#include <string_view>

/// Writes a work's result to the file `path`, whole (see writeWholeFile), or to standard output
/// where `path` is empty. A write that fails ends the process.
void writeResult(const std::string& path, std::string_view bytes);
