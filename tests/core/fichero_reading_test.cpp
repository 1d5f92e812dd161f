#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichero.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"

using testing::ElementsAre;

namespace {

std::vector<std::string> allLines(fichero& file) {
  std::vector<std::string> lines;
  std::string_view line;
  while (file.ReadLine(line)) lines.emplace_back(line);
  return lines;
}

}  // namespace

TEST(FicheroReading, HandsOutTheLinesAsALineReaderDoes) {
  const TemporaryFolder folder;
  fichero file(folder.write("casa.bdl", "A\r\n B\t\n"), "lectura");
  EXPECT_THAT(allLines(file), ElementsAre("A", " B\t", " B\t"));
}

TEST(FicheroReading, ALineLivesAsLongAsTheFile) {
  const TemporaryFolder folder;
  fichero file(folder.write("casa.bdl", "primera\nsegunda"), "lectura");
  std::string_view first;
  std::string_view second;
  ASSERT_TRUE(file.ReadLine(first));
  ASSERT_TRUE(file.ReadLine(second));
  EXPECT_EQ("primera", first);
}

TEST(FicheroReading, ReadsTheFileAtConstruction) {
  const TemporaryFolder folder;
  fichero file(folder.write("casa.bdl", "antes"), "lectura");
  folder.write("casa.bdl", "despu\xE9s");
  EXPECT_THAT(allLines(file), ElementsAre("antes"));
}

TEST(FicheroReading, GivesTheBytesOfTheFileAndItsName) {
  const TemporaryFolder folder;
  const std::string path = folder.write("casa.bdl", "A\r\n  B\t\n");
  const SourceText text = fichero(path, "lectura").takeText();
  EXPECT_EQ("A\r\n  B\t\n", text.bytes());
  EXPECT_EQ(path, text.name());
}

// The size that the file says is only a hint, and blocks are read behind each other.
TEST(FicheroReading, GivesTheBytesOfAFileOfAnySize) {
  const TemporaryFolder folder;
  for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 200000U}) {
    std::string bytes(size, 'x');
    if (size > 0) bytes.back() = 'z';
    EXPECT_EQ(bytes, fichero(folder.write("casa.bdl", bytes), "lectura").takeText().bytes())
        << size;
  }
}

TEST(FicheroReading, GivesTheBytesOfADeviceWithoutASize) {
  EXPECT_EQ("", fichero("/dev/null", "lectura").takeText().bytes());
}

TEST(FicheroReading, TheTextOutlivesTheFile) {
  const TemporaryFolder folder;
  auto file = std::make_unique<fichero>(folder.write("casa.bdl", "A"), "lectura");
  const SourceText text = file->takeText();
  file.reset();
  EXPECT_EQ("A", text.bytes());
}

TEST(FicheroReading, TheTextIsGivenOnceAndInsteadOfLines) {
  const TemporaryFolder folder;
  fichero file(folder.write("casa.bdl", "A"), "lectura");
  file.takeText();
  std::string_view line;
  EXPECT_EQ("El fichero debe ser de tipo lectura", stopMessage([&] { file.takeText(); }));
  EXPECT_EQ("El fichero debe ser de tipo lectura", stopMessage([&] { file.ReadLine(line); }));
}

TEST(FicheroReading, LeavesTheFileAsItWas) {
  const TemporaryFolder folder;
  const std::string path = folder.write("casa.bdl", "A\nB\n");
  { const fichero file(path, "lectura"); }
  EXPECT_EQ("A\nB\n", readFile(path));
}
