#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reads a building description back, line by line as a reader of the language would: a header
/// `"name" = TYPE`, keyword lines, a line `..`; `$` starts a comment line. Never fails: what is no
/// command is passed over.
namespace report {

/// Views into the text that was read.
struct WrittenCommand {
  std::string_view name;  // without its quotes
  std::string_view type;
  long line = 0;          // of its header, from 1
  std::string_view text;  // from its header to its end
  std::vector<std::pair<std::string_view, std::string_view>> keywords;
  std::vector<long> lines;  // of the keywords, from 1

  /// The first value of `key`; empty where there is none.
  std::string_view value(std::string_view key) const;
  std::optional<double> real(std::string_view key) const;
};

std::vector<WrittenCommand> readCommands(std::string_view text);

/// The name, without its quotes, and the type of a header; nothing for any other line. `line` has
/// no blanks at its ends.
struct CommandHeader {
  std::string_view name;
  std::string_view type;
};
std::optional<CommandHeader> readHeader(std::string_view line);

/// `text` without blanks, tabs and line ends at its ends.
inline std::string_view trimmed(std::string_view text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}
/// Without its double quotes.
std::string_view unquoted(std::string_view text);

/// What became of the template's commands of one type.
struct CommandCount {
  int kept = 0;
  int rewritten = 0;
  int removed = 0;
};
std::map<std::string, CommandCount> countCommands(const std::vector<WrittenCommand>& original,
                                                  const std::vector<WrittenCommand>& written);

}  // namespace report
