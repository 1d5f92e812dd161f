#pragma once

#include <string>
#include <string_view>

/// Writes a work's result to the file `path`, whole (see writeWholeFile), or to standard output
/// where `path` is empty. Its bytes are the same on every system. A write that fails ends the
/// process.
void writeResult(const std::string& path, std::string_view bytes);

/// The same for what people read, in UTF-8: on standard output it has the line ends of the system
/// and the encoding of the terminal.
void writeText(const std::string& path, std::string_view utf8);
