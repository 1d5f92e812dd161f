#include <windows.h>

#include <csignal>

#include "app/console/works/interrupts.h"

namespace {

std::atomic<bool> interrupted = false;

/// The system calls it in a thread of its own.
BOOL WINAPI stop(DWORD event) {
  const bool again = interrupted.exchange(true);
  const bool isKey = event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT;
  if (isKey) return again ? FALSE : TRUE;
  // The console closes or the user leaves: the process ends when this returns or, at the latest, a
  // few seconds from now. The work ends it before.
  Sleep(INFINITE);
  return TRUE;
}

}  // namespace

Interrupts::Interrupts() { SetConsoleCtrlHandler(stop, TRUE); }

Interrupts::~Interrupts() { SetConsoleCtrlHandler(stop, FALSE); }

int Interrupts::signal() { return interrupted ? SIGINT : 0; }

const std::atomic<bool>& Interrupts::requested() { return interrupted; }
