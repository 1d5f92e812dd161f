#pragma once

#include "app/command_line.h"

class TProgressBar;

/// What the progress form does, without its widgets: it lets some ticks of its timer pass, so that
/// it is seen, runs on the one that follows, and may be closed when the run is over.
class ProgressRun {
 public:
  explicit ProgressRun(RunPaths paths);

  /// A tick of the form's timer. False on the idle ones; true once, when the run is due: the form
  /// is then to stop its timer and to call run(), which lets a tick through that is on its way.
  [[nodiscard]] bool tick();

  /// Lets pending messages through once, so that the form is painted, and runs. A run that fails
  /// ends the process. What is thrown ends it too (see runSafely): this is called by frameworks,
  /// which nothing may be thrown across.
  void run(TProgressBar& bar);

  bool isOver() const { return over_; }

 private:
  RunPaths paths_;
  int ticks_ = 0;
  bool over_ = false;
};
