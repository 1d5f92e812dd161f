#include "core/open_file.h"

#include <gtest/gtest.h>

#include "core/paths.h"
#include "core/whole_file.h"
#include "support/temporary_folder.h"

TEST(CreateNewFile, LeavesOneThatIsThereAlone) {
  const TemporaryFolder folder;
  folder.write("a.txt", "antes");
  EXPECT_EQ(nullptr, createNewFile(folder / "a.txt"));
  EXPECT_EQ("antes", folder.read("a.txt"));
  EXPECT_EQ(nullptr, createNewFile(folder / "no/a.txt"));
}

TEST(CreateNewFile, WritesBytesAsTheyAre) {
  const TemporaryFolder folder;
  std::FILE* const file = createNewFile(folder / "año 家.bin");
  ASSERT_NE(nullptr, file);
  std::fputs("a\nb\r\n\x1A", file);
  std::fclose(file);
  EXPECT_EQ(6, std::filesystem::file_size(filePath(folder / "año 家.bin")));
}

TEST(OpenFile, TakesNamesOfAnyCharacters) {
  const TemporaryFolder folder;
  const std::string path = folder / "año 家.txt";
  EXPECT_EQ(nullptr, openFile(path, "rb"));
  std::FILE* const file = openFile(path, "wb");
  ASSERT_NE(nullptr, file);
  std::fputs("ab", file);
  std::fclose(file);
  EXPECT_EQ(2, std::filesystem::file_size(filePath(path)));
}

TEST(WriteWholeFile, TakesThePlaceOfAFileAndLeavesNothingBesideIt) {
  const TemporaryFolder folder;
  folder.write("a.txt", "antes");
  folder.write("a.txt.parcial", "de otro");
  writeWholeFile(folder / "a.txt", "después");
  EXPECT_EQ("después", folder.read("a.txt"));
  EXPECT_EQ("de otro", folder.read("a.txt.parcial"));
  EXPECT_EQ((std::vector<std::string>{"a.txt", "a.txt.parcial"}), folder.names());
}
