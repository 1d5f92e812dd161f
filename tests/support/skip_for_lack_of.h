#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string_view>

/// Whether the tests run on a build server, which says so in the variable CI. It installs all that
/// the tests need (scripts/packages.txt), so that a tool that is missing there is a fault.
inline bool onBuildServer() {
  const char* ci = std::getenv("CI");
  return ci != nullptr && *ci != '\0';
}

/// Leaves a test that cannot do without `tool` (a program, a user, a folder, a device of the
/// machine): skipped, or failed on a build server. Only what no set-up mends is skipped there too,
/// with its reason: what a sanitizer, the kernel or the processor does not let happen.
#define SKIP_FOR_LACK_OF(tool)                                                \
  do {                                                                        \
    if (onBuildServer()) FAIL() << (tool) << " is missing on a build server"; \
    GTEST_SKIP() << (tool) << " is missing";                                  \
  } while (false)
