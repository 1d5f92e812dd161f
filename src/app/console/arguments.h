#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "app/command_line.h"
#include "app/console/option.h"

/// What the console program was asked for.
struct RunRequest {
  RunPaths paths;
  bool quiet = false;  // no progress, even on a terminal
};
struct HelpRequest {};
struct VersionRequest {};
struct WrongArguments {
  std::string problem;  // UTF-8
};

using Request = std::variant<RunRequest, HelpRequest, VersionRequest, WrongArguments>;

/// Reads the arguments behind the program's name: four paths, or one argument in the form of the
/// desktop program ("#a.bdl,b.tip,out.bdl,fin.txt"), and options. "--" ends the options.
/// Errors: an overlong command line in the desktop form ends the run.
Request parseArguments(const std::vector<std::string>& arguments);

/// The options of a run.
std::span<const Option* const> runOptions();

/// Texts for people, in UTF-8.
extern const std::string_view kUsage;
extern const std::string_view kRunExample;  // the arguments of one
extern const std::string_view kRunDetail;
extern const std::string_view kRunExitCodes;
std::string helpOfRun();
