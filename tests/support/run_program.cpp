#include "support/run_program.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>
#include <thread>

namespace {

/// Both ends of a pipe, or of a terminal.
struct Channel {
  int read = -1;
  int write = -1;
};

Channel openPipe() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  return {ends[0], ends[1]};
}

Channel openTerminal() {
  Channel channel;
  if (openpty(&channel.read, &channel.write, nullptr, nullptr, nullptr) != 0) {
    throw std::runtime_error("no terminal");
  }
  fcntl(channel.read, F_SETFD, FD_CLOEXEC);
  fcntl(channel.write, F_SETFD, FD_CLOEXEC);
  return channel;
}

std::string readToEnd(int file) {
  std::string text;
  char buffer[4096];
  // A terminal whose last writer has gone reports an error, not an end.
  for (ssize_t got = 0; (got = read(file, buffer, sizeof buffer)) > 0;) {
    text.append(buffer, static_cast<std::size_t>(got));
  }
  close(file);
  return text;
}

[[noreturn]] void becomeProgram(const std::string& program,
                                const std::vector<std::string>& arguments,
                                const ProgramOptions& options, int out, int err) {
  dup2(out, STDOUT_FILENO);
  if (options.errorClosed) {
    close(STDERR_FILENO);
  } else {
    dup2(err, STDERR_FILENO);
  }
  if (!options.folder.empty() && chdir(options.folder.c_str()) != 0) _exit(126);
  for (const auto& [name, value] : options.environment) setenv(name.c_str(), value.c_str(), 1);
  std::vector<char*> argv = {const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  execv(program.c_str(), argv.data());
  _exit(127);
}

}  // namespace

ProgramResult runProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const ProgramOptions& options) {
  const Channel out = options.outOnTerminal ? openTerminal() : openPipe();
  const Channel err = options.errorOnTerminal ? openTerminal() : openPipe();
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) becomeProgram(program, arguments, options, out.write, err.write);
  close(out.write);
  close(err.write);

  ProgramResult result;
  std::thread errorReader([&] { result.err = readToEnd(err.read); });
  result.out = readToEnd(out.read);
  errorReader.join();
  int status = 0;
  waitpid(child, &status, 0);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return result;
}
