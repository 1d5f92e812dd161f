#include "core/path_table.h"

#include <gtest/gtest.h>

#include <string>

#include "support/recording_application.h"

namespace {

constexpr const char* kKeys[] = {"Per", "Img", "Lib", "Met", "Exe", "Fot", "Bin",
                                 "Pla", "Imt", "Tmp", "Res", "Doc", "Dat", "Hor"};

/// Begins and ends without a table.
class PathTableTest : public testing::Test {
 protected:
  PathTableTest() { PathTable::Release(); }
  ~PathTableTest() override { PathTable::Release(); }
};

}  // namespace

TEST_F(PathTableTest, HasEveryFolderEmptyAtFirst) {
  for (const char* key : kKeys) EXPECT_EQ("", PathTable::Instance().Get(key)) << key;
}

TEST_F(PathTableTest, KeepsOneFolderAKey) {
  for (const char* key : kKeys) {
    const std::string folder = std::string("/") + key + "/";
    ASSERT_NE(nullptr, PathTable::Instance().Set(key, folder)) << key;
  }
  for (const char* key : kKeys) {
    EXPECT_EQ(std::string("/") + key + "/", PathTable::Instance().Get(key));
  }
}

TEST_F(PathTableTest, SetReturnsTheStoredText) {
  const std::string* stored = PathTable::Instance().Set("Exe", "C:\\prog\\");
  ASSERT_NE(nullptr, stored);
  EXPECT_EQ("C:\\prog\\", *stored);
  PathTable::Instance().Set("Exe", "D:\\");
  EXPECT_EQ("D:\\", *stored);
}

TEST_F(PathTableTest, AnEmptyFolderReplacesTheOneThatWasThere) {
  PathTable::Instance().Set("Exe", "C:\\prog\\");
  ASSERT_NE(nullptr, PathTable::Instance().Set("Exe", ""));
  EXPECT_EQ("", PathTable::Instance().Get("Exe"));
}

TEST_F(PathTableTest, KeysAreComparedAsAWholeAndCaseSensitively) {
  const struct {
    const char* why;
    const char* key;
  } cases[] = {{"case", "exe"},         {"case throughout", "EXE"}, {"no such key", "Xyz"},
               {"a key's start", "Ex"}, {"longer", "Exe2"},         {"a blank behind", "Exe "},
               {"nothing", ""}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(nullptr, PathTable::Instance().Set(c.key, "/somewhere/"));
    EXPECT_EQ("", PathTable::Instance().Get(c.key));
  }
  for (const char* key : kKeys) EXPECT_EQ("", PathTable::Instance().Get(key)) << key;
}

TEST_F(PathTableTest, TheLongestFolderHas2999Bytes) {
  const std::string longest(2999, 'x');
  ASSERT_NE(nullptr, PathTable::Instance().Set("Dat", longest));
  EXPECT_EQ(longest, PathTable::Instance().Get("Dat"));
}

TEST_F(PathTableTest, AFolderOf3000BytesEndsTheRun) {
  const std::string tooLong(3000, 'x');
  EXPECT_EQ("La ruta es demasiado larga (3000 caracteres; debe tener menos de 3000): " + tooLong,
            stopMessage([&] { PathTable::Instance().Set("Dat", tooLong); }));
}

TEST_F(PathTableTest, AnUnknownKeyTakesNoFolderOfAnyLength) {
  EXPECT_EQ(nullptr, PathTable::Instance().Set("Xyz", std::string(3000, 'x')));
}

TEST_F(PathTableTest, IsOneTableUntilItIsReleased) {
  PathTable& table = PathTable::Instance();
  EXPECT_EQ(&table, &PathTable::Instance());
}

TEST_F(PathTableTest, IsFreshAfterARelease) {
  PathTable::Instance().Set("Tmp", "/tmp/");
  PathTable::Release();
  EXPECT_EQ("", PathTable::Instance().Get("Tmp"));
}

TEST_F(PathTableTest, ReleaseTwiceInARowIsHarmless) {
  PathTable::Instance().Set("Tmp", "/tmp/");
  PathTable::Release();
  PathTable::Release();
  EXPECT_EQ("", PathTable::Instance().Get("Tmp"));
}
