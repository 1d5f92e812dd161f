#pragma once

#include <span>
#include <string>
#include <string_view>

/// What may stand behind an option's name, for a shell that completes it.
enum class Complete { kNone, kFile, kFolder, kWord };

/// An option of the console program: a row that the parsers, the helps, the manual pages and the
/// completion go by. All texts UTF-8.
struct Option {
  std::string_view name;   // "--salida"
  std::string_view value;  // what stands behind it, "FICHERO"; empty for a switch
  std::string_view brief;
  std::string_view detail = {};                    // a second sentence
  std::span<const std::string_view> choices = {};  // the words that it takes; empty for any
  Complete complete = Complete::kNone;
};

/// "--salida FICHERO"
std::string asWritten(const Option& option);

/// A line an option, or two, for a help.
std::string linesOf(std::span<const Option* const> options);
