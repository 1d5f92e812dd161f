#include "app/console/pages/bash_completion.h"

#include "app/console/arguments.h"
#include "app/console/works/work.h"
#include "core/concat.h"

namespace {

/// The kinds of files of a usage line: "bdl tip" of "[PLANTILLA.bdl] TIPOLOGIA.tip".
std::string kindsIn(std::string_view operands) {
  std::string kinds;
  for (std::size_t dot = operands.find('.'); dot != std::string_view::npos;
       dot = operands.find('.', dot + 1)) {
    const std::size_t end = std::min(operands.find_first_of(" ]", dot), operands.size());
    const std::string kind(operands.substr(dot + 1, end - dot - 1));
    const bool isKind = kind.find_first_not_of("abcdefghijklmnopqrstuvwxyz") == std::string::npos;
    if (kind.empty() || !isKind || kinds.find(kind) != std::string::npos) continue;
    kinds += (kinds.empty() ? "" : " ") + kind;
  }
  return kinds;
}

std::string namesOf(std::span<const Option* const> options) {
  std::string names;
  for (const Option* option : options) {
    names += (names.empty() ? "" : " ") + std::string(option->name);
  }
  return names;
}

/// What stands behind an option that takes a value, as a branch of `case`.
std::string branchOf(const Work& work, const Option& option) {
  std::string body = ":";
  if (option.complete == Complete::kFile) body = "_tip2bdl_cli_files";
  if (option.complete == Complete::kFolder)
    body = "mapfile -t COMPREPLY < <(compgen -d -- \"$cur\")";
  if (!option.choices.empty()) {
    std::string words;
    for (const std::string_view word : option.choices) {
      words += (words.empty() ? "" : " ") + std::string(word);
    }
    body = concat("mapfile -t COMPREPLY < <(compgen -W '", words, "' -- \"$cur\")");
  }
  return concat("    ", work.name, ":", option.name, ")\n      ", body,
                "\n      return\n      ;;\n");
}

}  // namespace

std::string bashCompletion() {
  std::string names;
  std::string values;
  std::string options;
  for (const Work& work : works()) {
    names += (names.empty() ? "" : " ") + std::string(work.name);
    for (const Option* option : work.options) {
      if (!option->value.empty()) values += branchOf(work, *option);
    }
    options += concat("    ", work.name, ") options='", namesOf(work.options), "' kinds='",
                      kindsIn(work.operands), "' ;;\n");
  }
  return concat(R"(# shellcheck shell=bash
# Completion of tip2bdl-cli for bash. Written by the program's own table of works and options.

# _tip2bdl_cli_files [KIND ...]: folders, and files of those kinds, or all.
_tip2bdl_cli_files() {
  local kind found
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -d -- "$cur")
  if [ $# -eq 0 ]; then
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
    return
  fi
  for kind in "$@"; do
    mapfile -t found < <(compgen -f -X "!*.$kind" -- "$cur")
    COMPREPLY+=("${found[@]}")
  done
}

_tip2bdl_cli() {
  local cur=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local work='' options kinds
  COMPREPLY=()
  [ "$COMP_CWORD" -gt 1 ] && work=${COMP_WORDS[1]}
  # bash takes "--option=value" apart at the sign.
  if [ "$cur" = = ]; then
    cur=
  elif [ "$before" = = ]; then
    before=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  case $work:$before in
)",
                values, R"(  esac
  case $work in
)",
                options, "    *) options='", namesOf(runOptions()), "' kinds='bdl tip' ;;\n",
                R"(  esac
  if [[ $cur == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$cur")
    return
  fi
  if [ "$COMP_CWORD" -eq 1 ]; then
    _tip2bdl_cli_files bdl
    local works
    mapfile -t works < <(compgen -W ')",
                names, R"(' -- "$cur")
    COMPREPLY+=("${works[@]}")
    return
  fi
  # shellcheck disable=SC2086 # a list of words
  [ -z "$kinds" ] || _tip2bdl_cli_files $kinds
}

complete -F _tip2bdl_cli tip2bdl-cli
)");
}
