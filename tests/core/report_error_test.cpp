#include "core/report_error.h"

#include <gtest/gtest.h>

#include <string>

#include "core/cp1252.h"
#include "core/global2.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"

namespace {

std::size_t boxesShown() { return recordingApplication().boxes.size(); }

/// Asks what an error leaves in Error.log.
class ErrorLogOnDisk : public testing::Test {
 protected:
  [[noreturn]] void runThatFails(const std::string& tipoEdificio, std::string_view message) const {
    ExitingApplication exiting;
    Global2 log(folder_ / "Error.log");
    log.tipoEdificio = tipoEdificio;
    ReportError(&log, false, message);
    std::abort();
  }

  std::string logAfter(const std::string& tipoEdificio, std::string_view message) const {
    EXPECT_EXIT(runThatFails(tipoEdificio, message), testing::ExitedWithCode(3),
                "^Se ha producido un error: ");
    return folder_.read("Error.log");
  }

  TemporaryFolder folder_;
};

}  // namespace

TEST(ReportError, ATrueOutcomeHasNoVisibleEffect) {
  const TemporaryFolder folder;
  Global2 log(folder / "Error.log");
  log.tipoEdificio = "OBJETO";
  const std::size_t before = boxesShown();
  EXPECT_EQ(kNotStopped, stopMessage([&] { ReportError(&log, true, "No existe"); }));
  EXPECT_EQ(before, boxesShown());
  log.escribir("sigue abierto");
  log.cerrar();
  EXPECT_EQ("sigue abierto", folder.read("Error.log"));
}

TEST(ReportError, AFalseOutcomeShowsTheMessageUnderItsCaption) {
  EXPECT_EQ("No existe", stopMessage([] { ReportError(nullptr, false, "No existe"); }));
  EXPECT_EQ("Se ha producido un error", recordingApplication().boxes.back().caption);
}

TEST(ReportError, EndsTheProcessWithExitCode3) {
  EXPECT_EXIT(
      {
        ExitingApplication exiting;
        ReportError(nullptr, false, "No existe");
      },
      testing::ExitedWithCode(3), "^Se ha producido un error: No existe\n$");
}

TEST(ReportError, AnEmptyMessageIsShownAsAnEmptyBox) {
  EXPECT_EXIT(
      {
        ExitingApplication exiting;
        ReportError(nullptr, false, "");
      },
      testing::ExitedWithCode(3), "^Se ha producido un error: \n$");
}

TEST(ReportError, ShowsTheBytesOfTheMessageAsTheyCame) {
  EXPECT_EQ("Área", stopMessage([] { ReportError(nullptr, false, "Área"_cp1252); }));
  EXPECT_EQ("\xC1rea", recordingApplication().boxes.back().text);
}

TEST(ReportError, ShowsOneMessageThatMixesEncodings) {
  EXPECT_EQ("Falta el carácter de Ñandú.bdl", stopMessage([] {
              ReportError(nullptr, false,
                          "Falta el car\xE1"
                          "cter de Ñandú.bdl");
            }));
}

TEST(ReportError, ClosesTheLog) {
  const TemporaryFolder folder;
  Global2 log(folder / "Error.log");
  EXPECT_EQ("No existe", stopMessage([&] { ReportError(&log, false, "No existe"); }));
  EXPECT_EQ(nullptr, log.log);
}

TEST(ReportError, WorksWithoutALogThatCouldBeOpened) {
  const TemporaryFolder folder;
  Global2 log(folder / "no-such-folder/Error.log");
  log.tipoEdificio = "OBJETO";
  EXPECT_EQ("No existe", stopMessage([&] { ReportError(&log, false, "No existe"); }));
}

TEST(ReportFailure, HandsOnTheFaultWithItsPlace) {
  const Place place{.file = "casa.tip", .line = 5, .column = 1, .length = 1, .text = "A = 1"};
  const Fault fault = stopFault([&] { ReportFailure(nullptr, Fault{"No vale", place}); });
  EXPECT_EQ("No vale", fault.message);
  EXPECT_EQ("casa.tip:5: [A] = 1", marked(fault.place));
}

TEST(ReportFailure, AMessageAloneHasNoPlace) {
  EXPECT_EQ("(no place)", stopPlace([] { ReportFailure(nullptr, "No vale"); }));
  EXPECT_EQ("(no place)", stopPlace([] { ReportError(nullptr, false, "No vale"); }));
}

TEST(ReportFailure, IsTheSameEnd) {
  EXPECT_EXIT(
      {
        ExitingApplication exiting;
        ReportFailure(nullptr, "No existe");
      },
      testing::ExitedWithCode(3), "^Se ha producido un error: No existe\n$");
}

TEST_F(ErrorLogOnDisk, StaysEmptyWithTheNameFieldOfARun) {
  EXPECT_EQ("", logAfter("", "No existe"));
}

TEST_F(ErrorLogOnDisk, HoldsExactlyTheMessageForTheNameOBJETO) {
  EXPECT_EQ("No existe", logAfter("OBJETO", "No existe"));
}

TEST_F(ErrorLogOnDisk, HoldsWindows1252) {
  EXPECT_EQ(
      "Espa\xF1"
      "a",
      logAfter("OBJETO", "España"_cp1252));
}

TEST_F(ErrorLogOnDisk, HoldsNothingOfAnEmptyMessage) { EXPECT_EQ("", logAfter("OBJETO", "")); }

TEST_F(ErrorLogOnDisk, NamesAreComparedAsAWholeAndCaseSensitively) {
  for (const char* name : {"objeto", "Objeto", "OBJETO ", " OBJETO", "OBJET", "OBJETOS"}) {
    EXPECT_EQ("", logAfter(name, "No existe")) << name;
  }
}

TEST(ErrorInFile, NamesTheFileTheLineAndTheFault) {
  EXPECT_EQ("Error en el fichero casa.tbl, l\xEDnea 3: falta el valor",
            errorInFile("casa.tbl", 3, "falta el valor"));
}

TEST(ErrorInFile, Line0IsLeftOut) {
  EXPECT_EQ("Error en el fichero casa.tbl: falta el valor",
            errorInFile("casa.tbl", 0, "falta el valor"));
}

TEST(ErrorObject, IsOneObjectWithTheValue0) {
  EXPECT_EQ(0, ErrorObject::Instance().value);
  EXPECT_EQ(&ErrorObject::Instance(), &ErrorObject::Instance());
  ErrorObject::Release();
}

TEST(ErrorObject, IsFreshAfterARelease) {
  ErrorObject::Instance().value = 7;
  ErrorObject::Release();
  EXPECT_EQ(0, ErrorObject::Instance().value);
  ErrorObject::Release();
}

TEST(ErrorObject, ReleaseTwiceInARowIsHarmless) {
  ErrorObject::Release();
  ErrorObject::Release();
  EXPECT_EQ(0, ErrorObject::Instance().value);
  ErrorObject::Release();
}
