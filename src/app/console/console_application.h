#pragma once

#include <string_view>

#include "core/platform.h"

/// The desktop of a program without one. Messages are lines on standard error:
/// "Se ha producido un error: " and the text; a second line, two blanks in, shows the place of a
/// fault that has one.
class ConsoleApplication : public TApplication {
 public:
  void ProcessMessages() override {}
  void MessageBox(std::string_view text, std::string_view caption) override;
  void ShowFault(const Fault& fault) override;

 private:
  void endProcess(int status) override;
};

/// Shows "Generando el edificio ... NN %" on one line of standard error, when asked to.
class ConsoleProgressBar : public TProgressBar {
 public:
  explicit ConsoleProgressBar(bool visible) : visible_(visible) {}
  ~ConsoleProgressBar() override { clear(); }
  int GetPosition() const override { return position_; }
  void SetPosition(int position) override;
  /// Wipes the line, so that what comes next stands alone.
  void clear();

 private:
  bool visible_;
  bool drawn_ = false;
  int position_ = 0;
};
