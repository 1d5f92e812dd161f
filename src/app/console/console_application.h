#pragma once

#include <optional>
#include <string_view>

#include "core/platform.h"

/// The desktop of a program without one: messages are lines on standard error (message_lines.h).
/// They take the place of the line that shows progress, where there is one.
class ConsoleApplication : public TApplication {
 public:
  void ProcessMessages() override {}
  void MessageBox(std::string_view text, std::string_view caption) override;
  void ShowFault(const Fault& fault) override;

  /// Shows "Generando el edificio ... NN %" on one line of standard error, a terminal.
  void showProgress(int percent);
  /// Wipes that line where there is one, so that what comes next stands alone.
  void wipeProgress();

 private:
  void endProcess(int status) override;

  std::optional<int> shownPercent_;
};

/// The bar of a run, shown on `terminal`, which outlives it; null where there is none.
class ConsoleProgressBar : public TProgressBar {
 public:
  explicit ConsoleProgressBar(ConsoleApplication* terminal) : terminal_(terminal) {}
  int GetPosition() const override { return position_; }
  void SetPosition(int position) override;

 private:
  ConsoleApplication* terminal_;
  int position_ = 0;
};
