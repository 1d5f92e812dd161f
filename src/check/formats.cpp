#include "check/formats.h"

#include <algorithm>
#include <array>

#include "core/concat.h"
#include "core/counted.h"
#include "core/cp1252.h"

namespace {

constexpr std::string_view kProgram = "tip2bdl-cli";  // where no file is to blame

struct Look {
  std::string_view severity;
  std::string_view strong;
  std::string_view quiet;
  std::string_view end;
};

constexpr Look kPlain = {"", "", "", ""};

Look coloured(Severity severity) {
  constexpr std::array<std::string_view, 3> kColours = {"\x1b[1;31m", "\x1b[1;35m", "\x1b[1;36m"};
  return {kColours[static_cast<std::size_t>(severity)], "\x1b[1m", "\x1b[2m", "\x1b[0m"};
}

/// Whether the UTF-8 character at `at` is one that a terminal takes for an order, or ends a line.
bool isControl(std::string_view utf8, std::size_t at) {
  const auto byte = static_cast<unsigned char>(utf8[at]);
  if (byte < ' ') return byte != '\t';
  if (byte == 0x7F) return true;
  return byte == 0xC2 && at + 1 < utf8.size() && static_cast<unsigned char>(utf8[at + 1]) < 0xA0;
}

/// What is no character of a text is a blank.
std::string shown(std::string_view utf8) {
  std::string text;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const bool control = isControl(utf8, i);
    text += control ? ' ' : utf8[i];
    if (control && static_cast<unsigned char>(utf8[i]) == 0xC2) ++i;
  }
  return text;
}

/// A line of a file as it can be shown.
std::string shownLine(std::string_view line) { return shown(cp1252::toUtf8(line)); }

std::size_t characters(std::string_view bytes) {
  const std::string utf8 = cp1252::toUtf8(bytes);
  return static_cast<std::size_t>(std::ranges::count_if(
      utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

/// The line, and under it a caret and waves as long as the span.
std::string underlined(const Place& place, const Look& look) {
  const std::string_view line = place.text;
  const std::size_t before = std::min(static_cast<std::size_t>(place.column - 1), line.size());
  const std::size_t length = std::min(place.length, line.size() - before);
  std::string carets;
  // A tab is as wide below as above.
  for (const char c : cp1252::toUtf8(line.substr(0, before))) {
    if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) carets += c == '\t' ? '\t' : ' ';
  }
  const std::size_t width = characters(line.substr(before, length));
  const std::string waves(width > 1 ? width - 1 : 0, '~');
  return concat("  ", shownLine(line), "\n  ", carets, look.severity, "^", waves, look.end, "\n");
}

std::string detail(std::string_view name, std::string_view value) {
  if (value.empty()) return {};
  return concat("  ", name, ": ", shownLine(value), "\n");
}

}  // namespace

std::string wordsOf(const Finding& finding) {
  const bool saysNothing = finding.message.find_first_not_of(": ") == std::string::npos;
  return saysNothing ? std::string(rowOf(finding.code).title) : cp1252::toUtf8(finding.message);
}

std::string_view wordOf(Severity severity) {
  constexpr std::array<std::string_view, 3> kWords = {"error", "aviso", "nota"};
  return kWords[static_cast<std::size_t>(severity)];
}

long characterColumn(std::string_view line, long byteColumn) {
  const auto before = static_cast<std::size_t>(byteColumn - 1);
  return static_cast<long>(characters(line.substr(0, before))) + 1;
}

std::string asText(const Finding& finding, bool colours) {
  const Severity severity = severityOf(finding);
  const Look look = colours ? coloured(severity) : kPlain;
  std::string text = concat(look.severity, wordOf(severity), ":", look.end, " ", look.strong,
                            shown(wordsOf(finding)), look.end, " ", look.quiet, "[",
                            rowOf(finding.code).word, "]", look.end, "\n");
  if (finding.place && !finding.place->file.empty()) {
    const Place& place = *finding.place;
    text += concat("  ", shownLine(place.file));
    if (place.line > 0) {
      text += concat(":", std::to_string(place.line), ":",
                     std::to_string(characterColumn(place.text, place.column)));
    }
    text += "\n";
    if (place.line > 0) text += underlined(place, look);
  }
  text += detail("se lee", finding.found);
  text += detail("se usará", finding.used);
  text += detail("se admite", finding.allowed);
  text += detail("qué hacer", finding.suggestion);
  return text;
}

std::string asGccLine(const Finding& finding) {
  std::string where(kProgram);
  if (finding.place && !finding.place->file.empty()) {
    where = shownLine(finding.place->file);
    if (finding.place->line > 0) {
      where += concat(":", std::to_string(finding.place->line), ":",
                      std::to_string(characterColumn(finding.place->text, finding.place->column)));
    }
  }
  return concat(where, ": ", wordOf(severityOf(finding)), ": ", shown(wordsOf(finding)), " [",
                rowOf(finding.code).word, "]\n");
}

std::string countLine(const Findings& findings) {
  std::array<std::size_t, 3> counts{};
  for (const Finding& finding : findings) ++counts[static_cast<std::size_t>(severityOf(finding))];
  return concat(counted(counts[0], "error", "errores"), ", ", counted(counts[1], "aviso", "avisos"),
                ", ", counted(counts[2], "nota", "notas"));
}
