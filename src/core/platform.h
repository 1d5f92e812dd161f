#pragma once

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "core/fault.h"

/// The seam to the desktop: what the generation needs of a screen and of the process, and nothing
/// more. Each program brings its own implementation (widgets, a terminal), and so do the tests.

/// The bar of the progress form. Positions run from 0 to kMaximum; a position outside is bounded by
/// the bar itself.
class TProgressBar {
 public:
  static constexpr int kMaximum = 100;
  static constexpr int bounded(int position) { return std::clamp(position, 0, kMaximum); }

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

  /// Shows what ends the run. A desktop shows the message alone; who has more room, or hands faults
  /// on to others, makes use of the place.
  virtual void ShowFault(const Fault& fault) { MessageBox(fault.message, kErrorCaption); }

  /// Ends the run with `status`. In a program that is one run, it ends the process: nothing is
  /// unwound, open files stay as the exit leaves them. Where many runs share a process it throws
  /// (see run_ended.h).
  [[noreturn]] void Terminate(int status) {
    endProcess(status);
    std::abort();  // for an implementation that forgot to leave
  }

 private:
  /// Leaves for good: exits or throws.
  virtual void endProcess(int status) = 0;
};

/// The application of the run that this thread is working on. Set before anything else, by a
/// program's entry or by whoever starts a run in a thread; never owned here.
extern constinit thread_local TApplication* Application;
