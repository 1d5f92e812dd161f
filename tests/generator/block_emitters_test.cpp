#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "generator/generator_context.h"
#include "generator/generator_fixture.h"
#include "generator/own_pieces.h"

// The FLOOR and SPACE commands.

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using Lines = std::vector<std::string>;

/// The output for a template that begins with a FLOOR command, in a building of `numeroPlantas`
/// storeys, 3 m each.
Lines floorOutput(const Lines& lines, int numeroPlantas, float alturaPlanta = 3) {
  GeneratorRun run(lines);
  run.typology().numeroPlantas = numeroPlantas;
  run.typology().alturaPlanta = alturaPlanta;
  run.context().copyUntilCommand("FLOOR");
  run.context().rewriteFloor();
  run.context().copyRest();
  return run.finish();
}

Lines spaceOutput(const Lines& lines) {
  GeneratorRun run(lines);
  run.typology().alturaPlanta = 2.8F;
  run.typology().airChangesHr = 0.75F;
  run.typology().numeroPlantas = 6;
  run.context().copyUntilCommand("SPACE");
  run.context().rewriteSpace();
  run.context().copyRest();
  return run.finish();
}

const Lines kMiddleFloor = {"\"P02\" = FLOOR",       "   FLOOR-HEIGHT = 2.8", "   Z = 3",
                            "   SPACE-HEIGHT = 2.5", "   MULTIPLIER = 3",     "   ..",
                            "\"P03\" = OTHER"};

}  // namespace

TEST(RewriteFloor, TakesStoreyHeightAndMiddleStoreysFromTheTypology) {
  EXPECT_THAT(
      floorOutput(kMiddleFloor, 6),
      ElementsAre("\"P02\" = FLOOR", "  FLOOR-HEIGHT = 3.000000 ", "   Z = 3",
                  "  SPACE-HEIGHT = 3.000000 ", "  MULTIPLIER = 4 ", "   ..", "\"P03\" = OTHER"));
}

TEST(RewriteFloor, OfThreeStoreysKeepsItsMultiplierLine) {
  EXPECT_THAT(
      floorOutput(kMiddleFloor, 3),
      ElementsAre("\"P02\" = FLOOR", "  FLOOR-HEIGHT = 3.000000 ", "   Z = 3",
                  "  SPACE-HEIGHT = 3.000000 ", "   MULTIPLIER = 3", "   ..", "\"P03\" = OTHER"));
}

// A check goes on with any number of storeys, behind the fault that it is one.
TEST(RewriteFloor, OfFewerStoreysThanNoneRepeatsNone) {
  TypologyRecord typology = defaultTypology();
  for (const int storeys : {0, -1, std::numeric_limits<int>::min()}) {
    SCOPED_TRACE(storeys);
    typology.numeroPlantas = storeys;
    EXPECT_LT(repeatedStoreys(typology), 1);
    EXPECT_THAT(floorOutput(kMiddleFloor, storeys), testing::Contains("   MULTIPLIER = 3"));
  }
}

