#include "app/qt/screen.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QString>
#include <QtGlobal>
#include <cstdlib>

#include "app/message_lines.h"
#include "app/qt/framework_faults.h"
#include "app/qt/message_box.h"
#include "app/qt/x_faults.h"
#include "core/cp1252.h"
#include "core/report_error.h"

namespace {

bool showsNothing(const QString& platform) {
  return platform == "offscreen" || platform == "minimal";
}

constexpr int kPatience = 10'000;  // ms; a screen that has not answered by then never will

/// Starts the framework, says so on `connection` (the framework may end the process instead) and
/// stays until its other end is closed.
[[noreturn]] void visit(int connection) {
  const rlimit noCore = {0, 0};
  setrlimit(RLIMIT_CORE, &noCore);
  if (const int null = open("/dev/null", O_RDWR); null != -1) {
    dup2(null, STDOUT_FILENO);
    dup2(null, STDERR_FILENO);
  }
  int argc = 1;
  char name[] = "tip2bdl";
  char* argv[] = {name, nullptr};
  const QGuiApplication framework(argc, argv);
  char byte = 1;
  // Some platforms open without any screen to show windows on.
  const bool stay = QGuiApplication::primaryScreen() != nullptr &&
                    write(connection, &byte, 1) == 1 && read(connection, &byte, 1) == 0;
  _exit(stay ? 0 : 1);
}

bool hasAnswered(int connection) {
  pollfd answer = {connection, POLLIN, 0};
  char byte = 0;
  return poll(&answer, 1, kPatience) == 1 && read(connection, &byte, 1) == 1;
}

bool isSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

void doWithoutScreen() {
  qunsetenv("QT_QPA_PLATFORMTHEME");  // a desktop's theme may insist on its screen
  dropFrameworkRemarks();
}

}  // namespace

ScreenChoice::ScreenChoice() {
  // A platform's name may be followed by its options: "offscreen:...".
  if (showsNothing(qEnvironmentVariable("QT_QPA_PLATFORM").section(':', 0, 0))) {
    doWithoutScreen();
    return;
  }
  if (isSet("DISPLAY") || isSet("WAYLAND_DISPLAY")) {
    if (canBeVisited()) return;
    // The platform that was asked for is of no use; the one that goes with the screen may be.
    if (qunsetenv("QT_QPA_PLATFORM") && canBeVisited()) return;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  doWithoutScreen();
}

/// Whether a screen can be used depends on its server, on permissions and on the plug-ins that are
/// installed. Trying it out in a process of its own is the only way to ask.
bool ScreenChoice::canBeVisited() {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return false;
  visitor_ = fork();
  if (visitor_ == 0) {
    close(ends[0]);
    visit(ends[1]);
  }
  close(ends[1]);
  connection_ = ends[0];
  if (visitor_ != -1 && hasAnswered(connection_)) return true;
  endVisit();
  return false;
}

void ScreenChoice::endVisit() {
  if (connection_ != -1) close(connection_);
  if (visitor_ != -1) {
    kill(visitor_, SIGKILL);
    waitpid(visitor_, nullptr, 0);
  }
  connection_ = visitor_ = -1;
}

ScreenChoice::~ScreenChoice() { endVisit(); }

void endAsAnErrorIfScreenIsLost() {
  dropWordsOfALostXServer();
  std::atexit([] {
    // The box that was on it has not been read, or not to its end.
    const std::string_view boxText = textOfOpenBox();
    sayMessage(boxText.empty() ? "Se ha perdido la conexión con la pantalla"_cp1252 : boxText,
               kErrorCaption);
    writeKeptRemarks();
    std::_Exit(kExitError);
  });
}

bool hasScreen() {
  return QCoreApplication::instance() != nullptr && !showsNothing(QGuiApplication::platformName());
}
