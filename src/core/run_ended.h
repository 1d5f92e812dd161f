#pragma once

#include <functional>
#include <optional>

#include "core/fault.h"
#include "core/platform.h"

/// Many runs in one process: where a run of the programs of the chain ends the process, such a run
/// throws RunEnded, and whoever started it goes on.

/// The run is over. No std::exception: nothing between a check and the run's start may take it for
/// something that it knows.
struct RunEnded {
  int status;
};

/// The application of such a run: shows nothing and keeps the fault.
class SilentApplication : public TApplication {
 public:
  void ProcessMessages() override {}
  void MessageBox(std::string_view text, std::string_view caption) override;
  void ShowFault(const Fault& fault) override { fault_ = fault; }
  const std::optional<Fault>& fault() const { return fault_; }

 private:
  void endProcess(int status) override { throw RunEnded{status}; }

  std::optional<Fault> fault_;
};

/// Carries `body` out as a run of its own in this thread and gives the fault that ended it, or
/// nothing when it came to its end. It may stand within another run, whose log and tables it
/// neither sees nor releases. What else it throws (no memory, say) goes through to the caller.
std::optional<Fault> faultOf(const std::function<void()>& body);
