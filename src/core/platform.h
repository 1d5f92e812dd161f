#pragma once

#include <cstdlib>
#include <string_view>

/// The seam to the desktop: what the generation needs of a screen and of the process, and nothing
/// more. Each program brings its own implementation (widgets, a terminal), and so do the tests.

/// The bar of the progress form. Positions run from 0 to 100; a position outside is bounded by
/// the bar itself.
class TProgressBar {
 public:
  virtual ~TProgressBar() = default;
  virtual int GetPosition() const = 0;
  virtual void SetPosition(int position) = 0;
};

class TApplication {
 public:
  virtual ~TApplication() = default;

  /// Lets pending paint and timer messages through once.
  virtual void ProcessMessages() = 0;

  /// Shows `text` under `caption` with an OK button and returns when it has been dismissed.
  /// Both are plain text; bytes as cp1252::toUtf8 reads them.
  virtual void MessageBox(std::string_view text, std::string_view caption) = 0;

  /// Ends the process with `status`. Nothing is unwound: open files stay as the exit leaves them.
  [[noreturn]] void Terminate(int status) {
    endProcess(status);
    std::abort();  // for an implementation that forgot to leave
  }

 private:
  /// Leaves for good: exits, or throws in a test.
  virtual void endProcess(int status) = 0;
};

/// The running program's application. Set by its entry before anything else, never owned here.
extern TApplication* Application;
