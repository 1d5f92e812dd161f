#include "faults/surroundings.h"

#include <grp.h>
#include <unistd.h>

#include <filesystem>

#include "support/skip_for_lack_of.h"

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

/// The status of a child that could not become nobody.
constexpr int kNotNobody = 126;

/// What everybody may enter, read and start.
constexpr fs::perms kForAll = fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                              fs::perms::others_read | fs::perms::others_exec;

void copyForAll(const std::string& file, const TemporaryFolder& folder) {
  const std::string copy = folder / fs::path(file).filename().string();
  fs::copy_file(file, copy);
  fs::permissions(copy, kForAll);
}

/// Becomes nobody in the child when this process is root.
void becomeNobody() {
  constexpr unsigned kNobody = 65534;
  if (geteuid() != 0) return;
  if (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0) {
    _exit(kNotNobody);
  }
}

}  // namespace

void SurroundingsOfNobody::SetUp() {
  // Nobody is to own what it may write: the folder of the run, and the earlier output.
  fs::permissions(place_.folder().path(), fs::perms::all);
  fs::permissions(path("salida.bdl"), fs::perms::all);
  fs::permissions(copies_.path(), kForAll);
  copyForAll(GetParam().file, copies_);
  copyForAll(FAULT_SHIM, copies_);
  if (GetParam().hasForms) copyForAll(HURRIED_CLOCK, copies_);

  const int status = run(asNobody()).status;
  if (status == kNotNobody) SKIP_FOR_LACK_OF("the user nobody");
  if (status == kNotStarted) {
    SKIP_FOR_LACK_OF("a temporary folder (TMPDIR) where nobody can start a program");
  }
  place_.reset();
}

RunOptions SurroundingsOfNobody::asNobody(std::function<void()> then) const {
  RunOptions options;
  options.copies = copies_.path();
  options.environment.push_back("XDG_CACHE_HOME=" + path("cache"));
  options.inChild = [then = std::move(then)] {
    becomeNobody();
    then();
  };
  return options;
}