TEST(RewriteFloor, WritesTheMultiplierOfARepeatedFloorOnly) {
  const struct {
    const char* why;
    const char* line;
    int numeroPlantas;
    const char* written;
  } cases[] = {
      {"the ground or top floor stands once", "   MULTIPLIER = 1", 6, "   MULTIPLIER = 1"},
      {"1 is compared as a text", "   MULTIPLIER = 1.0", 6, "  MULTIPLIER = 4 "},
      {"a tab is part of the value", "   MULTIPLIER = 1\t", 6, "  MULTIPLIER = 4 "},
      {"no value is not 1", "   MULTIPLIER", 6, "  MULTIPLIER = 4 "},
      {"four storeys have two in the middle", "   MULTIPLIER = 7", 4, "  MULTIPLIER = 2 "},
      {"three have one", "   MULTIPLIER = 7", 3, "   MULTIPLIER = 7"},
      {"two have none", "   MULTIPLIER = 7", 2, "   MULTIPLIER = 7"},
      {"one storey", "   MULTIPLIER = 7", 1, "   MULTIPLIER = 7"},
      {"many storeys", "   MULTIPLIER = 2", 102, "  MULTIPLIER = 100 "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_THAT(floorOutput({"\"P\" = FLOOR", c.line, "FLOOR-HEIGHT = 2", ".."}, c.numeroPlantas),
                ElementsAre("\"P\" = FLOOR", c.written, "  FLOOR-HEIGHT = 3.000000 ", ".."));
  }
}

TEST(RewriteFloor, OfFiveStoreysEndsBehindItsMultiplier) {
  const struct {
    const char* why;
    const char* multiplier;
    const char* written;
  } cases[] = {
      {"whether the line was rewritten", "   MULTIPLIER = 7", "  MULTIPLIER = 3 "},
      {"or kept", "   MULTIPLIER = 1", "   MULTIPLIER = 1"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_THAT(floorOutput({"\"P\" = FLOOR", "FLOOR-HEIGHT = 2", c.multiplier, "SPACE-HEIGHT = 2",
                             "MULTIPLIER = 9", ".."},
                            5),
                ElementsAre("\"P\" = FLOOR", "  FLOOR-HEIGHT = 3.000000 ", c.written,
                            "SPACE-HEIGHT = 2", "MULTIPLIER = 9", ".."));
  }
}

TEST(RewriteFloor, ReadsOnBehindTheMultiplierWithAnyOtherNumberOfStoreys) {
  for (const int numeroPlantas : {1, 2, 3, 4, 6, 7}) {
    SCOPED_TRACE(numeroPlantas);
    const Lines output =
        floorOutput({"\"P\" = FLOOR", "MULTIPLIER = 1", "SPACE-HEIGHT = 2", ".."}, numeroPlantas);
    EXPECT_THAT(output,
                ElementsAre("\"P\" = FLOOR", "MULTIPLIER = 1", "  SPACE-HEIGHT = 3.000000 ", ".."));
  }
}

TEST(RewriteFloor, RewritesEveryOneOfARepeatedKeyword) {
  EXPECT_THAT(floorOutput({"\"P\" = FLOOR", "FLOOR-HEIGHT = 2", "FLOOR-HEIGHT = 4", ".."}, 3),
              ElementsAre("\"P\" = FLOOR", "  FLOOR-HEIGHT = 3.000000 ",
                          "  FLOOR-HEIGHT = 3.000000 ", ".."));
}

TEST(RewriteFloor, AddsNothingThatTheTemplateDoesNotHave) {
  const Lines lines = {"\"P\" = FLOOR", "..", "FLOOR-HEIGHT = 2"};
  EXPECT_THAT(floorOutput(lines, 6), ElementsAreArray(lines));
}

TEST(RewriteFloor, MatchesAKeywordInTheValueToo) {
  EXPECT_THAT(floorOutput({"\"P\" = FLOOR", "NOTE = SPACE-HEIGHT", ".."}, 3, 2.5F),
              ElementsAre("\"P\" = FLOOR", "  SPACE-HEIGHT = 2.500000 ", ".."));
}

TEST(RewriteFloor, EndsWithTheTemplate) {
  EXPECT_THAT(floorOutput({"\"P\" = FLOOR", "MULTIPLIER = 2", "Z = 3"}, 6),
              ElementsAre("\"P\" = FLOOR", "  MULTIPLIER = 4 ", "Z = 3"));
}

TEST(RewriteFloor, WithoutAnyLineBehindItsHeaderIsTheHeader) {
  EXPECT_THAT(floorOutput({"\"P\" = FLOOR"}, 6), ElementsAre("\"P\" = FLOOR"));
}

TEST(RewriteSpace, TakesHeightAndAirChangesFromTheTypology) {
  EXPECT_THAT(spaceOutput({"\"E\" = SPACE", "  HEIGHT = 2.5", "  POLYGON = \"P\"",
                           "  AIR-CHANGES/HR = 1", "  ..", "HEIGHT = 9"}),
              ElementsAre("\"E\" = SPACE", "  HEIGHT = 2.800000 ", "  POLYGON = \"P\"",
                          "  AIR-CHANGES/HR = 0.750000 ", "  ..", "HEIGHT = 9"));
}

TEST(RewriteSpace, MultiplierIsAlwaysOne) {
  for (const char* line : {"  MULTIPLIER = 5", "  MULTIPLIER = 1", "  MULTIPLIER"}) {
    SCOPED_TRACE(line);
    EXPECT_THAT(spaceOutput({"\"E\" = SPACE", line, "HEIGHT = 2", ".."}),
                ElementsAre("\"E\" = SPACE", "  MULTIPLIER = 1 ", "  HEIGHT = 2.800000 ", ".."));
  }
}

TEST(RewriteSpace, KeywordsOfAFloorAreNone) {
  const Lines lines = {"\"E\" = SPACE", "FLOOR-HEIGHT = 2", "SPACE-HEIGHT = 2", ".."};
  EXPECT_THAT(spaceOutput(lines), ElementsAreArray(lines));
}

TEST(RewriteSpace, EndsWithTheTemplate) {
  EXPECT_THAT(spaceOutput({"\"E\" = SPACE", "HEIGHT = 2"}),
              ElementsAre("\"E\" = SPACE", "  HEIGHT = 2.800000 "));
}
