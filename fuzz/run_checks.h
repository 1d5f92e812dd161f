#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "core/output_lines.h"
#include "core/platform.h"
#include "fuzz_support.h"

/// What the targets of a whole run share, over texts in memory and over files.

/// A progress bar that nobody sees.
class Bar : public TProgressBar {
 public:
  int GetPosition() const override { return position_; }
  void SetPosition(int position) override { position_ = std::clamp(position, 0, 100); }

 private:
  int position_ = 0;
};

/// What any complete output of a run is.
inline void checkOutput(const std::string& output, std::string_view typology) {
  expect(output.starts_with("$\t****"), "no header");
  // At its capacity an output loses what comes after.
  if (std::ranges::count(output, '\n') >= OutputLines::kCapacity) return;
  expect(output.ends_with(std::string(typology) + "\n"), "the typology text does not come last");
}
