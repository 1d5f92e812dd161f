#pragma once

#include <functional>
#include <string>
#include <vector>

/// The console program, whose `main` is the platform's, and its exit code. `arguments` gives them
/// in UTF-8 on Windows and as bytes elsewhere, without the program's own name; it is asked where
/// what it throws is caught.
int consoleProgram(const std::function<std::vector<std::string>()>& arguments);
