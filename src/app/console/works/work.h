#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/console/option.h"

/// The works around the run (comprobar, nueva, plano ...): `tip2bdl-cli WORK [options]
/// operands`. A work is a row of kWorks, an option a row that several works may share, so that it
/// cannot mean two things; the parser and the help are loops over them.

/// Thrown by a work that a command line makes no sense for.
struct WrongWorkArguments {
  std::string problem;
};

/// What a work was called with.
struct WorkArguments {
  std::vector<std::string> operands;
  std::map<std::string_view, std::string> values;  // by the option's name; those that were given

  /// The value of an option, or `otherwise`.
  std::string value(std::string_view option, std::string_view otherwise = {}) const;
  bool has(std::string_view option) const { return values.contains(option); }
  /// The value of an option that was given.
  std::optional<std::string> given(std::string_view option) const;
};

/// What the operands of most works are.
inline constexpr std::string_view kFileNoun = "fichero";

struct Work {
  std::string_view name;
  std::string_view brief;
  std::string_view example;   // of its arguments; help begins with it
  std::string_view operands;  // of the usage line: "PLANTILLA.bdl TIPOLOGIA.tip"
  std::string_view detail;    // paragraph of its help
  std::span<const Option* const> options;
  std::size_t leastOperands;
  std::size_t mostOperands;
  int (*run)(const WorkArguments&);  // the exit code; may throw WrongWorkArguments
  std::string_view operandNoun = kFileNoun;
};

// Exit codes of the works, besides kExitError.
inline constexpr int kExitDone = 0;
inline constexpr int kExitFaultsFound = 1;
inline constexpr int kExitWrongCommandLine = 2;

std::span<const Work> works();

/// The work that `argument`, a command line's first, is the name of; null for a run.
const Work* findWork(std::string_view argument);

/// Carries the work out with the arguments behind its name. A wrong command line is told on
/// standard error; `--help` is answered on standard output.
int runWork(const Work& work, std::span<const std::string> arguments);

std::string helpOf(const Work& work);
/// One line a work, for the program's own help.
std::string listOfWorks();

// The rows that works share.
extern const Option kSalida;
extern const Option kHelpOption;
