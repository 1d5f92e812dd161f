#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "faults/programs.h"
#include "faults/promise.h"

/// The promise in hostile surroundings, kept by the real programs.

enum Argument : std::size_t { kTemplate, kTypology, kOutput, kMarker };

/// The message as the programs write it, and the most frequent one.
std::string error(const std::string& message);
std::string cannotWrite(const std::string& path);

class Surroundings : public testing::TestWithParam<Program> {
 protected:
  FaultedRun run(const RunOptions& options = {}) const;
  /// With another path in place of one of the workplace's.
  FaultedRun runWith(Argument index, const std::string& path, const RunOptions& options = {}) const;

  void expectMessage(const std::string& message, const FaultedRun& run) const;
  void expectComplete(const FaultedRun& run) const;
  /// One of the two, whichever.
  Verdict expectPromise(const FaultedRun& run, bool silent = false) const;

  std::string path(const std::string& name) const { return place_.folder() / name; }

  Workplace place_;
};

/// Surroundings that the program meets as nobody: root is stopped by no permission, and its
/// programs may spoil what belongs to the machine (without memory the fonts' library writes empty
/// caches). What was built may lie in a folder that only its owner can enter, so copies are run.
class SurroundingsOfNobody : public Surroundings {
 protected:
  void SetUp() override;
  /// For a run as nobody; `then` is called behind the change.
  RunOptions asNobody(std::function<void()> then = [] {}) const;

 private:
  TemporaryFolder copies_;
};

inline std::string programName(const testing::TestParamInfo<Program>& info) {
  return info.param.name;
}
