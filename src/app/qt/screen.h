#pragma once

/// Looks for a screen before the framework starts: the framework ends the process where the one it
/// is told to use cannot be opened. Without a screen (neither DISPLAY nor WAYLAND_DISPLAY is set,
/// what they name cannot be opened, or QT_QPA_PLATFORM asks for a platform that shows nothing) the
/// framework is told to run without one and to keep its remarks to itself. A platform that is asked
/// for in vain gives way to the one of the screen that is there.
/// To be created by a process with one thread, and to be kept until the framework has started: the
/// look is a visit, and some servers end with their last visitor.
class ScreenChoice {
 public:
  ScreenChoice();
  ~ScreenChoice();
  ScreenChoice(const ScreenChoice&) = delete;
  ScreenChoice& operator=(const ScreenChoice&) = delete;

 private:
  bool canBeVisited();
  void endVisit();

  int visitor_ = -1;     // the process that tries the framework out
  int connection_ = -1;  // to it; the visit ends when it is closed
};

/// A screen that is lost while the program runs makes the framework exit, with a status of its own.
/// From here on every exit is such an end and becomes an error, with a message on standard error
/// (that of the box that was open, where there was one) and exit code 3; the program's own ends
/// (see DesktopApplication) are none.
void endAsAnErrorIfScreenIsLost();

/// Whether there is a screen with somebody in front of it. False before the framework has started
/// and on its "offscreen" and "minimal" platforms.
bool hasScreen();
