// Preloaded into the desktop program: time passes faster for it, so that the seconds that it waits
// before a run, for its form to be seen, take no longer than the run. It changes what the clock
// says and how long it waits for events; the program is as it always is.

#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

namespace {

constexpr long kHaste = 100;
constexpr long kPerSecond = 1'000'000'000;
constexpr long kPerMillisecond = 1'000'000;

long nanoseconds(const timespec& time) { return time.tv_sec * kPerSecond + time.tv_nsec; }
timespec timeOf(long nanoseconds) { return {nanoseconds / kPerSecond, nanoseconds % kPerSecond}; }

int wait(pollfd* files, nfds_t count, const timespec* longest, const sigset_t* signals) {
  constexpr long kSizeOfSignals = 8;  // as the system has them
  timespec shorter = {};
  if (longest != nullptr) shorter = timeOf(nanoseconds(*longest) / kHaste);
  return static_cast<int>(syscall(SYS_ppoll, files, count, longest != nullptr ? &shorter : nullptr,
                                  signals, kSizeOfSignals));
}

}  // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* time) noexcept {
  const int result = static_cast<int>(syscall(SYS_clock_gettime, clock, time));
  if (result != 0 || clock != CLOCK_MONOTONIC) return result;
  static long start = 0;
  if (start == 0) start = nanoseconds(*time);
  *time = timeOf(start + (nanoseconds(*time) - start) * kHaste);
  return 0;
}

int poll(pollfd* files, nfds_t count, int milliseconds) {
  const timespec longest = timeOf(milliseconds * kPerMillisecond);
  return wait(files, count, milliseconds >= 0 ? &longest : nullptr, nullptr);
}

int ppoll(pollfd* files, nfds_t count, const timespec* longest, const sigset_t* signals) {
  return wait(files, count, longest, signals);
}

}  // extern "C"
