#include "core/paths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/recording_application.h"
#include "support/temporary_folder.h"

TEST(FolderOf, EndsWithTheLastSeparatorOrTheDrivesColon) {
  const struct {
    const char* why;
    const char* path;
    const char* folder;
  } cases[] = {
      {"nothing", "", ""},
      {"a name alone", "casa.bdl", ""},
      {"slashes", "/datos/obra/casa.bdl", "/datos/obra/"},
      {"the root", "/casa.bdl", "/"},
      {"backslashes", "C:\\datos\\casa.bdl", "C:\\datos\\"},
      {"the last of both kinds, a backslash", "C:/datos\\casa.bdl", "C:/datos\\"},
      {"the last of both kinds, a slash", "datos\\obra/casa.bdl", "datos\\obra/"},
      {"a folder is its own folder", "datos/obra/", "datos/obra/"},
      {"a drive alone", "C:casa.bdl", "C:"},
      {"nothing behind the drive", "C:", "C:"},
      {"a separator behind the drive", "C:\\casa.bdl", "C:\\"},
      {"a colon that is no drive's", "casa:1.bdl", ""},
      {"a colon at the very start", ":casa.bdl", ""},
      {"relative", "../casa.bdl", "../"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.folder, folderOf(c.path));
  }
}

TEST(FileExists, IsTrueForAFile) {
  const TemporaryFolder folder;
  EXPECT_TRUE(fileExists(folder.write("casa.bdl", "")));
}

TEST(FileExists, IsFalseForAMissingFile) {
  const TemporaryFolder folder;
  EXPECT_FALSE(fileExists(folder / "casa.bdl"));
  EXPECT_FALSE(fileExists(""));
}

TEST(FileExists, IsFalseForAFolder) {
  const TemporaryFolder folder;
  EXPECT_FALSE(fileExists(folder.path()));
  EXPECT_FALSE(fileExists(folder.path() + "/"));
}

TEST(FileExists, IsFalseForAFileUsedAsAFolder) {
  const TemporaryFolder folder;
  EXPECT_FALSE(fileExists(folder.write("casa.bdl", "") + "/casa.tbl"));
}

TEST(FileExists, FollowsALinkToItsFile) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink(folder / "casa.bdl", folder / "enlace.bdl");
  EXPECT_FALSE(fileExists(folder / "enlace.bdl"));
  folder.write("casa.bdl", "");
  EXPECT_TRUE(fileExists(folder / "enlace.bdl"));
}

TEST(RequirePathWithin, AcceptsAPathThatLeavesRoomForItsEnd) {
  EXPECT_EQ(kNotStopped, stopMessage([] { requirePathWithin("", 3000); }));
  EXPECT_EQ(kNotStopped, stopMessage([] { requirePathWithin(std::string(2999, 'x'), 3000); }));
  EXPECT_EQ(kNotStopped, stopMessage([] { requirePathWithin(std::string(1999, 'x'), 2000); }));
}

TEST(RequirePathWithin, NamesThePathThatIsTooLong) {
  EXPECT_EQ("La ruta es demasiado larga (5 caracteres; debe tener menos de 5): datos",
            stopMessage([] { requirePathWithin("datos", 5); }));
  EXPECT_EQ("La ruta es demasiado larga (2001 caracteres; debe tener menos de 2000): " +
                std::string(2001, 'x'),
            stopMessage([] { requirePathWithin(std::string(2001, 'x'), kComposedPathCapacity); }));
}

TEST(RequirePathWithin, TheCapacitiesAreThoseOfThePathsOfARun) {
  EXPECT_EQ(3000U, kPathCapacity);
  EXPECT_EQ(2000U, kComposedPathCapacity);
}
