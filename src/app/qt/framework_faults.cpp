#include "app/qt/framework_faults.h"

#include <QString>
#include <QtGlobal>
#include <csignal>
#include <string_view>

#include "app/run_safely.h"

namespace {

struct Signal {
  int number;
  std::string_view name;
};

constexpr Signal kSignals[] = {
    {SIGABRT, "SIGABRT"}, {SIGBUS, "SIGBUS"},   {SIGFPE, "SIGFPE"},
    {SIGILL, "SIGILL"},   {SIGSEGV, "SIGSEGV"}, {SIGTRAP, "SIGTRAP"},
};

[[noreturn]] void endOnSignal(int number) {
  std::string_view name;
  for (const Signal& signal : kSignals) {
    if (signal.number == number) name = signal.name;
  }
  endWithLastWords({kUnexpected, "el programa se ha interrumpido (", name, ")"});
}

bool remarksAreDropped = false;
QtMessageHandler writeRemark = nullptr;

void hearRemark(QtMsgType type, const QMessageLogContext& context, const QString& remark) {
  if (type == QtFatalMsg) {
    endWithLastWords({kUnexpected, remark.simplified().toUtf8().constData()});
  }
  if (remark.startsWith("QThread::start: Thread creation error")) endWithLastWords({kNoMemory});
  if (!remarksAreDropped) writeRemark(type, context, remark);
}

}  // namespace

void endAsAnErrorOnFrameworkFaults() {
  writeRemark = qInstallMessageHandler(hearRemark);
  for (const Signal& signal : kSignals) {
    const auto before = std::signal(signal.number, endOnSignal);
    if (before != SIG_DFL) std::signal(signal.number, before);  // a sanitizer's, say
  }
}

void dropFrameworkRemarks() { remarksAreDropped = true; }
