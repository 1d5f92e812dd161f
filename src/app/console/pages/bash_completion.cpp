#include "app/console/pages/bash_completion.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "app/console/arguments.h"
#include "app/console/works/work.h"
#include "core/concat.h"
#include "typology/tipo.h"

namespace {

constexpr std::string_view kAnyFile = "*";

std::string joined(const std::vector<std::string>& words, std::string_view between = " ") {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : std::string(between)) + word;
  return text;
}

/// "tip" of "[TIPOLOGIA.tip"; empty where no kind of file is named.
std::string kindIn(std::string_view word) {
  const std::size_t dot = word.find('.');
  if (dot == std::string_view::npos) return {};
  const std::string_view kind = word.substr(dot + 1, word.find(']', dot) - dot - 1);
  const bool isKind = !kind.empty() && kind.find_first_not_of("abcdefghijklmnopqrstuvwxyz") ==
                                           std::string_view::npos;
  return std::string(isKind ? kind : "");
}

/// What each operand of a usage line may be, in single quotes: of "[PLANTILLA.bdl] TIPOLOGIA.tip"
/// the first is 'bdl tip', the second 'tip'. Options end it.
std::string operandsOf(std::string_view usage) {
  std::vector<std::string> operands;
  bool optional = false;  // the one before may be left out: this one takes its place
  while (!usage.empty() && !usage.starts_with('-')) {
    const std::size_t end = std::min(usage.find(' '), usage.size());
    const std::string_view word = usage.substr(0, end);
    usage.remove_prefix(std::min(end + 1, usage.size()));
    const std::string kind = kindIn(word);
    if (kind.empty()) continue;
    if (optional) operands.back() += " " + kind;
    operands.push_back(kind);
    optional = word.ends_with(']');
  }
  std::string text;
  for (const std::string& operand : operands)
    text += concat(text.empty() ? "'" : " '", operand, "'");
  return text;
}

std::string numbers() {
  std::vector<std::string> all;
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) all.push_back(std::to_string(tipo));
  return joined(all);
}

/// "--salida --formato"; `valued`: only those that take a value.
std::string namesOf(std::span<const Option* const> options, bool valued) {
  std::vector<std::string> names;
  for (const Option* option : options) {
    if (!valued || !option->value.empty()) names.emplace_back(option->name);
  }
  return joined(names);
}

/// What stands behind an option that takes a value, as a branch of `case`.
std::string branchOf(const Work& work, const Option& option) {
  std::string body = ":";
  if (option.complete == Complete::kFile) {
    const std::string kind = kindIn(option.value);
    body = concat("_tip2bdl_cli_files ", kind.empty() ? concat("'", kAnyFile, "'") : kind);
  }
  if (option.complete == Complete::kFolder) body = "_tip2bdl_cli_folders";
  if (!option.choices.empty()) {
    body =
        concat("_tip2bdl_cli_words '", joined({option.choices.begin(), option.choices.end()}), "'");
  }
  return concat("    ", work.name, ":", option.name, ")\n      ", body,
                "\n      return\n      ;;\n");
}

/// What a work takes, as a branch of `case`.
std::string branchOf(const Work& work) {
  const bool endless = work.mostOperands == std::numeric_limits<std::size_t>::max();
  const std::string kinds =
      work.operandNoun == kFileNoun ? operandsOf(work.operands) : concat("'", numbers(), "'");
  return concat("    ", work.name, ")\n      options='", namesOf(work.options, false),
                "'\n      valued='", namesOf(work.options, true), "'\n      kinds=(", kinds,
                ")\n      ", work.operandNoun == kFileNoun ? "" : "take=_tip2bdl_cli_words\n      ",
                endless ? "endless=yes\n      ;;\n" : ";;\n");
}

}  // namespace

std::string bashCompletion() {
  std::vector<std::string> names;
  std::string values;
  std::string branches;
  for (const Work& work : works()) {
    names.emplace_back(work.name);
    for (const Option* option : work.options) {
      if (!option->value.empty()) values += branchOf(work, *option);
    }
    branches += branchOf(work);
  }
  return concat(R"(# shellcheck shell=bash
# Completion of tip2bdl-cli for bash. Written by the program's own table of works and options.

_tip2bdl_cli_words() { mapfile -t COMPREPLY < <(compgen -W "$1" -- "$cur"); }

_tip2bdl_cli_folders() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -d -- "$cur")
}

# _tip2bdl_cli_files 'KIND ...': folders, and files of those kinds; of '*', all.
_tip2bdl_cli_files() {
  local kind kinds file
  read -ra kinds <<<"$1"
  _tip2bdl_cli_folders
  while read -r file; do
    for kind in "${kinds[@]}"; do
      if [[ ! -d $file && ($kind = '*' || ${file,,} = *."$kind") ]]; then
        COMPREPLY+=("$file")
        break
      fi
    done
  done < <(compgen -f -- "$cur")
}

_tip2bdl_cli() {
  local cur=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local take=_tip2bdl_cli_files work='' options valued endless='' kinds=()
  COMPREPLY=()
  if [[ $before == [\<\>]* ]]; then
    _tip2bdl_cli_files '*'
    return
  fi
  # bash takes "--option=value" apart at the sign.
  if [ "$cur" = = ]; then
    cur=
  elif [ "$before" = = ]; then
    before=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  [ "$COMP_CWORD" -gt 1 ] && work=${COMP_WORDS[1]}
  case $work:$before in
)",
                values, R"(  esac
  local first=2
  case $work in
)",
                branches, "    *)\n      options='", namesOf(runOptions(), false),
                "'\n      valued=''\n      kinds=(bdl tip '*' '*')\n      first=1\n      ;;\n",
                R"(  esac
  # What has been given: operands, by their number, and options, which are not offered again.
  local given=' ' ended='' skip='' operands=0 word
  for word in "${COMP_WORDS[@]:first:COMP_CWORD-first}"; do
    if [ "$word" = = ]; then
      skip=yes
    elif [ -n "$skip" ]; then
      skip=
    elif [ -n "$ended" ] || [[ $word != -* ]]; then
      operands=$((operands + 1))
    elif [ "$word" = -- ]; then
      ended=yes
    else
      given+="$word "
      [[ " $valued " != *" $word "* ]] || skip=yes
    fi
  done
  if [[ $cur == -* && -z $ended ]]; then
    local offered=''
    for word in $options; do
      [[ $given == *" $word "* ]] || offered+="$word "
    done
    _tip2bdl_cli_words "$offered"
    return
  fi
  if [ -n "$endless" ] && [ "$operands" -ge "${#kinds[@]}" ]; then
    operands=$((${#kinds[@]} - 1))
  fi
  [ "$operands" -ge "${#kinds[@]}" ] || "$take" "${kinds[operands]}"
  if [ "$COMP_CWORD" -eq 1 ]; then
    local works
    mapfile -t works < <(compgen -W ')",
                joined(names), R"(' -- "$cur")
    COMPREPLY+=("${works[@]}")
  fi
}

complete -F _tip2bdl_cli tip2bdl-cli
)");
}
