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

std::string_view withoutTabs(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t") + 1 - begin);
}

std::string_view withoutComment(std::string_view text) { return text.substr(0, text.find('$')); }

}  // namespace

TemplateCommands::TemplateCommands(const SourceText& text) {
  LineReader lines(text.bytes());
  // Not the repeat of the last line.
  const long count = lines.lineCount();
  std::string_view line;
  while (lines.lineNumber() < count && lines.ReadLine(line)) {
    const Assignment run = splitAssignment(line);
    const std::string_view name = withoutTabs(run.key);
    const std::string_view type = withoutTabs(withoutComment(run.value));
    if (!name.starts_with('"') || !isTypeWord(type)) continue;
    byName_.try_emplace(name, commands_.size());
    const bool plain = name == run.key && type == run.value;
    commands_.push_back({name, type, lines.span(), plain});
  }
}

std::vector<const TemplateCommands::Command*> TemplateCommands::ofType(
    std::string_view type) const {
  std::vector<const Command*> found;
  for (const Command& command : commands_) {
    if (command.plain && command.type == type) found.push_back(&command);
  }
  return found;
}

const TemplateCommands::Command* TemplateCommands::named(std::string_view name) const {
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : &commands_[found->second];
}
