#include <gtest/gtest.h>

#include <string>

#include "typology/typology_file.h"

namespace {

using R = TypologyRecord;

constexpr const char* kFrame = "\"PVC\" = NAME-FRAME\nFRAME-ABS = 0.3\n..\n";
constexpr const char* kShade = "\"Voladizo\" = VENTANA-SOMBRA\nOVERHANG-A = 0.1\n..\n";
constexpr const char* kPosition = "\"Valle\" = SOLAR-POSITION\nLATITUDE = 40.4\n..\n";

R recordBehind(const std::string& text) { return TypologyFile().behind(text).record(); }
R recordBefore(const std::string& text) { return TypologyFile().before("\n" + text).record(); }

}  // namespace

TEST(TypologyTexts, TheWholeFileIsKeptByteForByte) {
  for (const char* lineEnd : {"\n", "\r\n"}) {
    const TypologyFile file = TypologyFile()
                                  .lineEnd(lineEnd)
                                  .before(
                                      "\n$ Peque\xF1"
                                      "a  \t casa\n")
                                  .behind("sin final de l\xEDnea");
    EXPECT_EQ(file.text(), file.record().textoTipologia());
  }
}

TEST(TypologyTexts, FrameShadeAndPositionMayBeMissing) {
  const R record = TypologyFile().record();
  EXPECT_EQ("\"PVC\"", record.ventanaMarco);
  EXPECT_EQ("", record.textoMarco);
  EXPECT_EQ("\"Voladizo\"", record.ventanaSombra);
  EXPECT_EQ("", record.textoSombra);
  EXPECT_EQ("", record.textoPosicionSolar);
}

TEST(TypologyTexts, TheFrameIsTheCommandThatTheHouseNames) {
  EXPECT_EQ("\"PVC\" = NAME-FRAME   FRAME-ABS = 0.3   ", recordBehind(kFrame).textoMarco);
  EXPECT_EQ("\"PVC\" = NAME-FRAME   FRAME-ABS = 0.3   ", recordBefore(kFrame).textoMarco);
}

TEST(TypologyTexts, TheShadeIsTheCommandThatTheHouseNames) {
  EXPECT_EQ("\"Voladizo\" = VENTANA-SOMBRA   OVERHANG-A = 0.1   ",
            recordBehind(kShade).textoSombra);
  EXPECT_EQ("\"Voladizo\" = VENTANA-SOMBRA   OVERHANG-A = 0.1   ",
            recordBefore(kShade).textoSombra);
}

TEST(TypologyTexts, ThePositionIsTheFirstBlockOfItsWord) {
  EXPECT_EQ("SOLAR-POSITION   LATITUDE = 40.4   ", recordBehind(kPosition).textoPosicionSolar);
  EXPECT_EQ("SOLAR-POSITION   LATITUDE = 40.4   ",
            recordBehind(kPosition + std::string("\"Otra\" = SOLAR-POSITION\nLATITUDE = 28\n..\n"))
                .textoPosicionSolar);
}

TEST(TypologyTexts, AFrameOrShadeOfAnotherNameIsNotTaken) {
  const R record =
      recordBehind("\"Madera\" = NAME-FRAME\nA = 1\n..\n\"Toldo\" = VENTANA-SOMBRA\nA = 1\n..\n");
  EXPECT_EQ("", record.textoMarco);
  EXPECT_EQ("", record.textoSombra);
}

TEST(TypologyTexts, WithoutANameNoFrameOrShadeIsTaken) {
  const R record = TypologyFile()
                       .without("VENTANA-MARCO")
                       .without("VENTANA-SOMBRA")
                       .behind("\"PVC\" = NAME-FRAME\nA = 1\n..\n")
                       .record();
  EXPECT_EQ("", record.textoMarco);
  EXPECT_EQ("", record.textoSombra);
}

TEST(TypologyTexts, WithoutANameNoFrameOrShadeIsLookedUp) {
  EXPECT_EQ(kNotStopped, TypologyFile()
                             .without("VENTANA-MARCO")
                             .without("VENTANA-SOMBRA")
                             .behind("\"A=1\" = NAME-FRAME B = 2 ..\n"
                                     "\"A=1\" = VENTANA-SOMBRA B = 2 ..\n")
                             .stop());
}

TEST(TypologyTexts, WithoutTheShadesNameTheWordOfTheShadeCommandIsNotTakenForOne) {
  EXPECT_EQ("", TypologyFile().without("VENTANA-SOMBRA").behind(kShade).record().ventanaSombra);
}

TEST(TypologyTexts, AFrameMayBeNamedByItsLongName) {
  EXPECT_EQ("\"M1\" = NAME-FRAME LONG-NAME = \"PVC\" A = 1 ",
            recordBehind("\"M1\" = NAME-FRAME LONG-NAME = \"PVC\" A = 1 ..").textoMarco);
}

