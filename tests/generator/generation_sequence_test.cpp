#include "generator/generation_sequence.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "generator/generator_fixture.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"
#include "typology/kinds_of_buildings.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using Lines = std::vector<std::string>;

/// A template with as many POLYGON commands as any plan has, and BUILD-PARAMETERS.
Lines plans() {
  Lines lines;
  for (int i = 0; i < 6; ++i) lines.insert(lines.end(), {"P = POLYGON", ".."});
  lines.insert(lines.end(), {"\"D\" = BUILD-PARAMETERS", "  AZIMUTH = 7", ".."});
  return lines;
}

Lines operator+(Lines lines, const Lines& more) {
  lines.insert(lines.end(), more.begin(), more.end());
  return lines;
}

const Lines kShades = {"\"Sombra001\" = BUILDING-SHADE", "  HEIGHT = 9", "..",
                       "\"Sombra002\" = BUILDING-SHADE", "  HEIGHT = 8", ".."};

/// The block of typologies 15, 18 and 21: L = 12, D = 24, Pp = 12.
void setBlock(TypologyRecord& typology, int tipo) {
  typology.tipo = tipo;
  typology.areaPlanta = 240;
  typology.areaPatio = 48;
  typology.areaEscalera = 32;
  typology.longitudFachada = 12;
  typology.profundidadPatio = 12;
  typology.profundidadEscalera = 8;
}

/// Numbers that every family accepts.
void setAnyFamily(TypologyRecord& typology, int tipo) {
  typology.tipo = tipo;
  typology.areaPlanta = 632;
  typology.areaPatio = 48;
  typology.areaEscalera = 200;
  typology.longitudFachada = 44;
  typology.profundidadPatio = 2.5F;
  typology.profundidadEscalera = 10;
}

/// The output behind the header's six lines and before the first POLYGON.
Lines shadesOf(Lines output) {
  const auto end = std::find(output.begin(), output.end(), "P = POLYGON");
  return Lines(output.begin() + 6, end);
}

std::string generated(GeneratorRun& run) {
  RecordingBar bar;
  return stopMessage([&] { run.generate(bar); });
}

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

}  // namespace

TEST(Generate, BeginsWithACommentAndThreeEmptyLines) {
  GeneratorRun run(plans());
  EXPECT_EQ(kNotStopped, generated(run));
  const Lines output = run.finish();
  EXPECT_EQ("$\t*********************************************************", output.at(0));
  EXPECT_EQ(59U, output.at(0).size());
  EXPECT_EQ(toCp1252("$ Edificio Generado en función de la Tipología a la que pertenezca"),
            output.at(1));
  EXPECT_EQ(output.at(0), output.at(2));
  EXPECT_EQ("", output.at(3));
  EXPECT_EQ("", output.at(4));
  EXPECT_EQ("", output.at(5));
  EXPECT_EQ("P = POLYGON", output.at(6));
}

TEST(Generate, ShadesStandOnTheTwoSidesOfTheCourtyard) {
  // The plan of these numbers is too small for its family; the shades come before that check.
  GeneratorRun run(kShades + plans());
  setBlock(run.typology(), 21);
  run.typology().areaPlanta = 100;
  run.typology().areaPatio = 20;
  run.typology().longitudFachada = 10;
  run.typology().profundidadPatio = 4;
  EXPECT_EQ("Área de planta no válida. Debe ser >124 y <4000", generated(run));
  EXPECT_THAT(
      shadesOf(run.finish()),
      ElementsAre("\"Sombra001\" = BUILDING-SHADE", "  X = 10.000000 ", "  Y = 4.000000 ",
                  "  WIDTH = 4.000000 ", "  HEIGHT = 9", "..", "\"Sombra002\" = BUILDING-SHADE",
                  "  Y = 8.000000 ", "  WIDTH = 4.000000 "));
}

