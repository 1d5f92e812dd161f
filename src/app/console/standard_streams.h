#pragma once

/// Whether standard error, or standard output, is a terminal.
bool standardErrorIsTerminal();
bool standardOutputIsTerminal();

/// Makes sure that the three standard streams are open, on the null device where the caller closed
/// them: otherwise the first file opened would take the place of standard error, and a message
/// would be written into it.
void openStandardStreams();
