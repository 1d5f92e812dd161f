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

/// `text` without blanks and tabs at its ends.
std::string_view trimmed(std::string_view text);
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
