#include "app/desktop/platform_command_line.h"

#include <gtest/gtest.h>

TEST(PlatformCommandLine, LeavesTheProgramNameOut) {
  const char* const argv[] = {"/usr/bin/tip2bdl", "#a.bdl,b.tip,c.bdl,d.txt"};
  EXPECT_EQ("#a.bdl,b.tip,c.bdl,d.txt", platformCommandLine(2, argv));
}

TEST(PlatformCommandLine, JoinsArgumentsByOneBlank) {
  const char* const argv[] = {"tip2bdl", "-platform", "x#mis casas/a.bdl,", "b.tip ", "", ",c"};
  EXPECT_EQ("-platform x#mis casas/a.bdl, b.tip   ,c", platformCommandLine(6, argv));
}

TEST(PlatformCommandLine, IsEmptyWithoutArguments) {
  const char* const argv[] = {"tip2bdl"};
  EXPECT_EQ("", platformCommandLine(1, argv));
  EXPECT_EQ("", platformCommandLine(0, nullptr));
}
