#pragma once

#include <gtest/gtest.h>

#include <string>

#include "app/run_generation.h"
#include "support/minimal_building.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"

class NoBar : public TProgressBar {
 public:
  int GetPosition() const override { return position_; }
  void SetPosition(int position) override { position_ = position; }

 private:
  int position_ = 0;
};

inline int run(const RunPaths& paths) {
  NoBar bar;
  return RunGeneration(bar, paths);
}

class RunGenerationTest : public testing::Test {
 protected:
  static Fault stopOf(const RunPaths& paths) {
    return stopFault([&] { run(paths); });
  }
  static std::string messageOf(const RunPaths& paths) { return stopOf(paths).message; }
  /// With inputs that are whole again.
  int runAgain() {
    const MinimalBuilding whole(folder_);
    return run(whole.as<RunPaths>());
  }
  TemporaryFolder folder_;
  MinimalBuilding building_{folder_};
};
