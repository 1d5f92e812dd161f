#include "app/qt/desktop_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <cstdio>

#include "app/qt/framework_faults.h"
#include "app/qt/screen.h"
#include "core/report_error.h"

TEST(Screen, TheOffscreenPlatformIsNone) { EXPECT_FALSE(hasScreen()); }

TEST(DesktopApplication, ProcessMessagesLetsPendingEventsThrough) {
  DesktopApplication application;
  int arrived = 0;
  QTimer::singleShot(0, [&] { ++arrived; });
  QObject receiver;
  QMetaObject::invokeMethod(
      &receiver, [&] { ++arrived; }, Qt::QueuedConnection);
  EXPECT_EQ(0, arrived);
  application.ProcessMessages();
  EXPECT_EQ(2, arrived);
}

TEST(DesktopApplication, WithoutAScreenMessagesAreLinesOnStandardError) {
  DesktopApplication application;
  bool waited = false;
  QTimer::singleShot(0, [&] { waited = true; });
  testing::internal::CaptureStderr();
  application.MessageBox("No existe <b> el fichero", "Se ha producido un error");
  EXPECT_EQ("Se ha producido un error: No existe <b> el fichero\n",
            testing::internal::GetCapturedStderr());
  EXPECT_FALSE(waited) << "nobody is there to dismiss anything";
  QApplication::processEvents();
}

namespace {

struct Destroyed {
  ~Destroyed() { std::fputs("destroyed\n", stderr); }
};

void terminateInsideAnEvent() {
  static Destroyed atExit;
  DesktopApplication application;
  Application = &application;
  QWidget form;
  const Destroyed onTheStack;
  QTimer::singleShot(0, [] { ReportError(nullptr, false, "hasta luego"); });
  form.show();
  QApplication::exec();
}

}  // namespace

TEST(DesktopApplicationDeathTest, EndsInsideAnEventWithoutDestroyingAnything) {
  EXPECT_EXIT(terminateInsideAnEvent(), testing::ExitedWithCode(3),
              "Se ha producido un error: hasta luego\n$");
}

TEST(DesktopApplicationDeathTest, OpenStreamsAreFlushed) {
  EXPECT_EXIT(
      {
        std::setvbuf(stderr, nullptr, _IOFBF, 4096);
        std::fputs("the end", stderr);
        DesktopApplication application;
        application.Terminate(5);
      },
      testing::ExitedWithCode(5), "the end");
}

TEST(DesktopApplicationDeathTest, TheFrameworksRemarksComeOnlyAfterAFailure) {
  const auto end = [](int status) {
    endAsAnErrorOnFrameworkFaults();
    qWarning("una observación");
    DesktopApplication application;
    if (status != 0) application.MessageBox("una falta", "Se ha producido un error");
    application.Terminate(status);
  };
  EXPECT_EXIT(end(0), testing::ExitedWithCode(0), testing::Not(testing::HasSubstr("observación")));
  EXPECT_EXIT(end(3), testing::ExitedWithCode(3),
              "Se ha producido un error: una falta\nuna observación\n$");
}
