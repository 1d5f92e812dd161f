#pragma once

#include <string>
#include <string_view>

/// Writes a file so that it is whole whenever it is there: beside its place, and then renamed. A
/// link stays one, and what is no plain file (a device, a pipe) is written as it is.
/// Errors end the run: a file that cannot be created, a write that fails. Nothing is left then, and
/// what was there before still is.
void writeWholeFile(const std::string& path, std::string_view bytes);
