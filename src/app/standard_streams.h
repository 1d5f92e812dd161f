#pragma once

/// To be called before anything else. Makes sure that the three standard streams are open, on the
/// null device where the caller closed them: otherwise the first file opened would take the place
/// of standard error, and a message would be written into it. A console that has to be told how to
/// show our texts is told, until the process ends.
void openStandardStreams();

/// Whether standard error, or standard output, is a terminal.
bool standardErrorIsTerminal();
bool standardOutputIsTerminal();

/// What goes to standard output from now on is data, whose line ends stay as they are, and not text
/// in the system's own way. For a terminal everything is text.
void letStandardOutputBeBytes();
