#pragma once

#include <atomic>

/// While it lives, Ctrl-C, and what else asks a program to end, leaves a note of it, so that work
/// is ended in good order; a second one ends the process at once. One at a time.
class Interrupts {
 public:
  Interrupts();
  ~Interrupts();
  Interrupts(const Interrupts&) = delete;
  Interrupts& operator=(const Interrupts&) = delete;

  /// The number of the signal that came, as a shell counts it: 2 for Ctrl-C; 0 for none.
  static int signal();
  /// Set as soon as one comes.
  static const std::atomic<bool>& requested();
};
