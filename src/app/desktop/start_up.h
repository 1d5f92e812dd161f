#pragma once

#include <functional>
#include <string_view>

#include "app/command_line.h"

/// The desktop program from its command line to its end: splits the command line, has `runForms`
/// create the forms with its paths, show them and stay until the main form has closed, and creates
/// the completion marker. Ends the process with 0; errors end it before.
[[noreturn]] void startUp(std::string_view commandLine,
                          const std::function<void(const RunPaths&)>& runForms);
