#include "faults/run_under.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace {

constexpr int kReportFile = 100;

std::vector<std::string> environmentFor(const RunOptions& options) {
  std::vector<std::string> added = options.environment;
  std::string preloaded;
  for (const std::string& library : options.preloaded) {
    preloaded += options.standInFor(library) + ' ';
  }
  added.push_back("ASAN_OPTIONS=detect_leaks=0:allocator_may_return_null=1");
  if (const LibraryFault* fault = options.fault) {
    added.insert(added.end(),
                 {"FAULT_CALL=" + fault->call, "FAULT_AT=" + std::to_string(fault->at),
                  "FAULT_ERRNO=" + std::to_string(fault->error), "FAULT_KIND=" + fault->kind,
                  "FAULT_FILES=" + fault->files, "FAULT_REPORT=" + std::to_string(kReportFile)});
    preloaded += options.standInFor(FAULT_SHIM);
  }
  if (!preloaded.empty()) added.push_back("LD_PRELOAD=" + preloaded);
  return environmentWith(added);
}

}  // namespace

std::string RunOptions::standInFor(const std::string& file) const {
  return copies.empty() ? file : copies + file.substr(file.rfind('/'));
}

MemoryFile::MemoryFile() : file_(memfd_create("what a program says", MFD_CLOEXEC)) {
  if (file_ < 0) throw std::runtime_error("no file in memory");
}

MemoryFile::~MemoryFile() { close(file_); }

std::string MemoryFile::text() const {
  std::string text(static_cast<std::size_t>(lseek(file_, 0, SEEK_END)), '\0');
  const ssize_t got = pread(file_, text.data(), text.size(), 0);
  text.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
  return text;
}

StringArray::StringArray(std::vector<std::string> strings) : strings_(std::move(strings)) {
  for (std::string& string : strings_) pointers_.push_back(string.data());
  pointers_.push_back(nullptr);
}

std::vector<std::string> environmentWith(const std::vector<std::string>& added) {
  std::vector<std::string> environment = added;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string_view inherited = *variable;
    const std::string_view name = inherited.substr(0, inherited.find('=') + 1);
    const bool replaced = std::ranges::any_of(
        added, [name](const std::string& other) { return other.starts_with(name); });
    if (!replaced) environment.emplace_back(inherited);
  }
  return environment;
}

void noteEnd(int waitStatus, FaultedRun& run) {
  if (WIFEXITED(waitStatus)) run.status = WEXITSTATUS(waitStatus);
  if (WIFSIGNALED(waitStatus)) run.signal = WTERMSIG(waitStatus);
}

void await(pid_t child, int patienceMs, FaultedRun& run) {
  const int handle = static_cast<int>(syscall(SYS_pidfd_open, child, 0));
  pollfd ended = {handle, POLLIN, 0};
  if (poll(&ended, 1, patienceMs) == 0) {
    run.timedOut = true;
    kill(child, SIGKILL);
  }
  close(handle);
  int status = 0;
  waitpid(child, &status, 0);
  noteEnd(status, run);
}

FaultedRun runUnder(const std::string& program, const std::vector<std::string>& arguments,
                    const RunOptions& options) {
  const MemoryFile out;
  const MemoryFile err;
  const MemoryFile injected;
  const std::string started = options.standInFor(program);
  std::vector<std::string> words = {started};
  words.insert(words.end(), arguments.begin(), arguments.end());
  StringArray argv(words);
  StringArray environment(environmentFor(options));

  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) {
    const rlimit noCore = {0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    dup2(out.number(), STDOUT_FILENO);
    dup2(err.number(), STDERR_FILENO);
    dup2(injected.number(), kReportFile);
    options.inChild();
    execve(started.c_str(), argv.data(), environment.data());
    _exit(kNotStarted);
  }

  FaultedRun run;
  if (options.killAfterMicroseconds >= 0) {
    usleep(static_cast<useconds_t>(options.killAfterMicroseconds));
    kill(child, SIGKILL);
  }
  await(child, options.patienceMs, run);
  run.out = out.text();
  run.err = err.text();
  run.injected = injected.text();
  return run;
}
