#include "generator/template.h"

#include <gtest/gtest.h>

#include "generator/generation_sequence.h"
#include "generator/generator_fixture.h"
#include "support/recording_application.h"

// A template and its table, interpreted once.

namespace {

constexpr std::size_t kNorte = 0;
constexpr std::size_t kEste = 2;
constexpr std::size_t kSur = 4;

/// Surfaces of the kinds that are summed, and of some that are not.
const std::string kTable =
    "Tabla\nde superficies\n10 2\n"
    "Muro norte\n10 0 0.5 0 0 0 90 0\n"
    "Otro muro norte\n15 0 0 0 0 315 90 0\n"
    "Muro sur\n20 0 1 0 0 180 90 0\n"
    "Ventana sur\n4 0 3 0 0 180 90 1\n"
    "Ventana este\n2 0 0 0 0 90 90 1\n"
    "Clase 2\n100 0 0 0 0 180 90 2\n"
    "Clase -2, también en el suelo\n200 0 0 0 0 180 180 -2\n"
    "Cubierta\n400 0 0 0 0 180 0 0\n"
    "Clase -1\n800 0 0 0 0 180 90 -1\n"
    "Ventana de suelo\n1600 0 0 0 0 180 180 1\n"
    "Z1\n1 1 30 2\n"
    "Z2\n2 0 50 9\n";

struct WithTable : Template {
  explicit WithTable(std::string_view table)
      : Template(SourceText("casa.bdl", ""), SourceText("casa.tbl", table)) {}
};

/// The whole output of a typology.
std::string generated(const Template& plantilla, std::string_view typologyText) {
  const TypologyRecord typology(SourceText("casa.tip", typologyText));
  OutputLines output;
  RecordingBar bar;
  generate(plantilla, typology, output, bar);
  return output.text();
}

std::string replaced(std::string text, std::string_view what, std::string_view by) {
  return text.replace(text.find(what), what.size(), by);
}

}  // namespace

TEST(Template, BaseNameIsThePathWithoutFolderAndExtension) {
  const struct {
    const char* why;
    const char* path;
    const char* baseName;
  } cases[] = {
      {"an extension", "casa.bdl", "casa"},
      {"cut at the last point", "casa.v2.bdl", "casa.v2"},
      {"no point: kept whole", "casa", "casa"},
      {"a folder", "/datos/plantillas/casa.bdl", "casa"},
      {"a folder of the other kind", "plantillas\\casa.bdl", "casa"},
      {"a point in the folder's name", "plantillas.v2/casa", "casa"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const Template plantilla(SourceText(c.path, ""), SourceText("t.tbl", kEmptyTable));
    EXPECT_EQ(c.baseName, plantilla.templateBaseName());
  }
}

TEST(Template, KeepsTheBuildingsTextAsItIs) {
  const Template plantilla(SourceText("casa.bdl", "a\r\n\tb  c"), SourceText("", kEmptyTable));
  EXPECT_EQ("casa.bdl", plantilla.building().name());
  EXPECT_EQ("a\r\n\tb  c", plantilla.building().bytes());
}

TEST(Template, CommandNamesAreTheTablesAndBehindThemSpaceAndFloor) {
  const WithTable plantilla(tableOf({" \"M1\" ", "1 1 1 1 1 1 1 0", "\"M2\"", "1 1 1 1 1 1 1 0"}));
  const struct {
    const char* line;
    int index;
  } cases[] = {{"\"M1\" = ROOF", 0}, {"\"M2\" = ROOF", 1},  {"\"E\" = SPACE", 2},
               {"\"P\" = FLOOR", 3}, {"\"M3\" = ROOF", -1}, {"\"P\" = FLOORS", -1}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    EXPECT_EQ(c.index, plantilla.commandNames().matchKey(splitAssignment(c.line)));
  }
  EXPECT_EQ(2, plantilla.spaceEntry());
  EXPECT_EQ(3, plantilla.floorEntry());
}

TEST(Template, FaultOfTheTableEndsTheRun) {
  EXPECT_EQ("Error en el fichero casa.tbl: el fichero tiene menos líneas de las anunciadas",
            stopMessage([] { WithTable(""); }));
}

TEST(Template, SumsWallsOfKind0ByOrientation) {
  std::array<float, 8> expected{};
  expected[kNorte] = 25;
  expected[kSur] = 20;
  EXPECT_EQ(expected, WithTable(kTable).sums().wallAreaByOrientation);
}

TEST(Template, SumsWindowsOfKind1ByOrientation) {
  std::array<float, 8> expected{};
  expected[kSur] = 4;
  expected[kEste] = 2;
  EXPECT_EQ(expected, WithTable(kTable).sums().windowAreaByOrientation);
}

TEST(Template, SumsKinds2AndMinus2Apart) {
  const WithTable plantilla(kTable);
  EXPECT_EQ(100, plantilla.sums().kind2Area);
  EXPECT_EQ(200, plantilla.sums().kindMinus2Area);
}

TEST(Template, MeanSurfaceValueIsPerSquareMetreOfFlaggedZones) {
  EXPECT_EQ((10 * 0.5F + 20 * 1 + 4 * 3) / 30, WithTable(kTable).sums().meanSurfaceValue);
}

TEST(Template, MeanSurfaceValueIsZeroWithoutFlaggedArea) {
  EXPECT_EQ(0, WithTable(tableOf({"Muro", "10 0 0.5 0 0 0 90 0"})).sums().meanSurfaceValue);
}

TEST(Template, EachSumsItsOwnTable) {
  const WithTable first(kTable);
  const WithTable other(tableOf({"Muro", "10 0 0.5 0 0 0 90 0"}));
  const WithTable again(kTable);
  EXPECT_EQ(first.sums().kind2Area, again.sums().kind2Area);
  EXPECT_EQ(first.sums().wallAreaByOrientation, again.sums().wallAreaByOrientation);
  EXPECT_EQ(first.sums().windowAreaByOrientation, again.sums().windowAreaByOrientation);
  EXPECT_EQ(first.sums().meanSurfaceValue, again.sums().meanSurfaceValue);
  EXPECT_EQ(10, other.sums().wallAreaByOrientation[kNorte]);
}

TEST(Template, SharedByRunsOneAfterTheOtherGivesTheSameBytes) {
  const auto minimal = [] {
    return Template(SourceText("casa.bdl", MinimalBuilding::kTemplate),
                    SourceText("casa.tbl", MinimalBuilding::kTable));
  };
  const std::string typology(MinimalBuilding::kTypology);
  const std::string wide = replaced(typology, "LONGITUD-FACHADA = 10", "LONGITUD-FACHADA = 20");
  const std::string tooSmall = replaced(typology, "AREA-PLANTA = 100", "AREA-PLANTA = 1");

  const std::string expected = generated(minimal(), typology);
  const std::string expectedWide = generated(minimal(), wide);
  ASSERT_NE(expected, expectedWide);
  const Template shared = minimal();
  EXPECT_EQ(expected, generated(shared, typology));
  EXPECT_EQ(expectedWide, generated(shared, wide));
  EXPECT_EQ("Área de planta no válida. Debe ser >30 y <1000",
            stopMessage([&] { generated(shared, tooSmall); }));
  EXPECT_EQ(expected, generated(shared, typology));
}
