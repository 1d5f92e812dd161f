#include "stock/file_names.h"

#include <gtest/gtest.h>

TEST(FileNames, EachIsAFileOfItsOwn) {
  for (const char* name : {"con", "NUL.bdl", "com1", "a"}) {
    EXPECT_FALSE(stock::isDeviceName(name)) << name;
    EXPECT_EQ(name, stock::asFileName(name));
  }
}
