#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "faults/surroundings.h"

// Limits of the machine: the size of files, their number, memory, a full disk.

namespace fs = std::filesystem;

namespace {

void limitTo(__rlimit_resource_t what, rlim_t most) {
  const rlimit limit = {most, most};
  if (setrlimit(what, &limit) != 0) _exit(126);
}

class Limits : public SurroundingsOfNobody {
 protected:
  RunOptions limitedTo(__rlimit_resource_t what, rlim_t most) const {
    return asNobody([what, most] { limitTo(what, most); });
  }
};

/// A range of limits that begins with plenty and ends with nothing.
struct Range {
  rlim_t most;
  rlim_t step;
};

constexpr rlim_t kPage = 4096;
constexpr rlim_t kMegabyte = rlim_t{1} << 20;

Range memoryOf(const Program& program) {
  if (program.hasForms) return {192 * kMegabyte, longTests() ? 8 * kPage : 2 * kMegabyte};
  return {8 * kMegabyte, longTests() ? kPage : 8 * kPage};
}

/// Open files with which a run can be tried; the loader needs the first.
Range filesOf(const Program& program) {
  if (program.hasForms) return {24, 1};
  return {12, 1};
}

/// Libraries that the desktop program stands on may end it otherwise.
bool isOfMissingMemory(const std::string& message, const Program& program) {
  return message == error("No hay memoria suficiente") ||
         message.starts_with(kErrorCaption + std::string("Error al abrir fichero de ")) ||
         (program.hasForms &&
          message.starts_with(kErrorCaption + std::string("Error inesperado: ")));
}

/// Without the remarks of libraries that are short of something; ours is one of the last lines.
FaultedRun withoutRemarks(FaultedRun run) {
  std::string messages;
  for (const std::string& line : linesOf(run.err)) {
    if (line.starts_with(kErrorCaption)) messages += line + "\n";
  }
  run.err = messages;
  return run;
}

/// The status of a child whose kernel lets it mount nothing; it has said which call failed.
constexpr int kNoDisk = 77;

void orNoDisk(const char* call, bool succeeded) {
  if (succeeded) return;
  dprintf(STDERR_FILENO, "%s gives %s", call, strerrorname_np(errno));
  _exit(kNoDisk);
}

void tellKernel(const char* file, const std::string& text) {
  const int opened = open(file, O_WRONLY | O_CLOEXEC);
  orNoDisk(file, write(opened, text.data(), text.size()) == static_cast<ssize_t>(text.size()));
  close(opened);
}

/// Mounts, in a child, a disk of its own that is gone with it. Everybody may do so in a space of
/// users of his own; he stays who he is there.
void mountDisk(const std::string& where, const char* options) {
  const std::string user = std::to_string(geteuid());
  const std::string group = std::to_string(getegid());
  if (unshare(CLONE_NEWNS) != 0) {
    orNoDisk("unshare", unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0);
    tellKernel("/proc/self/uid_map", user + " " + user + " 1");
    tellKernel("/proc/self/setgroups", "deny");
    tellKernel("/proc/self/gid_map", group + " " + group + " 1");
  }
  orNoDisk("mount", mount("", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0);
  orNoDisk("mount", mount("", where.c_str(), "tmpfs", 0, options) == 0);
}

}  // namespace

TEST_P(Limits, AFileSizeLimitIsAWriteError) {
  const rlim_t size = place_.expectedOutput().size();
  for (const rlim_t limit : {rlim_t{0}, rlim_t{1}, rlim_t{4096}, rlim_t{16384}, size - 1}) {
    SCOPED_TRACE("limit " + std::to_string(limit));
    place_.reset();
    const bool noRoomForTheMessage = limit < 1000;
    const FaultedRun result = run(limitedTo(RLIMIT_FSIZE, limit));
    expectPromise(result, noRoomForTheMessage);
    EXPECT_EQ(3, result.status);
    EXPECT_EQ("", place_.folder().read("salida.bdl"));
    if (!noRoomForTheMessage) {
      EXPECT_EQ(error("Error al escribir fichero: " + path("salida.bdl")), result.err);
    }
  }
  place_.reset();
  expectComplete(run(limitedTo(RLIMIT_FSIZE, size)));
}

TEST_P(Limits, ALimitOnOpenFilesIsAnError) {
#ifdef SANITIZED
  GTEST_SKIP() << "a sanitizer needs files of its own";
#endif
  int complete = 0;
  int failed = 0;
  for (rlim_t limit = filesOf(GetParam()).most; limit >= 4; --limit) {  // the loader needs these
    SCOPED_TRACE("limit " + std::to_string(limit));
    place_.reset();
    const FaultedRun result = run(asNobody([limit] {
      close_range(3, ~0U, 0);  // what this process has got from its own caller
      limitTo(RLIMIT_NOFILE, limit);
    }));
    const Verdict verdict = expectPromise(withoutRemarks(result));
    ++(verdict.ending == Ending::kComplete ? complete : failed);
  }
  std::printf("limits on files: %d complete, %d with a message\n", complete, failed);
  EXPECT_GT(complete, 0);
  EXPECT_GT(failed, 0);
}

TEST_P(Limits, AMemoryLimitIsAnError) {
#ifdef SANITIZED
  GTEST_SKIP() << "a sanitizer reserves terabytes of addresses";
#endif
  LibraryFault seen;
  seen.call = "main";
  const Range range = memoryOf(GetParam());
  int complete = 0;
  int failed = 0;
  int notBegun = 0;
  // From plenty down to where the system cannot even load the program and its libraries.
  for (rlim_t limit = range.most; notBegun < 5; limit -= range.step) {
    ASSERT_GT(limit, range.step);
    SCOPED_TRACE("limit " + std::to_string(limit));
    place_.reset();
    RunOptions options = limitedTo(RLIMIT_AS, limit);
    options.fault = &seen;
    const FaultedRun result = withoutRemarks(run(options));
    if (result.injected.empty()) {
      ++notBegun;
      EXPECT_NE(0, result.status);
      EXPECT_FALSE(place_.hasMarker());
      continue;
    }
    const Verdict verdict = expectPromise(result);
    ++(verdict.ending == Ending::kComplete ? complete : failed);
    if (verdict.ending != Ending::kMessage) continue;
    EXPECT_TRUE(isOfMissingMemory(result.err, GetParam())) << result.err;
  }
  std::printf("memory limits: %d complete, %d with a message\n", complete, failed);
  EXPECT_GT(complete, 0);
  EXPECT_GT(failed, 0);
}

TEST_P(Limits, AFullDiskTakesNeitherOutputNorMarker) {
  fs::create_directory(path("disco"));
  const auto smallDisk = [this](const char* size) {
    RunOptions options;
    options.inChild = [where = path("disco"), size] { mountDisk(where, size); };
    return options;
  };
  const std::string output = path("disco/salida.bdl");
  FaultedRun result = runWith(kOutput, output, smallDisk("size=8k"));
  // Containers forbid it, which no package mends.
  if (result.status == kNoDisk) GTEST_SKIP() << "the kernel forbids mounting: " << result.err;
  expectMessage(error("Error al escribir fichero: " + output), result);

  expectMessage(cannotWrite(output), runWith(kOutput, output, smallDisk("nr_inodes=1")));

  result = runWith(kOutput, output, smallDisk("size=64k"));
  EXPECT_EQ(0, result.status) << result.err;

  place_.reset();
  const std::string marker = path("disco/fin.txt");
  result = runWith(kMarker, marker, smallDisk("nr_inodes=1"));
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(cannotWrite(marker), result.err);
  EXPECT_TRUE(place_.outputIsComplete());
}

INSTANTIATE_TEST_SUITE_P(Of, Limits, testing::ValuesIn(kPrograms), programName);
