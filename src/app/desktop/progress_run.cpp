#include "app/desktop/progress_run.h"

#include <utility>

#include "app/desktop/forms.h"
#include "app/run_generation.h"
#include "app/run_safely.h"
#include "core/platform.h"

ProgressRun::ProgressRun(RunPaths paths) : paths_(std::move(paths)) {}

bool ProgressRun::tick() {
  if (ticks_ > progress_form::kIdleTicks) return false;
  return ++ticks_ > progress_form::kIdleTicks;
}

void ProgressRun::run(TProgressBar& bar) {
  runSafely([&] {
    Application->ProcessMessages();
    return RunGeneration(bar, paths_);
  });
  over_ = true;
}
