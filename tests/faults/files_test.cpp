#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <thread>

#include "faults/surroundings.h"
#include "support/skip_for_lack_of.h"

// Devices, folders, links, pipes and endless files where a run expects its files.

namespace fs = std::filesystem;

namespace {
class Files : public Surroundings {};
class FilesOfTheConsole : public Surroundings {};
}  // namespace

TEST_P(Files, NothingIsInTheWay) { expectComplete(run()); }

// Devices and folders.

TEST_P(Files, AFullDeviceTakesNoOutput) {
  expectMessage(error("Error al escribir fichero: /dev/full"), runWith(kOutput, "/dev/full"));
}

TEST_P(Files, AnEmptyMarkerFitsOnAFullDevice) {
  const FaultedRun result = runWith(kMarker, "/dev/full");
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("", result.err);
  EXPECT_TRUE(place_.outputIsComplete());
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_P(Files, AMissingFolderIsNamedWithTheFile) {
  expectMessage(cannotWrite("no-existe/salida.bdl"), runWith(kOutput, "no-existe/salida.bdl"));
  place_.reset();
  const FaultedRun result = runWith(kMarker, "no-existe/fin.txt");
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(cannotWrite("no-existe/fin.txt"), result.err);
  EXPECT_TRUE(place_.outputIsComplete());
}

TEST_P(Files, AFolderInPlaceOfAnInputIsNoInput) {
  const struct {
    const char* name;
    const char* message;
  } cases[] = {
      {"casa.bdl", "No existe el fichero de datos *.bdl"},
      {"casa.tbl", "No existe el fichero de datos *.tbl"},
      {"casa.tip", "No existe el fichero de datos *.tip"},
      {"defectos.inp", "No existe el fichero de librería defectos.inp"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    fs::remove(path(c.name));
    fs::create_directory(path(c.name));
    const FaultedRun result = run();
    EXPECT_EQ(3, result.status);
    EXPECT_EQ(error(c.message), result.err);
    EXPECT_FALSE(place_.hasMarker());
    EXPECT_EQ(Workplace::kOldOutput, place_.folder().read("salida.bdl"));
    fs::remove(path(c.name));
    place_.folder().write(c.name, place_.input(c.name));
  }
}

TEST_P(Files, AFolderInPlaceOfTheOutputOrTheMarkerIsAnError) {
  fs::create_directory(path("carpeta"));
  expectMessage(cannotWrite(path("carpeta")), runWith(kOutput, path("carpeta")));
  const FaultedRun result = runWith(kMarker, path("carpeta"));
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(cannotWrite(path("carpeta")), result.err);
}

TEST_P(Files, AFolderInPlaceOfTheLogIsNobodysError) {
  fs::create_directory(path("Error.log"));
  expectComplete(run());
}

TEST_P(Files, AFolderThatIsGoneHasNoFiles) {
  RunOptions options;
  const std::string gone = path("desaparecida");
  options.inChild = [gone] {
    const bool inside = mkdir(gone.c_str(), 0700) == 0 && chdir(gone.c_str()) == 0;
    if (!inside || rmdir(gone.c_str()) != 0) _exit(126);
  };
  expectMessage(error("No existe el fichero de datos *.bdl"),
                runWith(kTemplate, "casa.bdl", options));
  expectMessage(cannotWrite("salida.bdl"), runWith(kOutput, "salida.bdl", options));
  place_.reset();
  const FaultedRun result = runWith(kMarker, "fin.txt", options);
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(cannotWrite("fin.txt"), result.err);
}

// An element of the desktop program's command line cannot be as long.
TEST_P(FilesOfTheConsole, NamesThatAreTooLongForTheSystemAreErrors) {
  const std::string longName(300, 'x');
  expectMessage(cannotWrite(path(longName)), runWith(kOutput, path(longName)));
  expectMessage(error("No existe el fichero de datos *.tip"), runWith(kTypology, path(longName)));
}

// One file in two places.

TEST_P(Files, TheTemplateMayBeItsOwnOutput) {
  const FaultedRun result = runWith(kOutput, path("casa.bdl"));
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_TRUE(place_.folder().read("casa.bdl") == place_.expectedOutput());
}

TEST_P(Files, OutputAndMarkerMayBothBeTheNullDevice) {
  std::vector<std::string> arguments = place_.arguments();
  arguments[kOutput] = arguments[kMarker] = "/dev/null";
  EXPECT_EQ(0, runOn(GetParam(), arguments).status);
}

// Links.

TEST_P(Files, LinksAreFollowed) {
  for (const char* name : {"casa.bdl", "casa.tbl", "casa.tip", "defectos.inp"}) {
    fs::rename(path(name), path(std::string("de-verdad-") + name));
    fs::create_symlink(std::string("de-verdad-") + name, path(name));
  }
  fs::rename(path("salida.bdl"), path("de-verdad-salida.bdl"));
  fs::create_symlink("de-verdad-salida.bdl", path("salida.bdl"));
  fs::create_symlink("de-verdad-fin.txt", path("fin.txt"));  // to nothing as yet
  expectComplete(run());
  EXPECT_TRUE(fs::is_symlink(path("salida.bdl")));
  EXPECT_TRUE(place_.folder().read("de-verdad-salida.bdl") == place_.expectedOutput());
  EXPECT_TRUE(fs::is_regular_file(path("de-verdad-fin.txt")));
}

TEST_P(Files, ALinkToItselfIsAnError) {
  fs::create_symlink("bucle", path("bucle"));
  expectMessage(cannotWrite(path("bucle")), runWith(kOutput, path("bucle")));
  expectMessage(error("No existe el fichero de datos *.tip"), runWith(kTypology, path("bucle")));
}

// Inputs without an end.

TEST_P(Files, AnInputThatNeverEndsIsAnError) {
  for (const char* name : {"casa.bdl", "casa.tbl", "casa.tip", "defectos.inp"}) {
    SCOPED_TRACE(name);
    fs::remove(path(name));
    fs::create_symlink("/dev/zero", path(name));
    const FaultedRun result = run();
    EXPECT_FALSE(result.timedOut);
    EXPECT_EQ(3, result.status);
    EXPECT_EQ(error("Error en el fichero " + path(name) + ", línea 1: contiene un carácter nulo") +
                  "  " + path(name) + ":1:1:\n",
              result.err);
    EXPECT_FALSE(place_.hasMarker());
    fs::remove(path(name));
    place_.folder().write(name, place_.input(name));
  }
}

TEST_P(Files, APipeIsNoInputWhetherOrNotSomebodyWritesIntoIt) {
  for (const char* name : {"casa.bdl", "casa.tbl", "casa.tip", "defectos.inp"}) {
    SCOPED_TRACE(name);
    fs::remove(path(name));
    ASSERT_EQ(0, mkfifo(path(name).c_str(), 0600));
    const std::string message = error("Error al abrir fichero de lectura: " + path(name));
    FaultedRun result = run();
    EXPECT_FALSE(result.timedOut);
    EXPECT_EQ(3, result.status);
    EXPECT_EQ(message, result.err);

    const int bothEnds = open(path(name).c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(5, write(bothEnds, "hola\n", 5));
    result = run();
    close(bothEnds);
    EXPECT_FALSE(result.timedOut);
    EXPECT_EQ(message, result.err);
    EXPECT_FALSE(place_.hasMarker());
    fs::remove(path(name));
    place_.folder().write(name, place_.input(name));
  }
}

TEST_P(Files, AFileLargerThanTheMemoryIsAnError) {
#ifdef SANITIZED
  GTEST_SKIP() << "a sanitizer ends the program itself when an allocation is too large";
#endif
  std::error_code unable;
  fs::resize_file(path("casa.tip"), std::uintmax_t{1} << 42, unable);  // a hole, on no disk
  if (unable) SKIP_FOR_LACK_OF("a disk that takes a hole of 4 TiB");
  const FaultedRun result = run();
  EXPECT_FALSE(result.timedOut);
  EXPECT_EQ(3, result.status);
  EXPECT_TRUE(result.err == error("No hay memoria suficiente") ||
              messageLine(result.err).ends_with("contiene un carácter nulo\n"))
      << result.err;
  EXPECT_FALSE(place_.hasMarker());
}

TEST_P(Files, APipeTakesTheOutput) {
  ASSERT_EQ(0, mkfifo(path("tubo").c_str(), 0600));
  std::string taken;
  std::thread reader([&] { taken = readFile(path("tubo")); });
  const FaultedRun result = runWith(kOutput, path("tubo"));
  reader.join();
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_TRUE(taken == place_.expectedOutput());
}

TEST_P(Files, APipeWaitsForItsReader) {
  ASSERT_EQ(0, mkfifo(path("tubo").c_str(), 0600));
  RunOptions impatient;
  impatient.patienceMs = 1000;
  for (const Argument argument : {kOutput, kMarker}) {
    place_.reset();
    EXPECT_TRUE(runWith(argument, path("tubo"), impatient).timedOut);
    EXPECT_EQ(argument == kMarker, place_.outputIsComplete());
    EXPECT_FALSE(place_.hasMarker());
  }
  int marker = -1;
  std::thread reader([&] { marker = open(path("tubo").c_str(), O_RDONLY | O_CLOEXEC); });
  const FaultedRun result = runWith(kMarker, path("tubo"));
  reader.join();
  close(marker);
  EXPECT_EQ(0, result.status) << result.err;
}

TEST_P(Files, APipeWhoseReaderGoesIsAWriteError) {
  ASSERT_EQ(0, mkfifo(path("tubo").c_str(), 0600));
  const int readEnd = open(path("tubo").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  const int holds = fcntl(readEnd, F_SETPIPE_SZ, 1);
  ASSERT_LT(static_cast<std::size_t>(holds), place_.expectedOutput().size());
  std::thread reader([readEnd] {
    pollfd written = {readEnd, POLLIN, 0};
    poll(&written, 1, -1);
    close(readEnd);
  });
  const FaultedRun result = runWith(kOutput, path("tubo"));
  reader.join();
  expectMessage(error("Error al escribir fichero: " + path("tubo")), result);
}

INSTANTIATE_TEST_SUITE_P(Of, Files, testing::ValuesIn(kPrograms), programName);
INSTANTIATE_TEST_SUITE_P(Of, FilesOfTheConsole, testing::Values(kConsole), programName);
