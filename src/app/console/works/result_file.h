#pragma once

#include <string>
#include <string_view>

/// Writes a work's result to the file `path`, or to standard output where `path` is empty. A file
/// is written beside its place and renamed, so that one that is there is whole; what is no plain
/// file (a device, a pipe) is written as it is.
/// Errors end the process: a file that cannot be created, a write that fails. Nothing is left then,
/// and what was there before still is.
void writeResult(const std::string& path, std::string_view bytes);
