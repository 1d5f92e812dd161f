#include "check/template_commands.h"

#include <algorithm>

#include "core/line_reader.h"
#include "generator/name_list.h"

namespace {

bool isTypeWord(std::string_view text) {
  const auto fits = [](char c) {
    return (c >= 'A' && c <= 'Z') || c == '-' || (c >= '0' && c <= '9');
  };
  return !text.empty() && text.front() >= 'A' && text.front() <= 'Z' &&
         std::ranges::all_of(text, fits);
}

}  // namespace

TemplateCommands::TemplateCommands(const SourceText& text) {
  LineReader lines(text.bytes());
  // Not the repeat of the last line.
  const long count = lines.lineCount();
  std::string_view line;
  while (lines.lineNumber() < count && lines.ReadLine(line)) {
    const Assignment assignment = splitAssignment(line);
    if (!assignment.key.starts_with('"') || !isTypeWord(assignment.value)) continue;
    byName_.try_emplace(assignment.key, commands_.size());
    commands_.push_back({assignment.key, assignment.value, lines.span()});
  }
}

std::vector<const TemplateCommands::Command*> TemplateCommands::ofType(
    std::string_view type) const {
  std::vector<const Command*> found;
  for (const Command& command : commands_) {
    if (command.type == type) found.push_back(&command);
  }
  return found;
}

const TemplateCommands::Command* TemplateCommands::named(std::string_view name) const {
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : &commands_[found->second];
}
