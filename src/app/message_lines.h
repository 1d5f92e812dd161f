#pragma once

#include <string_view>

#include "core/fault.h"

/// Messages as lines on standard error, for a program without a desktop, or one that finds no
/// screen. In the terminal's encoding; bytes as cp1252::toUtf8 reads them.

/// Says `text`, with the line ends that it brings, in one go.
void sayText(std::string_view text);

/// "Se ha producido un error: No existe ...": a caption and its text.
void sayMessage(std::string_view text, std::string_view caption);

/// The message of what ends a run; a second line, two blanks in, shows the fault's place where it
/// has a line.
void sayFault(const Fault& fault);
