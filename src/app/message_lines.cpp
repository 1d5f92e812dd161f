#include "app/message_lines.h"

#include <cstdio>
#include <string>

#include "app/terminal_text.h"
#include "core/concat.h"
#include "core/cp1252.h"

void sayText(std::string_view text) {
  const std::string encoded = forTerminal(cp1252::toUtf8(text));
  std::fwrite(encoded.data(), 1, encoded.size(), stderr);
  std::fflush(stderr);
}

void sayMessage(std::string_view text, std::string_view caption) {
  sayText(concat(caption, ": ", text, "\n"));
}

void sayFault(const Fault& fault) {
  const std::string place = fault.place ? asOneLine(*fault.place) : std::string();
  // In one go: nothing may come between the two lines, nor fail there.
  sayText(concat(kErrorCaption, ": ", fault.message, place.empty() ? "\n" : "\n  ", place,
                 place.empty() ? "" : "\n"));
}
