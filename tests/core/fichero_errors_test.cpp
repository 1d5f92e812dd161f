#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "core/fichero.h"
#include "core/global2.h"
#include "core/report_error.h"
#include "support/new_files.h"
#include "support/recording_application.h"
#include "support/skip_for_lack_of.h"
#include "support/temporary_folder.h"

namespace {

/// With an Error.log that takes messages, as the run driver's own would after a change of its name
/// field.
class FicheroErrors : public testing::Test {
 protected:
  FicheroErrors() : log_(folder_ / "Error.log") {
    log_.tipoEdificio = "OBJETO";
    ErrorLog = &log_;
  }
  ~FicheroErrors() override { ErrorLog = nullptr; }

  std::string logged() {
    log_.cerrar();
    return folder_.read("Error.log");
  }

  TemporaryFolder folder_;
  Global2 log_;
};

std::string openedIn(const std::string& path, std::string_view mode) {
  return stopMessage([&] { const fichero file(path, mode); });
}

constexpr auto kWrongMode =
    "Error en el uso de la clase fichero. El tipo debe ser escritura o lectura";

}  // namespace

TEST_F(FicheroErrors, AFileThatCannotBeReadEndsTheRun) {
  const std::string path = folder_ / "no-existe.bdl";
  EXPECT_EQ("Error al abrir fichero de lectura: " + path, openedIn(path, "lectura"));
}

TEST_F(FicheroErrors, AFailedOpenForReadingLeavesTheLogUntouched) {
  openedIn(folder_ / "no-existe.bdl", "lectura");
  EXPECT_NE(nullptr, log_.log) << "still open";
  EXPECT_EQ("", logged());
}

TEST_F(FicheroErrors, AFileThatCannotBeCreatedEndsTheRun) {
  const std::string path = folder_ / "no-such-folder/salida.bdl";
  EXPECT_EQ("Error al abrir fichero de escritura: " + path, openedIn(path, "escritura"));
}

TEST_F(FicheroErrors, AFailedOpenForWritingGoesThroughTheReporterAndItsLog) {
  const std::string path = folder_ / "no-such-folder/salida.bdl";
  openedIn(path, "escritura");
  EXPECT_EQ(nullptr, log_.log) << "closed";
  EXPECT_EQ("Error al abrir fichero de escritura: " + path, logged());
}

TEST_F(FicheroErrors, AFolderIsNoFile) {
  EXPECT_EQ("Error al leer fichero: " + folder_.path(), openedIn(folder_.path(), "lectura"));
  EXPECT_EQ("Error al abrir fichero de escritura: " + folder_.path(),
            openedIn(folder_.path(), "escritura"));
}

TEST_F(FicheroErrors, AModeIsComparedAsAWholeAndCaseSensitively) {
  const std::string path = folder_.write("casa.bdl", "A\n");
  for (const char* mode :
       {"Lectura", "LECTURA", "Escritura", "lectur", "lecturas", "escritura ", "r", "w", ""}) {
    SCOPED_TRACE(mode);
    EXPECT_EQ(kWrongMode, openedIn(path, mode));
  }
  EXPECT_EQ("A\n", readFile(path));
}

TEST_F(FicheroErrors, AnUnknownModeIsMetBeforeAMissingFile) {
  EXPECT_EQ(kWrongMode, openedIn(folder_ / "no-existe.bdl", "Lectura"));
}

TEST_F(FicheroErrors, AnUnknownModeCreatesNoFile) {
  openedIn(folder_ / "salida.bdl", "Escritura");
  EXPECT_FALSE(folder_.has("salida.bdl"));
}

TEST_F(FicheroErrors, AFileForWritingIsNotRead) {
  fichero file(folder_ / "salida.bdl", "escritura");
  std::string_view line;
  EXPECT_EQ("El fichero debe ser de tipo lectura", stopMessage([&] { file.ReadLine(line); }));
  EXPECT_EQ("El fichero debe ser de tipo lectura", stopMessage([&] { file.takeText(); }));
}

TEST_F(FicheroErrors, AFileForReadingIsNotWritten) {
  fichero file(folder_.write("casa.bdl", "A\n"), "lectura");
  EXPECT_EQ("El fichero debe ser de tipo escritura", stopMessage([&] { file.WriteLine("B"); }));
  EXPECT_EQ("El fichero debe ser de tipo escritura", stopMessage([&] { file.lines(); }));
  EXPECT_EQ("El fichero debe ser de tipo escritura", stopMessage([&] { file.save(); }));
  EXPECT_EQ("A\n", folder_.read("casa.bdl"));
}

