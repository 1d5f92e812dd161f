#include "app/console/program.h"

#include <cstdio>
#include <span>
#include <string>
#include <vector>

#include "app/commit.h"
#include "app/completion_marker.h"
#include "app/console/arguments.h"
#include "app/console/console_application.h"
#include "app/console/works/result_file.h"
#include "app/console/works/work.h"
#include "app/run_generation.h"
#include "app/run_safely.h"
#include "app/standard_streams.h"
#include "app/terminal_text.h"
#include "app/version.h"
#include "check/suggestion.h"
#include "core/concat.h"

namespace {

int say(std::string_view utf8) {
  writeText({}, utf8);
  return kExitDone;
}

/// What a command line that makes no sense as a run may have meant by its first word.
std::string workMeantBy(const std::vector<std::string>& arguments) {
  std::vector<std::string_view> names;
  for (const Work& work : works()) names.push_back(work.name);
  const std::string_view meant = nearestWord(arguments.empty() ? "" : arguments[0], names);
  return meant.empty() ? std::string() : concat("; ¿quería decir ", meant, "?");
}

/// What the program does for each thing that it may be asked for.
class Answer {
 public:
  explicit Answer(ConsoleApplication& application) : application_(application) {}

  int operator()(const HelpRequest&) const { return say(helpOfRun() + listOfWorks()); }

  int operator()(const VersionRequest&) const {
    return say(concat("tip2bdl-cli ", kVersion, "\ncommit ", kCommit, ", ", kCompiler, "\n"));
  }

  int operator()(const WrongArguments& wrong) const {
    const std::string text = forTerminal(concat("tip2bdl-cli: ", wrong.problem, "\n", kUsage));
    std::fwrite(text.data(), 1, text.size(), stderr);
    return kExitWrongCommandLine;
  }

  int operator()(const RunRequest& run) const {
    const bool shown = !run.quiet && standardErrorIsTerminal();
    ConsoleProgressBar bar(shown ? &application_ : nullptr);
    try {
      RunGeneration(bar, run.paths);
    } catch (...) {  // its message may be last words, which know of no progress
      application_.wipeProgress();
      throw;
    }
    application_.wipeProgress();
    createCompletionMarker(run.paths.markerFile);
    return 0;
  }

 private:
  ConsoleApplication& application_;
};

}  // namespace

int consoleProgram(const std::function<std::vector<std::string>()>& argumentsOfPlatform) {
  openStandardStreams();
  ConsoleApplication application;
  Application = &application;
  return runSafely([&] {
    const std::vector<std::string> arguments = argumentsOfPlatform();
    // Told apart before anything of a work is built: a run is as lean as it was.
    if (const Work* work = arguments.empty() ? nullptr : findWork(arguments[0])) {
      return runWork(*work, std::span(arguments).subspan(1));
    }
    Request request = parseArguments(arguments);
    if (auto* const wrong = std::get_if<WrongArguments>(&request)) {
      wrong->problem += workMeantBy(arguments);
    }
    return std::visit(Answer(application), request);
  });
}
