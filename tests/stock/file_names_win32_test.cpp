#include "stock/file_names.h"

#include <gtest/gtest.h>

TEST(FileNames, ADevicesNameIsNoFilesWhateverItsExtensionAndItsCase) {
  for (const char* name : {"con", "NUL", "aux.x", "Prn.bdl.tip", "com1", "LPT9.bdl", "COM0"}) {
    EXPECT_TRUE(stock::isDeviceName(name)) << name;
  }
  for (const char* name : {"", ".con", "cono", "co", "com", "com10", "coma", "x.con", "lpt-1"}) {
    EXPECT_FALSE(stock::isDeviceName(name)) << name;
  }
}

TEST(FileNames, CapitalsMakeNoOtherFile) {
  EXPECT_EQ("v01-b_.z", stock::asFileName("V01-b_.Z"));
  EXPECT_NE(stock::asFileName("a1"), stock::asFileName("a2"));
}