TEST_F(FicheroErrors, AWrongUseIsReportedAtTheEndOfTheLinesToo) {
  fichero file(folder_.write("casa.bdl", "A"), "lectura");
  std::string_view line;
  while (file.ReadLine(line)) {
  }
  EXPECT_EQ("El fichero debe ser de tipo escritura", stopMessage([&] { file.WriteLine("B"); }));
}

TEST_F(FicheroErrors, ANulByteIsReportedWithItsLine) {
  const struct {
    const char* why;
    std::string_view bytes;
    const char* line;
    const char* place;
  } cases[] = {
      {"the first byte", {"\0", 1}, "1", "1: []"},
      {"the first line", {"A\0B\nC", 5}, "1", "1: A[]"},
      {"the first byte of the second line", {"A\n\0", 3}, "2", "2: []"},
      {"the last byte, CR LF", {"A\r\nB\r\nC\0", 8}, "3", "3: C[]"},
      {"two: the first one counts", {"A\n\0\n\0", 5}, "2", "2: []"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const std::string path = folder_.write("casa.bdl", c.bytes);
    EXPECT_EQ("Error en el fichero " + path + ", línea " + c.line + ": contiene un carácter nulo",
              openedIn(path, "lectura"));
    EXPECT_EQ(path + ":" + c.place, stopPlace([&] { const fichero file(path, "lectura"); }));
  }
}

TEST_F(FicheroErrors, AFileThatCannotBeOpenedOrReadIsThePlaceAsAWhole) {
  const struct {
    const char* why;
    std::string path;
    const char* mode;
  } cases[] = {
      {"not there", folder_ / "no-existe.bdl", "lectura"},
      {"opened, but not read", folder_.path(), "lectura"},
      {"not to be created", folder_ / "no-such-folder/salida.bdl", "escritura"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.path, stopPlace([&] { const fichero file(c.path, c.mode); }));
  }
}

TEST_F(FicheroErrors, AWrongUseHasNoPlace) {
  EXPECT_EQ("(no place)", stopPlace([&] { const fichero file(folder_ / "x", "r"); }));
}

TEST_F(FicheroErrors, ANulByteIsFoundFarBehindTheStart) {
  const std::string lines(100000, '\n');
  for (const std::size_t at : {65535U, 65536U, 65537U, 99999U}) {
    std::string bytes = lines;
    bytes[at] = '\0';
    const std::string path = folder_.write("casa.bdl", bytes);
    EXPECT_EQ("Error en el fichero " + path + ", línea " + std::to_string(at + 1) +
                  ": contiene un carácter nulo",
              openedIn(path, "lectura"));
  }
}

TEST_F(FicheroErrors, AnEndlessDeviceIsNotReadForEver) {
  if (!std::filesystem::exists("/dev/zero")) SKIP_FOR_LACK_OF("/dev/zero");
  EXPECT_EQ("Error en el fichero /dev/zero, línea 1: contiene un carácter nulo",
            openedIn("/dev/zero", "lectura"));
}

TEST_F(FicheroErrors, APipeIsNotWaitedFor) {
  const std::string path = folder_ / "tuberia.bdl";
  if (!makePipe(path)) GTEST_SKIP() << "no pipes with names here";
  EXPECT_EQ("Error al abrir fichero de lectura: " + path, openedIn(path, "lectura"));
}

TEST_F(FicheroErrors, NamesAreShownAsUtf8OrWindows1252) {
  EXPECT_EQ("Error al abrir fichero de lectura: /no/Ñandú.bdl",
            openedIn("/no/Ñandú.bdl", "lectura"));
  EXPECT_EQ("Error al abrir fichero de lectura: /no/Ñandú.bdl", openedIn("/no/\xD1"
                                                                         "and\xFA.bdl",
                                                                         "lectura"));
}

TEST(FicheroEndOfProcess, EachErrorExitsWithCode3) {
  const TemporaryFolder folder;
  const std::string path = folder / "no/casa.bdl";
  const struct {
    const char* mode;
    std::string message;
  } cases[] = {
      {"lectura", "Error al abrir fichero de lectura: " + path},
      {"escritura", "Error al abrir fichero de escritura: " + path},
      {"Lectura", kWrongMode},
  };
  for (const auto& c : cases) {
    EXPECT_EXIT(
        {
          ExitingApplication exiting;
          const fichero file(path, c.mode);
        },
        testing::ExitedWithCode(3), "^Se ha producido un error: " + c.message + "\n$");
  }
}
