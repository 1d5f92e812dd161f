#include <gtest/gtest.h>

#include "support/recording_application.h"

/// For the leak checker, which must see it: the C library keeps what it reads of a locale from
/// LOCPATH.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:newlocale\nleak:argz_add_sep\n";
}

int main(int argc, char* argv[]) {
  testing::InitGoogleTest(&argc, argv);
  // The forked child sees the test's own temporary folder, so that what it leaves there can be
  // asked.
  testing::FLAGS_gtest_death_test_style = "fast";
  Application = &recordingApplication();
  return RUN_ALL_TESTS();
}
