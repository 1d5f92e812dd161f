#include "app/console/console_application.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "app/console/terminal_text.h"
#include "core/concat.h"
#include "core/cp1252.h"

namespace {
constexpr int kBarMaximum = 100;
constexpr std::string_view kWipeLine = "\r                                        \r";

void writeToStandardError(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fflush(stderr);
}

ConsoleProgressBar* visibleBar = nullptr;

/// Says lines of messages, in the terminal's encoding, in the place of the bar.
void say(std::string_view lines) {
  const std::string text = forTerminal(cp1252::toUtf8(lines));
  if (visibleBar != nullptr) visibleBar->clear();
  writeToStandardError(text);
}
}  // namespace

void ConsoleApplication::MessageBox(std::string_view text, std::string_view caption) {
  say(concat(caption, ": ", text, "\n"));
}

void ConsoleApplication::ShowFault(const Fault& fault) {
  const std::string place = fault.place ? asOneLine(*fault.place) : std::string();
  // In one go: nothing may come between the two lines, nor fail there.
  say(concat(kErrorCaption, ": ", fault.message, place.empty() ? "\n" : "\n  ", place,
             place.empty() ? "" : "\n"));
}

void ConsoleApplication::endProcess(int status) { std::exit(status); }

void ConsoleProgressBar::SetPosition(int position) {
  const int bounded = std::clamp(position, 0, kBarMaximum);
  if (visible_ && (bounded != position_ || !drawn_)) {
    drawn_ = true;
    visibleBar = this;
    writeToStandardError("\rGenerando el edificio ... " + std::to_string(bounded) + " %");
  }
  position_ = bounded;
}

void ConsoleProgressBar::clear() {
  if (drawn_) writeToStandardError(kWipeLine);
  drawn_ = false;
  visibleBar = nullptr;
}