TEST(Generate, Tipo15HasTheFirstShadeAndDropsTheSecondsHeader) {
  GeneratorRun run(kShades + plans());
  setBlock(run.typology(), 15);
  EXPECT_EQ(kNotStopped, generated(run));
  EXPECT_THAT(shadesOf(run.finish()),
              ElementsAre("\"Sombra001\" = BUILDING-SHADE", "  X = 12.000000 ", "  Y = 6.000000 ",
                          "  WIDTH = 12.000000 ", "  HEIGHT = 9", "..", "  HEIGHT = 8", ".."));
}

TEST(Generate, Tipo18DropsTheFirstsHeaderAndHasTheSecondShade) {
  GeneratorRun run(kShades + plans());
  setBlock(run.typology(), 18);
  EXPECT_EQ(kNotStopped, generated(run));
  EXPECT_THAT(shadesOf(run.finish()),
              ElementsAre("  HEIGHT = 9", "..", "\"Sombra002\" = BUILDING-SHADE",
                          "  Y = 18.000000 ", "  WIDTH = 12.000000 ", "  HEIGHT = 8", ".."));
}

TEST(Generate, Tipo21HasBothShades) {
  GeneratorRun run(kShades + plans());
  setBlock(run.typology(), 21);
  EXPECT_EQ(kNotStopped, generated(run));
  EXPECT_THAT(
      shadesOf(run.finish()),
      ElementsAre("\"Sombra001\" = BUILDING-SHADE", "  X = 12.000000 ", "  Y = 6.000000 ",
                  "  WIDTH = 12.000000 ", "  HEIGHT = 9", "..", "\"Sombra002\" = BUILDING-SHADE",
                  "  Y = 18.000000 ", "  WIDTH = 12.000000 ", "  HEIGHT = 8", ".."));
}

TEST(Generate, ShadesOfOtherNamesAreDropped) {
  GeneratorRun run({"\"Sombra002\" = BUILDING-SHADE", "\"Sombra001\" = BUILDING-SHADE"});
  setBlock(run.typology(), 21);
  generated(run);
  EXPECT_THAT(shadesOf(run.finish()), ElementsAre());
}

TEST(Generate, ShadeIsKnownByItsNameAnywhereInTheHeader) {
  GeneratorRun run(Lines{"\"La Sombra001 del patio\" = BUILDING-SHADE", kShades[3]} + plans());
  setBlock(run.typology(), 15);
  EXPECT_EQ(kNotStopped, generated(run));
  EXPECT_EQ("\"La Sombra001 del patio\" = BUILDING-SHADE", run.finish().at(6));
}

TEST(Generate, ShadePlaceIsRoundedToA32BitReal) {
  // (131 + 20) / 13 - 2.5, halved, is 4.5576923; the nearest 32-bit real prints as 4.557693.
  GeneratorRun run(kShades);
  setBlock(run.typology(), 15);
  run.typology().areaPlanta = 131;
  run.typology().areaPatio = 20;
  run.typology().longitudFachada = 13;
  run.typology().profundidadPatio = 2.5F;
  generated(run);
  EXPECT_EQ("  Y = 4.557693 ", run.finish().at(8));
}

TEST(Generate, ShadesTakeTheDepthOfTheBlockUnrounded) {
  // 240 / 19, less and plus 5, halved. From the depth as a 32-bit real, which the plan has, they
  // would be 3.815790 and 8.815790.
  GeneratorRun run(kShades);
  setBlock(run.typology(), 21);
  run.typology().areaPlanta = 200;
  run.typology().areaPatio = 40;
  run.typology().longitudFachada = 19;
  run.typology().profundidadPatio = 5;
  generated(run);
  const Lines output = run.finish();
  EXPECT_EQ("  Y = 3.815789 ", output.at(8));
  EXPECT_EQ("  Y = 8.815789 ", output.at(13));
}

