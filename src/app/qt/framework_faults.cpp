#include "app/qt/framework_faults.h"

#include <QString>
#include <QtGlobal>
#include <csignal>
#include <cstdio>
#include <mutex>
#include <string_view>
#include <utility>

#include "app/run_safely.h"
#include "core/fault.h"

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

/// Needs no memory, which may be what a remark is about.
class KeptRemarks {
 public:
  void add(std::string_view remark) {
    const std::lock_guard lock(mutex_);
    if (dropped_ || remark.size() >= sizeof text_ - length_) return;
    length_ += remark.copy(text_ + length_, remark.size());
    text_[length_++] = '\n';
  }
  /// Hands them to `take`, each with a line end, and has none any more.
  template <typename Take>
  void giveTo(Take take) {
    const std::lock_guard lock(mutex_);
    take(std::string_view(text_, std::exchange(length_, 0)));
  }
  void drop() {
    const std::lock_guard lock(mutex_);
    length_ = 0;
    dropped_ = true;
  }

 private:
  std::mutex mutex_;  // the framework has threads of its own
  char text_[4096];
  std::size_t length_ = 0;
  bool dropped_ = false;
};

KeptRemarks keptRemarks;

void hearRemark(QtMsgType type, const QMessageLogContext&, const QString& remark) {
  const QByteArray text = remark.simplified().toUtf8();
  if (type == QtFatalMsg) {
    keptRemarks.giveTo([&](std::string_view before) {
      if (!before.empty()) before.remove_suffix(1);  // the last line end is written anyway
      endWithLastWords({kUnexpected, text.constData(), before.empty() ? "" : "\n", before});
    });
  }
  if (text.startsWith("QThread::start: Thread creation error")) endWithLastWords({kNoMemory});
  keptRemarks.add({text.constData(), static_cast<std::size_t>(text.size())});
}

}  // namespace

void endAsAnErrorOnFrameworkFaults() {
  qInstallMessageHandler(hearRemark);
  for (const Signal& signal : kSignals) {
    const auto before = std::signal(signal.number, endOnSignal);
    if (before != SIG_DFL) std::signal(signal.number, before);  // a sanitizer's, say
  }
}

void writeKeptRemarks() {
  keptRemarks.giveTo([](std::string_view remarks) {
    if (!remarks.empty()) std::fwrite(remarks.data(), 1, remarks.size(), stderr);
  });
}

void dropFrameworkRemarks() { keptRemarks.drop(); }
