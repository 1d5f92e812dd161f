#include "app/console/console_application.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#include "app/message_lines.h"

namespace {

void writeToStandardError(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fflush(stderr);
}

}  // namespace

void ConsoleApplication::MessageBox(std::string_view text, std::string_view caption) {
  wipeProgress();
  sayMessage(text, caption);
}

void ConsoleApplication::ShowFault(const Fault& fault) {
  wipeProgress();
  sayFault(fault);
}

void ConsoleApplication::showProgress(int percent) {
  if (shownPercent_ == percent) return;
  shownPercent_ = percent;
  writeToStandardError("\rGenerando el edificio ... " + std::to_string(percent) + " %");
}

void ConsoleApplication::wipeProgress() {
  if (!shownPercent_) return;
  shownPercent_.reset();
  writeToStandardError("\r                                        \r");
}

void ConsoleApplication::endProcess(int status) { std::exit(status); }

void ConsoleProgressBar::SetPosition(int position) {
  position_ = bounded(position);
  if (terminal_ != nullptr) terminal_->showProgress(position_);
}