TEST(Generate, OtherTypologiesNeverLookForShades) {
  for (const int tipo : numbersWhere(
           [](const TipoRow& row) { return row.shades == CourtyardShades::kNotLookedFor; })) {
    SCOPED_TRACE(tipo);
    GeneratorRun run(kShades + plans());
    setAnyFamily(run.typology(), tipo);
    EXPECT_EQ(kNotStopped, generated(run));
    EXPECT_EQ(kShades, shadesOf(run.finish()));
  }
}

TEST(Generate, MissingShadesEndTheRun) {
  const struct {
    const char* why;
    Lines shades;
  } cases[] = {
      {"none", {}},
      {"one only", {kShades[0]}},
      {"a word that contains the type", {"A = BUILDING-SHADES", "B = BUILDING-SHADES"}},
  };
  for (const auto& c : cases) {
    for (const int tipo : numbersWhere(
             [](const TipoRow& row) { return row.shades != CourtyardShades::kNotLookedFor; })) {
      SCOPED_TRACE(c.why);
      GeneratorRun run(c.shades + plans());
      setBlock(run.typology(), tipo);
      EXPECT_EQ("Error al generar el edificio. No se ha encontrado la clave: BUILDING-SHADE",
                generated(run));
    }
  }
}

TEST(Generate, BuildingParametersFollowTheirHeader) {
  GeneratorRun run(plans());
  run.typology().orientacion = 22.5F;
  run.typology().textoPosicionSolar = "\"S\" = SOLAR-POSITION LATITUDE = 28 ..";
  EXPECT_EQ(kNotStopped, generated(run));
  Lines output = run.finish();
  output.erase(output.begin(), std::find(output.begin(), output.end(), "\"D\" = BUILD-PARAMETERS"));
  output.resize(6);
  EXPECT_THAT(output,
              ElementsAre("\"D\" = BUILD-PARAMETERS", "  AZIMUTH = 22.500000 ", "  TIPOLOGIA = 1 ",
                          "\"S\" = SOLAR-POSITION LATITUDE = 28 ..", "  AZIMUTH = 7", ".."));
}

TEST(Generate, WithoutASolarPositionItsLineIsEmpty) {
  GeneratorRun run(plans());
  EXPECT_EQ(kNotStopped, generated(run));
  const Lines output = run.finish();
  const auto header = std::find(output.begin(), output.end(), "\"D\" = BUILD-PARAMETERS");
  ASSERT_GT(output.end() - header, 4);
  EXPECT_EQ("", header[3]);
  EXPECT_EQ("  AZIMUTH = 7", header[4]);
}

TEST(Generate, AzimuthOfNegativeZeroKeepsItsSign) {
  GeneratorRun run(plans());
  run.typology().orientacion = -0.0F;
  EXPECT_EQ(kNotStopped, generated(run));
  EXPECT_THAT(run.finish(), Contains("  AZIMUTH = -0.000000 "));
}

TEST(Generate, MissingBuildingParametersEndTheRun) {
  GeneratorRun run({"P = POLYGON", "..", "BUILD-PARAMETERS", ".."});
  EXPECT_EQ("Error al generar el edificio. No se ha encontrado la clave: BUILD-PARAMETERS",
            generated(run));
}

TEST(Generate, MissingPolygonEndsTheRun) {
  GeneratorRun run({"\"D\" = BUILD-PARAMETERS", ".."});
  EXPECT_EQ("Error al generar el edificio. No se ha encontrado la clave: POLYGON", generated(run));
}

TEST(Generate, TypologyTextIsTheLastLine) {
  GeneratorRun run(plans() + Lines{"END .."}, kEmptyTable,
                   std::string(MinimalBuilding::kTypology) + "primera\r\nsegunda");
  EXPECT_EQ(kNotStopped, generated(run));
  const Lines output = run.finish();
  EXPECT_THAT(Lines(output.end() - 3, output.end()), ElementsAre("..", "primera\r", "segunda"));
}

