#pragma once

#include "core/platform.h"

/// The desktop of the program with forms: pending messages are dispatched, and what is to be said
/// is the system's message box. A program of the window subsystem has no other way to say it.
class DesktopApplication : public TApplication {
 public:
  void ProcessMessages() override;
  /// In a session that nobody can see (a service's) there is no box, since it would wait for ever.
  void MessageBox(std::string_view text, std::string_view caption) override;

 private:
  /// Leaves at once, from however deep inside message handlers: nothing is destroyed.
  void endProcess(int status) override;
};

/// Dispatches messages until the program is asked to quit.
void runMessageLoop();
