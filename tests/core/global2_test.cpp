#include "core/global2.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <string_view>

#include "support/temporary_folder.h"

namespace {

std::string quoted(std::string text) {
  Global2::entrecomillar(text);
  return text;
}

std::string replaced(std::string text, char from, char to) {
  Global2::reemplazarCaracter(text, from, to);
  return text;
}

std::string withExtension(std::string path, std::string_view extension) {
  Global2::cambiarExtension(path, extension);
  return path;
}

}  // namespace

TEST(Global2, CreatesItsLogEmpty) {
  const TemporaryFolder folder;
  const Global2 global(folder / "Error.log");
  EXPECT_EQ("", folder.read("Error.log"));
}

TEST(Global2, EmptiesALogThatWasThere) {
  const TemporaryFolder folder;
  const Global2 global(folder.write("Error.log", "un error de ayer"));
  EXPECT_EQ("", folder.read("Error.log"));
}

TEST(Global2, ALogThatCannotBeOpenedIsNobodysError) {
  const TemporaryFolder folder;
  Global2 global(folder / "no-such-folder/Error.log");
  EXPECT_EQ(nullptr, global.log);
  global.escribir("nada");
  global.cerrar();
  EXPECT_FALSE(folder.has("no-such-folder"));
}

TEST(Global2, StartsWithItsPresets) {
  const TemporaryFolder folder;
  const Global2 global(folder / "Error.log");
  EXPECT_EQ(1, global.abierto);
  EXPECT_EQ("", global.tipoEdificio);
  EXPECT_EQ(0.01F, global.tolerancia);
  EXPECT_EQ(5.67e-8F, global.sigma);
  EXPECT_EQ(48U, global.buffer1.size());
  EXPECT_EQ(48U, global.buffer2.size());
  EXPECT_EQ((std::array<int, 3>{-1, -1, 0}), global.reservados);
}

TEST(Global2, WritesToTheLogAsItIs) {
  const TemporaryFolder folder;
  Global2 global(folder / "Error.log");
  global.escribir("uno");
  global.escribir("dos\n");
  global.cerrar();
  EXPECT_EQ("unodos\n", folder.read("Error.log"));
}

TEST(Global2, AClosedLogTakesNothingMore) {
  const TemporaryFolder folder;
  Global2 global(folder / "Error.log");
  global.cerrar();
  global.escribir("tarde");
  global.cerrar();
  EXPECT_EQ(nullptr, global.log);
  EXPECT_EQ("", folder.read("Error.log"));
}

TEST(Global2, ClosesItsLogAtItsEnd) {
  const TemporaryFolder folder;
  {
    Global2 global(folder / "Error.log");
    global.escribir("uno");
  }
  EXPECT_EQ("uno", folder.read("Error.log"));
}

TEST(Global2, LeavesTheLogOpenWhenItIsNotMarkedAsOpen) {
  const TemporaryFolder folder;
  std::FILE* log = nullptr;
  {
    Global2 global(folder / "Error.log");
    log = global.log;
    global.abierto = 0;
  }
  ASSERT_NE(nullptr, log);
  EXPECT_EQ(0, std::fclose(log));
}

TEST(Entrecomillar, WrapsATextInDoubleQuotes) {
  EXPECT_EQ("\"Muro\"", quoted("Muro"));
  EXPECT_EQ("\"\"", quoted(""));
  EXPECT_EQ("\"\"Muro\"\"", quoted("\"Muro\""));
}

TEST(ReemplazarCaracter, ReplacesEveryOccurrence) {
  EXPECT_EQ(" a  b ", replaced("\na\n\nb\n", '\n', ' '));
  EXPECT_EQ("abc", replaced("abc", '\n', ' '));
  EXPECT_EQ("", replaced("", '\n', ' '));
}

TEST(CambiarExtension, ThreeCharactersKeepTheLengthOfThePath) {
  const struct {
    const char* why;
    const char* path;
    const char* result;
  } cases[] = {
      {"an extension of three", "C:\\datos\\casa.tip", "C:\\datos\\casa.tbl"},
      {"only the last dot counts", "a.b\\casa.v2.bdl", "a.b\\casa.v2.tbl"},
      {"a longer one keeps its rest", "casa.bdlx", "casa.tblx"},
      {"much longer", "casa.backup", "casa.tblkup"},
      {"two characters: cut", "casa.bd", "casa.tb"},
      {"one character: cut", "casa.b", "casa.t"},
      {"a dot at the end: nothing of it fits", "casa.", "casa."},
      {"a dot in the folder counts when the name has none", "a.b/casa", "a.tblasa"},
      {"a dot in a folder of one letter", "obra.x/y", "obra.tbl"},
      {"the parent folder's dots", "../casa", "..tblsa"},
      {"no dot anywhere: appended", "casa", "casa.tbl"},
      {"an empty path", "", ".tbl"},
      {"a dot alone", ".", "."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.result, withExtension(c.path, "tbl"));
  }
}

TEST(CambiarExtension, OtherLengthsBringTheirDotAndGrowThePathByNMinus4) {
  const struct {
    const char* why;
    const char* path;
    const char* extension;
    const char* result;
  } cases[] = {
      {"four characters: only the last dot counts", "a.b\\casa.tip", ".dat", "a.b\\casa.dat"},
      {"four, a longer one keeps its rest", "casa.bdlx", ".dat", "casa.datx"},
      {"four, a shorter one is cut", "casa.b", ".dat", "casa.d"},
      {"four without a dot of their own", "casa.tip", "_dat", "casa_dat"},
      {"five grow by one", "casa.tip", ".json", "casa.json"},
      {"five, a shorter one is cut", "casa.b", ".json", "casa.js"},
      {"five, a longer one ends where it ended", "casa.tipxx", ".json", "casa.jsonx"},
      {"two shrink by two", "casa.tip", ".c", "casa.c"},
      {"one shrinks by three", "casa.tip", "~", "casa~"},
      {"none cuts the extension off", "casa.tip", "", "casa"},
      {"none, a short path", "a.b", "", ""},
      {"two, a dot at the end", "a.", ".c", ""},
      {"one, a longer one keeps its rest", "casa.tipxx", "~", "casa~ti"},
      {"no dot anywhere: appended", "casa", ".dat", "casa.dat"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.result, withExtension(c.path, c.extension));
  }
}

TEST(CambiarExtension, NeverLeavesMoreThanItsRuleForAnyOldExtension) {
  const std::string_view extensions[] = {"", "1", "12", "123", "1234", "12345", "123456"};
  for (std::size_t old = 0; old < 8; ++old) {
    for (const std::string_view extension : extensions) {
      const std::string path = "casas." + std::string(old, 'o');
      const std::size_t n = extension.size();
      const std::size_t rule = n == 3 ? path.size() : path.size() + n - 4;
      const std::size_t written = (n == 3 ? 6 : 5) + n;
      EXPECT_EQ(std::min(rule, std::max(written, path.size())),
                withExtension(path, extension).size())
          << old << " characters replaced by " << n;
    }
  }
}
