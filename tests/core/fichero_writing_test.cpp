#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "core/fichero.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"

TEST(FicheroWriting, EachLineGetsALineFeed) {
  const TemporaryFolder folder;
  {
    fichero file(folder / "salida.bdl", "escritura");
    EXPECT_TRUE(file.WriteLine("a"));
    EXPECT_TRUE(file.WriteLine("b"));
  }
  EXPECT_EQ("a\nb\n", folder.read("salida.bdl"));
}

TEST(FicheroWriting, NothingReachesTheDiskBeforeTheEnd) {
  const TemporaryFolder folder;
  fichero file(folder / "salida.bdl", "escritura");
  for (int line = 0; line < 10000; ++line) file.WriteLine("una línea de la salida");
  EXPECT_EQ("", folder.read("salida.bdl"));
}

TEST(FicheroWriting, AFileWithoutLinesIsCreatedEmpty) {
  const TemporaryFolder folder;
  { const fichero file(folder / "salida.bdl", "escritura"); }
  EXPECT_EQ("", folder.read("salida.bdl"));
}

TEST(FicheroWriting, ReplacesAFileThatWasThere) {
  const TemporaryFolder folder;
  { fichero(folder.write("salida.bdl", "de ayer, y larga"), "escritura").WriteLine("hoy"); }
  EXPECT_EQ("hoy\n", folder.read("salida.bdl"));
}

TEST(FicheroWriting, TheOpenAloneEmptiesAFileThatWasThere) {
  const TemporaryFolder folder;
  const fichero file(folder.write("salida.bdl", "de ayer"), "escritura");
  EXPECT_EQ("", folder.read("salida.bdl"));
}

TEST(FicheroWriting, TextGoesThroughAsItIs) {
  const TemporaryFolder folder;
  { fichero(folder / "salida.bdl", "escritura").WriteLine("  a\t\xF1\r\n\"b\" "); }
  EXPECT_EQ("  a\t\xF1\r\n\"b\" \n", folder.read("salida.bdl"));
}

TEST(FicheroWriting, AnEmptyLineIsALine) {
  const TemporaryFolder folder;
  { fichero(folder / "salida.bdl", "escritura").WriteLine(""); }
  EXPECT_EQ("\n", folder.read("salida.bdl"));
}

TEST(FicheroWriting, ALineHasNoLongestLength) {
  const TemporaryFolder folder;
  const std::string line(200000, 'x');
  { fichero(folder / "salida.bdl", "escritura").WriteLine(line); }
  EXPECT_EQ(line + "\n", folder.read("salida.bdl"));
}

TEST(FicheroWriting, TheLinesBeyond100000AreLostSilently) {
  const TemporaryFolder folder;
  std::string expected;
  {
    fichero file(folder / "salida.bdl", "escritura");
    for (int line = 1; line <= 100000; ++line) {
      const std::string text = std::to_string(line);
      ASSERT_TRUE(file.WriteLine(text));
      expected += text + "\n";
    }
    EXPECT_FALSE(file.WriteLine("100001"));
    EXPECT_FALSE(file.WriteLine("100002"));
  }
  EXPECT_EQ(expected, folder.read("salida.bdl"));
}

TEST(FicheroWriting, ALineWithLineFeedsInsideIsOneLineOfTheCapacity) {
  const TemporaryFolder folder;
  fichero file(folder / "salida.bdl", "escritura");
  for (int line = 0; line < 99999; ++line) file.WriteLine("a\nb");
  EXPECT_TRUE(file.WriteLine("la última"));
  EXPECT_FALSE(file.WriteLine("una más"));
}

TEST(FicheroWriting, ARunThatIsTornDownByAnExceptionLeavesTheFileEmpty) {
  const TemporaryFolder folder;
  try {
    fichero file(folder / "salida.bdl", "escritura");
    file.WriteLine("a");
    throw std::runtime_error("inesperado");
  } catch (const std::runtime_error&) {
  }
  EXPECT_EQ("", folder.read("salida.bdl"));
}

TEST(FicheroWriting, AFileThatBeginsAndEndsWhileAnExceptionPassesIsWritten) {
  struct WritesWhenDestroyed {
    std::string path;
    ~WritesWhenDestroyed() { fichero(path, "escritura").WriteLine("a"); }
  };
  const TemporaryFolder folder;
  try {
    const WritesWhenDestroyed writer{folder / "salida.bdl"};
    throw std::runtime_error("inesperado");
  } catch (const std::runtime_error&) {
  }
  EXPECT_EQ("a\n", folder.read("salida.bdl"));
}

TEST(FicheroWriting, AStopLeavesTheOutputEmpty) {
  const TemporaryFolder folder;
  EXPECT_EXIT(
      {
        ExitingApplication exiting;
        fichero output(folder.write("salida.bdl", "de ayer"), "escritura");
        output.WriteLine("a");
        const fichero input(folder / "no-existe.bdl", "lectura");
      },
      testing::ExitedWithCode(3), "Error al abrir fichero de lectura: ");
  EXPECT_EQ("", folder.read("salida.bdl"));
}

TEST(FicheroWriting, AWriteThatFailsHalfwayLeavesTheOutputEmpty) {
  const TemporaryFolder folder;
  EXPECT_EXIT(
      {
        ExitingApplication exiting;
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit fewBytes{};
        fewBytes.rlim_cur = fewBytes.rlim_max = 100000;
        setrlimit(RLIMIT_FSIZE, &fewBytes);
        fichero output(folder / "salida.bdl", "escritura");
        for (int line = 0; line < 20000; ++line) output.WriteLine("una línea");
      },
      testing::ExitedWithCode(3), "Error al escribir fichero: .*/salida\\.bdl\n$");
  EXPECT_EQ("", folder.read("salida.bdl"));
}

TEST(FicheroWriting, AWriteThatOnlyFailsAtTheCloseIsAnError) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
  EXPECT_EXIT(
      {
        ExitingApplication exiting;
        fichero("/dev/full", "escritura").WriteLine("a");
      },
      testing::ExitedWithCode(3),
      "^Se ha producido un error: Error al escribir fichero: /dev/full\n$");
}

TEST(FicheroWriting, AFullDeviceIsNoErrorWithoutALineToWrite) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
  EXPECT_EQ(kNotStopped, stopMessage([] { const fichero file("/dev/full", "escritura"); }));
}
