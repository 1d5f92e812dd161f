#include <csignal>

#include "app/console/works/interrupts.h"

namespace {

std::atomic<bool> interrupted = false;
std::atomic<int> signalNumber = 0;
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free);

void stop(int signal) {
  signalNumber = signal;
  interrupted = true;
  std::signal(signal, SIG_DFL);
}

}  // namespace

Interrupts::Interrupts() {
  for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, stop);
}

Interrupts::~Interrupts() {
  for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, SIG_DFL);
}

int Interrupts::signal() { return signalNumber; }

const std::atomic<bool>& Interrupts::requested() { return interrupted; }
