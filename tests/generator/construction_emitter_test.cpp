#include "generator/construction_emitter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "generator/generator_context.h"
#include "generator/generator_fixture.h"
#include "generator/orientation.h"

namespace {

using testing::ElementsAre;
using Lines = std::vector<std::string>;

/// The output for a template that begins with a surface command.
Lines surfaceOutput(const Lines& lines, int orientationClass, int kind) {
  GeneratorRun run(lines);
  run.context().copyUntilCommand("EXTERIOR-WALL");
  emitConstruction(run.context(), orientationClass, "\"Otro\"", kind);
  run.context().copyRest();
  return run.finish();
}

/// The construction that a surface gets.
std::string constructionOf(int orientationClass, int kind) {
  return surfaceOutput({"\"M\" = EXTERIOR-WALL", ".."}, orientationClass, kind).at(1);
}

// The names that the prepared typology gives.
constexpr auto kMurosFachada = "  CONSTRUCTION = \"M1\" ";
constexpr auto kParticionVertical = "  CONSTRUCTION = \"PV\" ";
constexpr auto kMedianera = "  CONSTRUCTION = \"ME\" ";
constexpr auto kSuelos = "  CONSTRUCTION = \"SU\" ";
constexpr auto kParticionHorizontal = "  CONSTRUCTION = \"PH\" ";
constexpr auto kCubiertas = "  CONSTRUCTION = \"CU\" ";

}  // namespace

TEST(EmitConstruction, ChoosesByKindAndOrientation) {
  const struct {
    const char* why;
    int kind;
    const char* down;  // class -2
    const char* up;    // class -1
    const char* wall;  // class 0 and above
  } cases[] = {
      {"horizontal partition", -5, kParticionHorizontal, kParticionHorizontal,
       kParticionHorizontal},
      {"vertical partition", -4, kParticionVertical, kParticionVertical, kParticionVertical},
      {"kind -3 goes by its orientation", -3, kSuelos, kCubiertas, kMurosFachada},
      {"party wall, or a partition that faces up", -2, kMedianera, kParticionHorizontal,
       kMedianera},
      {"roof", -1, kCubiertas, kCubiertas, kCubiertas},
      {"kind 0 goes by its orientation", 0, kSuelos, kCubiertas, kMurosFachada},
      {"so does any other", -6, kSuelos, kCubiertas, kMurosFachada},
      {"however low", -1000, kSuelos, kCubiertas, kMurosFachada},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.down, constructionOf(-2, c.kind));
    EXPECT_EQ(c.up, constructionOf(-1, c.kind));
    for (int wall = 0; wall <= 7; ++wall) EXPECT_EQ(c.wall, constructionOf(wall, c.kind)) << wall;
  }
}

TEST(EmitConstruction, PartyWallGoesByItsTilt) {
  EXPECT_EQ(kParticionHorizontal, constructionOf(classifyOrientation(0, 0), -2));
  EXPECT_EQ(kMedianera, constructionOf(classifyOrientation(0, 90), -2));
}

TEST(EmitConstruction, VerticalWallOfKind0IsAFacadeWhateverItsAzimuth) {
  for (int azimuth = -360; azimuth <= 360; azimuth += 15) {
    SCOPED_TRACE(azimuth);
    const int orientation = classifyOrientation(static_cast<float>(azimuth), 90);
    EXPECT_EQ(kMurosFachada, constructionOf(orientation, 0));
  }
}

TEST(EmitConstruction, ReplacesTheTemplatesLineRightBehindTheHeader) {
  EXPECT_THAT(surfaceOutput({"\"M\" = EXTERIOR-WALL", "  LOCATION = SPACE-V1",
                             "  CONSTRUCTION = \"Vieja\"", "  AZIMUTH = 0", "  ..", "resto"},
                            4, 0),
              ElementsAre("\"M\" = EXTERIOR-WALL", kMurosFachada, "  LOCATION = SPACE-V1",
                          "  AZIMUTH = 0", "..", "resto"));
}

TEST(EmitConstruction, DropsEveryConstructionLine) {
  EXPECT_THAT(surfaceOutput({"\"M\" = EXTERIOR-WALL", "CONSTRUCTION = \"A\"",
                             "CONSTRUCTION = \"B\"", "TIPO = CONSTRUCTION", ".."},
                            4, 0),
              ElementsAre("\"M\" = EXTERIOR-WALL", kMurosFachada, ".."));
}

TEST(EmitConstruction, AddsTheLineWhereTheTemplateHasNone) {
  EXPECT_THAT(surfaceOutput({"\"M\" = EXTERIOR-WALL", ".."}, 4, 0),
              ElementsAre("\"M\" = EXTERIOR-WALL", kMurosFachada, ".."));
}

TEST(EmitConstruction, EndsWithTheTemplateAndClosesTheCommand) {
  EXPECT_THAT(surfaceOutput({"\"M\" = EXTERIOR-WALL", "AZIMUTH = 0"}, 4, 0),
              ElementsAre("\"M\" = EXTERIOR-WALL", kMurosFachada, "AZIMUTH = 0", ".."));
}

TEST(EmitConstruction, WritesAnEmptyNameAsItIs) {
  GeneratorRun run({"\"M\" = EXTERIOR-WALL", ".."});
  run.typology().murosFachada.clear();
  run.context().copyUntilCommand("EXTERIOR-WALL");
  emitConstruction(run.context(), 4, "\"M\"", 0);
  EXPECT_THAT(run.finish(), ElementsAre("\"M\" = EXTERIOR-WALL", "  CONSTRUCTION =  ", ".."));
}
