#pragma once

#include <functional>

/// Runs a program's body and gives its exit status. What the body throws (out of memory, or the
/// unexpected) ends the process as every error does: a message and exit code 3.
int runSafely(const std::function<int()>& body);
