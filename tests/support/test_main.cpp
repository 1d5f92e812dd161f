#include <gtest/gtest.h>

#include "support/recording_application.h"

int main(int argc, char* argv[]) {
  testing::InitGoogleTest(&argc, argv);
  // The forked child sees the test's own temporary folder, so that what it leaves there can be
  // asked.
  testing::FLAGS_gtest_death_test_style = "fast";
  Application = &recordingApplication();
  return RUN_ALL_TESTS();
}
