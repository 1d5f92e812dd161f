#pragma once

#include "core/platform.h"

/// The desktop of the program with forms: pending events run through the framework and messages
/// are boxes. Where there is no screen (see hasScreen) messages are lines on standard error
/// (message_lines.h), so that nothing waits for a person who is not there.
class DesktopApplication : public TApplication {
 public:
  void ProcessMessages() override;
  void MessageBox(std::string_view text, std::string_view caption) override;
  void ShowFault(const Fault& fault) override;

 private:
  /// Leaves at once, from however deep inside event handlers: streams are flushed, but nothing is
  /// destroyed and no exit handler runs, since forms and the framework are still in use.
  void endProcess(int status) override;
};
