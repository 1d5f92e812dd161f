// Runs the program of its arguments and prints its peak memory in KiB. A program's own accounting
// begins with the memory of who starts it, so this one is small.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

int main(int argc, char* argv[]) {
  if (argc < 2) return 2;
  const pid_t child = fork();
  if (child == 0) {
    execv(argv[1], argv + 1);
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child) return 1;
  // 1 is the end of a list with refused dwellings.
  if (!WIFEXITED(status) || WEXITSTATUS(status) > 1) return 1;
  std::printf("%ld\n", usage.ru_maxrss);
}
