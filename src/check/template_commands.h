#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/source_text.h"

/// The commands of a building description as a person sees them: lines `"name" = TYPE`.
class TemplateCommands {
 public:
  struct Command {
    std::string_view name;  // in double quotes
    std::string_view type;
    Span header;  // its line
    bool plain;   // only blanks round name and type, so that the run sees it too
  };

  /// `text` must outlive this object.
  explicit TemplateCommands(const SourceText& text);

  const std::vector<Command>& all() const { return commands_; }
  std::vector<const Command*> ofType(std::string_view type) const;
  /// The first command of that name; null when there is none.
  const Command* named(std::string_view name) const;

 private:
  std::vector<Command> commands_;
  std::unordered_map<std::string_view, std::size_t> byName_;
};
