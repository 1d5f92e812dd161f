#pragma once

#include <string_view>

#include "app/command_line.h"

/// The forms of a front end, as start-up has use for them, in this order. Once created they are
/// there for as long as the process.
class DesktopForms {
 public:
  virtual ~DesktopForms() = default;
  /// The progress form, whose run has these paths.
  virtual void createMainForm(const RunPaths& paths) = 0;
  /// It is not shown.
  virtual void createInputForm() = 0;
  virtual void showMainForm() = 0;
  /// Dispatches messages until the main form has closed.
  virtual void loop() = 0;
};

/// The desktop program from its command line to its end: splits the command line, creates the forms
/// with its paths, shows the main one, stays until it has closed, and creates the completion
/// marker. Ends the process with 0; errors end it before.
[[noreturn]] void startUp(std::string_view commandLine, DesktopForms& forms);
