#include <gtest/gtest.h>

#include "generator/generation_sequence.h"
#include "generator/generator_fixture.h"
#include "support/recording_application.h"

// `prepare`: the typology, and the sums over the table's surfaces.

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

}  // namespace

TEST(Prepare, ReadsTheTypology) {
  GeneratorRun run({});
  EXPECT_EQ(1, run.typology().tipo);
  EXPECT_EQ(100, run.typology().areaPlanta);
  EXPECT_EQ("\"M1\"", run.typology().murosFachada);
}

TEST(Prepare, FaultOfTheTypologyEndsTheRun) {
  const TemporaryFolder folder;
  GeneratorContext context(folder.write("a.bdl", ""), folder.write("a.tbl", kEmptyTable),
                           folder / "salida");
  const std::string tip = folder.write("a.tip", "$ nada");
  EXPECT_EQ("En el fichero *.tip debe existir un COMMAND VIVIENDA",
            stopMessage([&] { prepare(context, tip); }));
}

TEST(Prepare, SumsWallsOfKind0ByOrientation) {
  GeneratorRun run({}, kTable);
  std::array<float, 8> expected{};
  expected[kNorte] = 25;
  expected[kSur] = 20;
  EXPECT_EQ(expected, run.context().wallAreaByOrientation);
}

TEST(Prepare, SumsWindowsOfKind1ByOrientation) {
  GeneratorRun run({}, kTable);
  std::array<float, 8> expected{};
  expected[kSur] = 4;
  expected[kEste] = 2;
  EXPECT_EQ(expected, run.context().windowAreaByOrientation);
}

TEST(Prepare, SumsKinds2AndMinus2Apart) {
  GeneratorRun run({}, kTable);
  EXPECT_EQ(100, run.context().kind2Area);
  EXPECT_EQ(200, run.context().kindMinus2Area);
}

TEST(Prepare, MeanSurfaceValueIsPerSquareMetreOfFlaggedZones) {
  GeneratorRun run({}, kTable);
  EXPECT_EQ((10 * 0.5F + 20 * 1 + 4 * 3) / 30, run.context().meanSurfaceValue);
}

TEST(Prepare, MeanSurfaceValueIsZeroWithoutFlaggedArea) {
  GeneratorRun run({}, tableOf({"Muro", "10 0 0.5 0 0 0 90 0"}));
  EXPECT_EQ(0, run.context().meanSurfaceValue);
}

TEST(Prepare, SumsAnew) {
  GeneratorRun run({}, kTable);
  prepare(run.context(), run.path("casa.tip"));
  EXPECT_EQ(100, run.context().kind2Area);
  EXPECT_EQ(25, run.context().wallAreaByOrientation[kNorte]);
  EXPECT_EQ(4, run.context().windowAreaByOrientation[kSur]);
  EXPECT_EQ((10 * 0.5F + 20 * 1 + 4 * 3) / 30, run.context().meanSurfaceValue);
}
