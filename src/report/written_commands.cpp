#include "report/written_commands.h"

#include <algorithm>
#include <unordered_map>

#include "core/numbers.h"

namespace report {

namespace {

bool isType(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '/';
  });
}

}  // namespace

std::optional<CommandHeader> readHeader(std::string_view line) {
  if (!line.starts_with('"')) return std::nullopt;
  const std::size_t quote = line.find('"', 1);
  if (quote == std::string_view::npos) return std::nullopt;
  const std::string_view rest = trimmed(line.substr(quote + 1));
  if (!rest.starts_with('=')) return std::nullopt;
  const std::string_view type = trimmed(rest.substr(1));
  if (!isType(type)) return std::nullopt;
  return CommandHeader{line.substr(1, quote - 1), type};
}

std::string_view unquoted(std::string_view text) {
  if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
    return text.substr(1, text.size() - 2);
  }
  return text;
}

std::string_view WrittenCommand::value(std::string_view key) const {
  const auto found = std::ranges::find(keywords, key, [](const auto& each) { return each.first; });
  return found == keywords.end() ? std::string_view{} : found->second;
}

std::optional<double> WrittenCommand::real(std::string_view key) const {
  std::string_view digits = value(key);
  float number = 0;
  if (!scanReal(digits, number)) return std::nullopt;
  return number;
}

std::vector<WrittenCommand> readCommands(std::string_view text) {
  std::vector<WrittenCommand> commands;
  bool open = false;
  long number = 0;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    const std::string_view line = trimmed(text.substr(start, end - start));
    ++number;
    if (const auto header = readHeader(line)) {
      WrittenCommand& command = commands.emplace_back();
      command.name = header->name;
      command.type = header->type;
      command.line = number;
      command.text = text.substr(start, end - start);
      open = true;
    } else if (open && line == "..") {
      open = false;
    } else if (open && !line.empty() && !line.starts_with('$')) {
      WrittenCommand& command = commands.back();
      command.text = text.substr(static_cast<std::size_t>(command.text.data() - text.data()),
                                 end - static_cast<std::size_t>(command.text.data() - text.data()));
      const std::size_t equals = line.find('=');
      if (equals != std::string_view::npos) {
        command.keywords.emplace_back(trimmed(line.substr(0, equals)),
                                      trimmed(line.substr(equals + 1)));
        command.lines.push_back(number);
      }
    }
    start = end + 1;
  }
  return commands;
}

std::map<std::string, CommandCount> countCommands(const std::vector<WrittenCommand>& original,
                                                  const std::vector<WrittenCommand>& written) {
  std::unordered_map<std::string_view, const WrittenCommand*> found;
  for (const WrittenCommand& command : written) found.try_emplace(command.name, &command);
  std::map<std::string, CommandCount> counts;
  for (const WrittenCommand& command : original) {
    CommandCount& count = counts[std::string(command.type)];
    const auto other = found.find(command.name);
    if (other == found.end()) {
      ++count.removed;
    } else if (other->second->text == command.text) {
      ++count.kept;
    } else {
      ++count.rewritten;
    }
  }
  return counts;
}

}  // namespace report