TEST(Generate, TypologyTextIsTheWholeFile) {
  GeneratorRun run(plans());
  EXPECT_EQ(kNotStopped, generated(run));
  // The text ends in a line end, and the last line of the output has its own.
  const Lines typology = linesOf(std::string(MinimalBuilding::kTypology) + "\n");
  Lines output = run.finish();
  ASSERT_GT(output.size(), typology.size());
  output.erase(output.begin(), output.end() - static_cast<std::ptrdiff_t>(typology.size()));
  EXPECT_EQ(typology, output);
}

TEST(Generate, LastLineOfATemplateThatEndsInALineEndComesTwice) {
  GeneratorRun run(plans() + Lines{"END ..", ""});
  EXPECT_EQ(kNotStopped, generated(run));
  const Lines output = run.finishWithoutTypology();
  EXPECT_THAT(Lines(output.end() - 3, output.end()), ElementsAre("..", "END ..", "END .."));
}

TEST(Generate, LinesBeyond100000AreLostAndTheRunIsNotStopped) {
  GeneratorRun run(plans() + Lines(100001, "x"));
  EXPECT_EQ(kNotStopped, generated(run));
  EXPECT_EQ(100000U, run.finish().size());
}

TEST(Generate, RealThatIsNotFiniteEndsTheRun) {
  const struct {
    const char* why;
    float TypologyRecord::*field;
    float value;
    const char* where;
  } cases[] = {
      {"azimuth", &TypologyRecord::orientacion, kNaN,
       "AZIMUTH en la salida no es un número finito: nan"},
      {"infinite azimuth", &TypologyRecord::orientacion, -std::numeric_limits<float>::infinity(),
       "AZIMUTH en la salida no es un número finito: -inf"},
      {"storey height", &TypologyRecord::alturaPlanta, std::numeric_limits<float>::infinity(),
       "HEIGHT en la salida no es un número finito: inf"},
      {"air changes", &TypologyRecord::airChangesHr, kNaN,
       "AIR-CHANGES/HR en la salida no es un número finito: nan"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    GeneratorRun run(plans() + Lines{"E = SPACE", "HEIGHT = 1", "AIR-CHANGES/HR = 1", ".."});
    run.typology().*c.field = c.value;
    EXPECT_EQ(std::string("Error en el fichero casa.tip: el valor de ") + c.where, generated(run));
  }
}

TEST(Generate, RealThatIsNotFiniteAndIsNotWrittenIsNoFault) {
  GeneratorRun run(plans());
  run.typology().alturaPlanta = kNaN;
  run.typology().airChangesHr = kNaN;
  EXPECT_EQ(kNotStopped, generated(run));
}

TEST(Generate, ChecksOnThePlanSpeakBeforeARealThatIsNotFinite) {
  GeneratorRun run(kShades + plans());
  setBlock(run.typology(), 15);
  run.typology().areaPatio = kNaN;
  EXPECT_EQ("Área de patio no válida. Debe ser >4 y < area de planta - 120", generated(run));
}

TEST(Generate, MissingCommandSpeaksBeforeARealThatIsNotFinite) {
  GeneratorRun run({"P = POLYGON", ".."});
  run.typology().orientacion = kNaN;
  EXPECT_EQ("Error al generar el edificio. No se ha encontrado la clave: BUILD-PARAMETERS",
            generated(run));
}

TEST(Generate, WritesTheClassOfItsTypology) {
  const struct {
    int tipo;
    const char* line;
  } cases[] = {{0, "  TIPOLOGIA = 2 "},  {1, "  TIPOLOGIA = 1 "},  {3, "  TIPOLOGIA = 2 "},
               {9, "  TIPOLOGIA = 4 "},  {12, "  TIPOLOGIA = 5 "}, {14, "  TIPOLOGIA = 6 "},
               {22, "  TIPOLOGIA = 7 "}, {23, "  TIPOLOGIA = 8 "}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.tipo);
    GeneratorRun run(plans());
    setAnyFamily(run.typology(), c.tipo);
    EXPECT_EQ(kNotStopped, generated(run));
    EXPECT_THAT(run.finish(), Contains(c.line));
  }
}
