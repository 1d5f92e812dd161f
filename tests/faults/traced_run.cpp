#include "faults/traced_run.h"

#include <fcntl.h>
#include <signal.h>
#include <stddef.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <stdexcept>

namespace {

constexpr int kCallStop = SIGTRAP | 0x80;

long request(__ptrace_request what, pid_t child, unsigned long address, unsigned long data) {
  return ptrace(what, child, reinterpret_cast<void*>(address), reinterpret_cast<void*>(data));
}

#if defined(__x86_64__)

void setRegister(pid_t child, size_t offset, unsigned long value) {
  request(PTRACE_POKEUSER, child, offset, value);
}

/// Before the system gets a call: another call in its place; -1 is none at all.
void replaceCall(pid_t child, long number) {
  setRegister(child, offsetof(user_regs_struct, orig_rax), static_cast<unsigned long>(number));
}
void setThirdArgument(pid_t child, unsigned long value) {
  setRegister(child, offsetof(user_regs_struct, rdx), value);
}
/// Behind a call: what it gives.
void setResult(pid_t child, long value) {
  setRegister(child, offsetof(user_regs_struct, rax), static_cast<unsigned long>(value));
}
#else

void replaceCall(pid_t, long) {}
void setThirdArgument(pid_t, unsigned long) {}
void setResult(pid_t, long) {}

#endif

/// A text in the child's memory.
std::string textAt(pid_t child, unsigned long address) {
  std::string text;
  while (text.size() < 4096) {
    char piece[64];
    const iovec here = {piece, sizeof piece};
    const iovec there = {reinterpret_cast<void*>(address + text.size()), sizeof piece};
    const ssize_t got = process_vm_readv(child, &here, 1, &there, 1, 0);
    if (got <= 0) break;
    const std::string_view read(piece, static_cast<size_t>(got));
    text += read.substr(0, read.find('\0'));
    if (read.find('\0') != std::string_view::npos) break;
  }
  return text.substr(text.rfind('/') + 1);
}

/// Base name of the file behind the child's descriptor.
std::string fileBehind(pid_t child, unsigned long descriptor) {
  if (descriptor == STDERR_FILENO) return "stderr";
  char target[4096];
  const std::string link = "/proc/" + std::to_string(child) + "/fd/" + std::to_string(descriptor);
  const ssize_t length = readlink(link.c_str(), target, sizeof target);
  const std::string path(target, length > 0 ? static_cast<size_t>(length) : 0);
  return path.substr(path.rfind('/') + 1);
}

SystemCall callAt(pid_t child, const __ptrace_syscall_info& info) {
  SystemCall call;
  call.number = static_cast<long>(info.entry.nr);
  for (size_t i = 0; i < 6; ++i) call.arguments[i] = info.entry.args[i];
  if (call.number == SYS_openat || call.number == SYS_newfstatat || call.number == SYS_unlinkat) {
    call.path = textAt(child, call.arguments[1]);
  } else if (call.number == SYS_readlink || call.number == SYS_unlink ||
             call.number == SYS_truncate) {
    call.path = textAt(child, call.arguments[0]);
  } else if (call.number == SYS_read || call.number == SYS_write || call.number == SYS_close ||
             call.number == SYS_lseek) {
    call.path = fileBehind(child, call.arguments[0]);
  }
  return call;
}

bool isFirstOfMain(const SystemCall& call) {
  return call.number == SYS_fcntl && call.arguments[0] == 0 && call.arguments[1] == F_GETFD;
}

/// Follows the child from stop to stop.
class Tracer {
 public:
  Tracer(pid_t child, const std::function<Deed(const SystemCall&)>& decide)
      : child_(child), decide_(decide) {}

  /// False when the child has ended; `status` is then its end.
  bool nextStop(int& status) {
    if (request(PTRACE_SYSCALL, child_, 0, static_cast<unsigned long>(signal_)) != 0) {
      waitpid(child_, &status, 0);
      return false;
    }
    waitpid(child_, &status, 0);
    signal_ = 0;
    if (!WIFSTOPPED(status)) return false;
    if (WSTOPSIG(status) != kCallStop) {
      if (WSTOPSIG(status) != SIGTRAP) signal_ = WSTOPSIG(status);  // hand the signal on
      return true;
    }
    __ptrace_syscall_info info{};
    ptrace(PTRACE_GET_SYSCALL_INFO, child_, sizeof info, &info);
    if (info.op == PTRACE_SYSCALL_INFO_ENTRY) enter(callAt(child_, info));
    if (info.op == PTRACE_SYSCALL_INFO_EXIT) leave(static_cast<long>(info.exit.rval));
    return true;
  }

 private:
  void enter(const SystemCall& call) {
    inMain_ = inMain_ || isFirstOfMain(call);
    deed_ = inMain_ ? decide_(call) : Deed{};
    call_ = call.number;
    if (deed_.kind == Deed::kFail) replaceCall(child_, -1);
    if (deed_.kind == Deed::kHalve) setThirdArgument(child_, call.arguments[2] / 2);
    if (deed_.kind == Deed::kKillBefore) kill(child_, SIGKILL);
  }

  void leave(long result) {
    // This one call has no errors: it gives the end of the memory, moved or not.
    if (call_ == SYS_brk && deed_.kind != Deed::kFail) break_ = result;
    if (deed_.kind == Deed::kFail) setResult(child_, call_ == SYS_brk ? break_ : -deed_.error);
    if (deed_.kind == Deed::kKillAfter) kill(child_, SIGKILL);
    deed_ = {};
  }

  pid_t child_;
  const std::function<Deed(const SystemCall&)>& decide_;
  bool inMain_ = false;
  Deed deed_;
  long call_ = 0;
  long break_ = 0;
  int signal_ = 0;
};

}  // namespace

int traceError() {
  const pid_t child = fork();
  if (child < 0) return errno;
  if (child == 0) _exit(ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0 ? 0 : errno);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : EINTR;
}

FaultedRun runTraced(const std::string& program, const std::vector<std::string>& arguments,
                     const std::vector<std::string>& addedEnvironment,
                     const std::function<Deed(const SystemCall&)>& decide) {
  const MemoryFile out;
  const MemoryFile err;
  std::vector<std::string> words = {program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  StringArray argv(words);
  std::vector<std::string> added = addedEnvironment;
  added.push_back("ASAN_OPTIONS=detect_leaks=0");
  StringArray environment(environmentWith(added));

  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) {
    const rlimit noCore = {0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    dup2(out.number(), STDOUT_FILENO);
    dup2(err.number(), STDERR_FILENO);
    ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    execve(program.c_str(), argv.data(), environment.data());
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  request(PTRACE_SETOPTIONS, child, 0, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
  Tracer tracer(child, decide);
  FaultedRun run;
  constexpr int kMostStops = 1'000'000;  // a program that goes on and on hangs
  for (int stops = 0; tracer.nextStop(status); ++stops) {
    if (stops == kMostStops) {
      run.timedOut = true;
      kill(child, SIGKILL);
    }
  }
  noteEnd(status, run);
  run.out = out.text();
  run.err = err.text();
  return run;
}
