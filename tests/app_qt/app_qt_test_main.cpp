#include <gtest/gtest.h>

#include <QApplication>

#include "support/recording_application.h"

/// The forms live on the framework's offscreen platform: they are laid out, painted and take
/// events, and nobody sees them.
int main(int argc, char* argv[]) {
  testing::InitGoogleTest(&argc, argv);
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_SCALE_FACTOR", qgetenv("TEST_SCALE"));
  const QApplication framework(argc, argv);
  Application = &recordingApplication();
  return RUN_ALL_TESTS();
}
