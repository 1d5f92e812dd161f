#include "app/qt/framework_faults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QThread>
#include <QtGlobal>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

// A process of its own for each fault ends as every error does.

using testing::HasSubstr;
using testing::Not;

namespace {

const auto kEndsAsAnError = testing::ExitedWithCode(3);

void warn() { qWarning("una observación"); }

}  // namespace

TEST(FrameworkFaults, AFatalRemarkIsAnErrorOfOneLine) {
  const auto fail = [] {
    endAsAnErrorOnFrameworkFaults();
    qFatal("no such plugin\nplugins: %s\n", "none");
  };
  EXPECT_EXIT(fail(), kEndsAsAnError,
              "Se ha producido un error: Error inesperado: no such plugin plugins: none\n$");
}

TEST(FrameworkFaults, AThreadThatCannotBeStartedIsMissingMemory) {
#ifdef SANITIZED
  GTEST_SKIP() << "a sanitizer needs the memory itself";
#endif
  const auto start = [] {
    endAsAnErrorOnFrameworkFaults();
    QThread thread;
    thread.setStackSize(1U << 30);
    const rlimit noMore = {1, 1};  // what there is stays
    setrlimit(RLIMIT_AS, &noMore);
    thread.start();
  };
  EXPECT_EXIT(start(), kEndsAsAnError, "Se ha producido un error: No hay memoria suficiente\n$");
}

TEST(FrameworkFaults, ASignalThatWouldKillIsAnError) {
  for (const auto& [signal, name] :
       {std::pair{SIGABRT, "SIGABRT"}, std::pair{SIGTRAP, "SIGTRAP"}}) {
    const auto raised = [number = signal] {
      endAsAnErrorOnFrameworkFaults();
      std::raise(number);
    };
    const std::string message =
        std::string("Error inesperado: el programa se ha interrumpido (") + name + ")\n";
    EXPECT_EXIT(raised(), kEndsAsAnError,
                testing::EndsWith("Se ha producido un error: " + message));
  }
}

TEST(FrameworkFaults, OtherRemarksAreKeptUntilTheyAreAskedFor) {
  const auto remark = [](bool dropped, bool asked) {
    endAsAnErrorOnFrameworkFaults();
    warn();
    if (dropped) dropFrameworkRemarks();
    std::fputs("un mensaje\n", stderr);
    if (asked) writeKeptRemarks();
    std::exit(0);
  };
  EXPECT_EXIT(remark(false, false), testing::ExitedWithCode(0), Not(HasSubstr("una observación")));
  EXPECT_EXIT(remark(false, true), testing::ExitedWithCode(0), "un mensaje\nuna observación\n$");
  EXPECT_EXIT(remark(true, true), testing::ExitedWithCode(0), Not(HasSubstr("una observación")));
}

TEST(FrameworkFaults, AFatalRemarkComesBeforeThoseThatWereKept) {
  const auto fail = [] {
    endAsAnErrorOnFrameworkFaults();
    warn();
    warn();
    qFatal("se acabó");
  };
  EXPECT_EXIT(fail(), kEndsAsAnError,
              "Error inesperado: se acabó\nuna observación\nuna observación\n$");
}

TEST(FrameworkFaults, MoreRemarksThanTheStoreHoldsAreForgotten) {
  const auto remark = [] {
    endAsAnErrorOnFrameworkFaults();
    for (int i = 0; i < 10000; ++i) warn();
    writeKeptRemarks();
    std::fputs("fin\n", stderr);
    std::exit(0);
  };
  EXPECT_EXIT(remark(), testing::ExitedWithCode(0), "una observación\nfin\n$");
}
