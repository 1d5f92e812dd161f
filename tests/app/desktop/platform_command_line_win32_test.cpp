#include "app/desktop/platform_command_line_win32.h"

#include <gtest/gtest.h>

TEST(PlatformCommandLine, LeavesTheProgramNameOut) {
  const struct {
    const char* why;
    const wchar_t* commandLine;
    const char* rest;
  } rows[] = {
      {"a plain name", L"tip2bdl.exe #a.bdl,b.tip,c.bdl,d.txt", "#a.bdl,b.tip,c.bdl,d.txt"},
      {"a quoted one", L"\"C:\\Mis programas\\tip2bdl.exe\"  #a,b", "#a,b"},
      {"quotes within it", L"C:\\\"Mis programas\"\\tip2bdl.exe\t#a,b", "#a,b"},
      {"nothing behind it", L"tip2bdl.exe", ""},
      {"blanks alone", L"tip2bdl.exe  ", ""},
      {"nothing at all", L"", ""},
      {"a quote that is left open", L"\"tip2bdl.exe #a,b", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.rest, behindProgramName(row.commandLine)) << row.why;
  }
}

TEST(PlatformCommandLine, KeepsTheRestAsItIs) {
  EXPECT_EQ("x#mis casas/a.bdl, \"b\".tip \t,c ",
            behindProgramName(L"tip2bdl x#mis casas/a.bdl, \"b\".tip \t,c "));
}

TEST(PlatformCommandLine, IsUtf8) {
  EXPECT_EQ("#añó/家.bdl", behindProgramName(L"tip2bdl #a\u00F1\u00F3/\u5BB6.bdl"));
}
