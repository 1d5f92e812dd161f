#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/fichero.h"
#include "support/recording_application.h"
#include "support/skip_for_lack_of.h"
#include "support/temporary_folder.h"

namespace {

void save(const std::string& path, std::string_view line) {
  fichero file(path, "escritura");
  file.WriteLine(line);
  file.save();
}

}  // namespace

TEST(FicheroWriting, EachLineGetsALineFeed) {
  const TemporaryFolder folder;
  {
    fichero file(folder / "salida.bdl", "escritura");
    EXPECT_TRUE(file.WriteLine("a"));
    EXPECT_TRUE(file.WriteLine("b"));
    file.save();
  }
  EXPECT_EQ("a\nb\n", folder.read("salida.bdl"));
}

TEST(FicheroWriting, NothingReachesTheDiskBeforeItIsSaved) {
  const TemporaryFolder folder;
  fichero file(folder / "salida.bdl", "escritura");
  for (int line = 0; line < 10000; ++line) file.WriteLine("una línea de la salida");
  EXPECT_EQ("", folder.read("salida.bdl"));
  file.save();
  EXPECT_NE("", folder.read("salida.bdl")) << "with the file still there";
}

TEST(FicheroWriting, AFileWithoutLinesIsCreatedEmpty) {
  const TemporaryFolder folder;
  fichero(folder / "salida.bdl", "escritura").save();
  EXPECT_EQ("", folder.read("salida.bdl"));
}

TEST(FicheroWriting, ReplacesAFileThatWasThere) {
  const TemporaryFolder folder;
  save(folder.write("salida.bdl", "de ayer, y larga"), "hoy");
  EXPECT_EQ("hoy\n", folder.read("salida.bdl"));
}

TEST(FicheroWriting, TheOpenAloneEmptiesAFileThatWasThere) {
  const TemporaryFolder folder;
  const fichero file(folder.write("salida.bdl", "de ayer"), "escritura");
  EXPECT_EQ("", folder.read("salida.bdl"));
}

TEST(FicheroWriting, TextGoesThroughAsItIs) {
  const TemporaryFolder folder;
  save(folder / "salida.bdl", "  a\t\xF1\r\n\"b\" ");
  EXPECT_EQ("  a\t\xF1\r\n\"b\" \n", folder.read("salida.bdl"));
}

TEST(FicheroWriting, AFullCapacityIsNoError) {
  const TemporaryFolder folder;
  fichero file(folder / "salida.bdl", "escritura");
  for (int line = 0; line < OutputLines::kCapacity; ++line) ASSERT_TRUE(file.WriteLine("a"));
  EXPECT_FALSE(file.WriteLine("b"));
  EXPECT_EQ(kNotStopped, stopMessage([&] { file.save(); }));
  const std::string written = folder.read("salida.bdl");
  EXPECT_EQ(2U * OutputLines::kCapacity, written.size());
  EXPECT_TRUE(written.ends_with("a\na\n"));
}

TEST(FicheroWriting, LinesMayBeCopiedOntoTheFileTheyCameFrom) {
  const TemporaryFolder folder;
  const std::string path = folder.write("casa.bdl", "a\nb\nc");
  const SourceText source = fichero(path, "lectura").takeText();
  fichero output(path, "escritura");
  output.WriteLine("own");
  LineReader reader(source.bytes());
  for (std::string_view line; reader.ReadLine(line);) output.lines().CopyLine(reader);
  output.save();
  EXPECT_EQ("own\na\nb\nc\n", readFile(path));
}

TEST(FicheroWriting, WhatNobodySavedIsDropped) {
  const TemporaryFolder folder;
  { fichero(folder.write("salida.bdl", "de ayer"), "escritura").WriteLine("hoy"); }
  EXPECT_EQ("", folder.read("salida.bdl"));
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

TEST(FicheroWriting, AFileThatIsSavedWhileAnExceptionPassesIsWritten) {
  struct WritesWhenDestroyed {
    std::string path;
    ~WritesWhenDestroyed() { save(path, "a"); }
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
        output.save();
      },
      testing::ExitedWithCode(3), "Error al escribir fichero: .*/salida\\.bdl\n$");
  EXPECT_EQ("", folder.read("salida.bdl"));
}

TEST(FicheroWriting, AWriteThatOnlyFailsAtTheCloseIsAnError) {
  if (!std::filesystem::exists("/dev/full")) SKIP_FOR_LACK_OF("/dev/full");
  EXPECT_EXIT(
      {
        ExitingApplication exiting;
        save("/dev/full", "a");
      },
      testing::ExitedWithCode(3),
      "^Se ha producido un error: Error al escribir fichero: /dev/full\n$");
}

TEST(FicheroWriting, AWriteThatFailsIsAboutTheFileAsAWhole) {
  if (!std::filesystem::exists("/dev/full")) SKIP_FOR_LACK_OF("/dev/full");
  EXPECT_EQ("/dev/full", stopPlace([] { save("/dev/full", "a"); }));
}

TEST(FicheroWriting, AFullDeviceIsNoErrorWithoutALineToWrite) {
  if (!std::filesystem::exists("/dev/full")) SKIP_FOR_LACK_OF("/dev/full");
  EXPECT_EQ(kNotStopped, stopMessage([] { fichero("/dev/full", "escritura").save(); }));
}

// A destructor that reports would end the process while another fault is on its way.
TEST(FicheroWriting, AFullDeviceIsNoErrorWhenNobodySaves) {
  if (!std::filesystem::exists("/dev/full")) SKIP_FOR_LACK_OF("/dev/full");
  EXPECT_EQ(kNotStopped, stopMessage([] {
              fichero file("/dev/full", "escritura");
              for (int line = 0; line < 20000; ++line) file.WriteLine("una línea");
            }));
}
