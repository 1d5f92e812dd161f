#include "faults/surroundings.h"

#include <grp.h>
#include <unistd.h>

#include <filesystem>

namespace fs = std::filesystem;

std::string error(const std::string& message) { return kErrorCaption + message + "\n"; }

std::string cannotWrite(const std::string& path) {
  return error("Error al abrir fichero de escritura: " + path);
}

FaultedRun Surroundings::run(const RunOptions& options) const {
  return runOn(GetParam(), place_.arguments(), options);
}

FaultedRun Surroundings::runWith(Argument index, const std::string& path,
                                 const RunOptions& options) const {
  std::vector<std::string> arguments = place_.arguments();
  arguments[index] = path;
  return runOn(GetParam(), arguments, options);
}

void Surroundings::expectMessage(const std::string& message, const FaultedRun& run) const {
  EXPECT_EQ("", judge(place_, run).why);
  EXPECT_EQ(message, run.err);
  EXPECT_EQ(3, run.status);
}

void Surroundings::expectComplete(const FaultedRun& run) const {
  const Verdict verdict = judge(place_, run);
  EXPECT_EQ("", verdict.why);
  EXPECT_EQ(Ending::kComplete, verdict.ending) << run.err;
}

Verdict Surroundings::expectPromise(const FaultedRun& run, bool silent) const {
  const Verdict verdict = judge(place_, run, silent);
  EXPECT_EQ("", verdict.why);
  return verdict;
}

namespace {

/// Becomes nobody in the child when this process is root.
void becomeNobody() {
  constexpr unsigned kNobody = 65534;
  if (geteuid() != 0) return;
  if (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0) _exit(126);
}

}  // namespace

void SurroundingsOfNobody::SetUp() {
  // Nobody is to own what it may write: the folder of the run, and the earlier output.
  fs::permissions(place_.folder().path(), fs::perms::all);
  fs::permissions(path("salida.bdl"), fs::perms::all);
  if (run(asNobody()).status == kNotStarted) {
    GTEST_SKIP() << "nobody cannot start the program in this build folder";
  }
  place_.reset();
}

RunOptions SurroundingsOfNobody::asNobody(std::function<void()> then) const {
  RunOptions options;
  options.environment.push_back("XDG_CACHE_HOME=" + path("cache"));
  options.inChild = [then = std::move(then)] {
    becomeNobody();
    then();
  };
  return options;
}