TEST(TypologyTexts, ANameWithoutQuotesFindsItsFrameInsideTheQuotes) {
  EXPECT_EQ("PVC\" = NAME-FRAME   FRAME-ABS = 0.3   ",
            TypologyFile().with("VENTANA-MARCO", "PVC").behind(kFrame).record().textoMarco);
}

TEST(TypologyTexts, FrameAndShadeGetTheDefaultsOfTheirType) {
  const R record = recordBehind(
      "\"PVC\" = NAME-FRAME A = 1 ..\n\"Voladizo\" = VENTANA-SOMBRA B = 2 ..\n"
      "SET-DEFAULT FOR NAME-FRAME C = 3 ..\nSET-DEFAULT FOR VENTANA-SOMBRA D = 4 ..\n");
  EXPECT_EQ("\"PVC\" = NAME-FRAME A = 1 SET-DEFAULT FOR NAME-FRAME C = 3 ", record.textoMarco);
  EXPECT_EQ("\"Voladizo\" = VENTANA-SOMBRA B = 2 SET-DEFAULT FOR VENTANA-SOMBRA D = 4 ",
            record.textoSombra);
}

TEST(TypologyTexts, HouseAndPositionGetNoDefaults) {
  const R record = TypologyFile()
                       .without("AREA-PATIO")
                       .behind(std::string(kPosition) +
                               "SET-DEFAULT FOR VIVIENDA AREA-PATIO = 7 ..\n"
                               "SET-DEFAULT FOR SOLAR-POSITION ALTITUDE = 650 ..\n")
                       .record();
  EXPECT_EQ(0.0F, record.areaPatio);
  EXPECT_EQ("SOLAR-POSITION   LATITUDE = 40.4   ", record.textoPosicionSolar);
}

TEST(TypologyTexts, CarriageReturnsStayInTheTexts) {
  const R record = recordBehind(
      "\"PVC\" = NAME-FRAME\r\nA = 1\r\n..\r\n\"Voladizo\" = VENTANA-SOMBRA\r\nC = 3\r\n..\r\n"
      "\"V\" = SOLAR-POSITION\r\nB = 2\r\n..\r\n");
  EXPECT_EQ("\"PVC\" = NAME-FRAME \r    A = 1 \r    ", record.textoMarco);
  EXPECT_EQ("\"Voladizo\" = VENTANA-SOMBRA \r    C = 3 \r    ", record.textoSombra);
  EXPECT_EQ("SOLAR-POSITION \r    B = 2 \r    ", record.textoPosicionSolar);
}

TEST(TypologyTexts, AFrameThatItsLabelDoesNotFindEndsTheRun) {
  EXPECT_EQ("No se encuentra: \"A=1\"",
            TypologyFile().behind("\"A=1\" = NAME-FRAME B = 2 ..").stop());
  EXPECT_EQ("No se encuentra: \"M1\"",
            TypologyFile().before("\"M1\" = NAME-FRAME B = 2 ..\n").stop());
}

TEST(TypologyTexts, ATextWithoutClosingDotsEndsTheRun) {
  const struct {
    const char* text;
    const char* fault;
  } cases[] = {
      {"\"PVC\" = NAME-FRAME A = 1", "\"PVC\" = NAME-FRAME: falta el cierre \"..\""},
      {"\"Voladizo\" = VENTANA-SOMBRA A = 1",
       "\"Voladizo\" = VENTANA-SOMBRA: falta el cierre \"..\""},
      {"\"Valle\" = SOLAR-POSITION A = 1", "SOLAR-POSITION: falta el cierre \"..\""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(std::string("Error en el fichero casa.tip: ") + c.fault,
              TypologyFile().behind(c.text).stop());
  }
}

TEST(TypologyTexts, TheHouseIsCheckedBeforeTheTextsAreLookedUp) {
  EXPECT_EQ(
      "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD VENTANA-VIDRIO",
      TypologyFile().without("VENTANA-VIDRIO").behind("\"A=1\" = NAME-FRAME B = 2 ..").stop());
}

TEST(TypologyTexts, ThePositionHasLessThan10000BytesAndAFrameAnyNumber) {
  const std::string position = "SOLAR-POSITION" + std::string(9985, 'x');
  EXPECT_EQ(position, recordBehind(position + "..").textoPosicionSolar);
  EXPECT_EQ("Error en el fichero casa.tip: SOLAR-POSITION: el bloque es demasiado largo",
            TypologyFile().behind(position + "x..").stop());
  const std::string frame = "\"PVC\" = NAME-FRAME " + std::string(20000, 'x');
  EXPECT_EQ(frame, recordBehind(frame + "..").textoMarco);
}
