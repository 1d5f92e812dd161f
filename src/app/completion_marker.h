#pragma once

#include <string>

/// Creates the completion marker, an empty file: the last act of a successful run, by which a
/// caller sees that the output is complete. A marker that cannot be created ends the run.
void createCompletionMarker(const std::string& path);
