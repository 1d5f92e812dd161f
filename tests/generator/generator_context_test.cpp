#include "generator/generator_context.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "generator/generator_fixture.h"
#include "support/recording_application.h"

namespace {
using testing::ElementsAre;
}

TEST(GeneratorContext, EachLineGetsALineFeedAndAnEmptyOneIsALine) {
  GeneratorRun run({});
  run.context().lines().writeLine("una");
  run.context().lines().writeLine("");
  EXPECT_THAT(run.finish(), ElementsAre("una", ""));
}

TEST(GeneratorContext, KeywordLineHasTwoBlanksBeforeAndOneBehind) {
  GeneratorRun run({});
  run.context().lines().writeKeyword("GLASS-TYPE", "\"Vidrio\"");
  run.context().lines().writeKeyword("MULTIPLIER", 4);
  run.context().lines().writeKeyword("X", 2.8F, {});
  EXPECT_THAT(run.finish(),
              ElementsAre("  GLASS-TYPE = \"Vidrio\" ", "  MULTIPLIER = 4 ", "  X = 2.800000 "));
}

TEST(GeneratorContext, RealsAreWrittenWithSixDecimals) {
  const struct {
    const char* why;
    float value;
    const char* line;
  } cases[] = {
      {"widened to double, not shortened", 0.1F, "  X = 0.100000 "},
      {"a 32-bit real shows its own value", 16777216.1F, "  X = 16777216.000000 "},
      {"negative zero keeps its sign", -0.0F, "  X = -0.000000 "},
      {"so does what rounds to it", -0.0000001F, "  X = -0.000000 "},
      {"the halves of the sixth decimal go by the binary value", 1.0000005F, "  X = 1.000000 "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    GeneratorRun run({});
    run.context().lines().writeKeyword("X", c.value, {});
    EXPECT_THAT(run.finish(), ElementsAre(c.line));
  }
}

TEST(FindNextKey, CopiesWhatDoesNotMatchAndStopsOnWhatDoes) {
  GeneratorRun run({"a", "", "  MULTIPLIER = 1", "c"});
  LineMatch match;
  EXPECT_TRUE(run.context().findNextKey(EmitterNames::kSpace, match));
  EXPECT_EQ(kSpaceMultiplier, match.index);
  EXPECT_EQ("  MULTIPLIER = 1", run.context().currentLine());
  EXPECT_THAT(run.finish(), ElementsAre("a", ""));
}

TEST(FindNextKey, IsFalseAtTheEndAndLeavesTheMatchAlone) {
  GeneratorRun run({"a", "b"});
  LineMatch match{.index = 7, .width = 0, .height = 0};
  EXPECT_FALSE(run.context().findNextKey(EmitterNames::kSpace, match));
  EXPECT_EQ(7, match.index);
  EXPECT_THAT(run.finish(), ElementsAre("a", "b"));
}

TEST(CopyUntilCommand, StopsOnTheHeaderOfTheType) {
  GeneratorRun run({"a = POLYGONS", "POLYGON", "POLYGON = b", "\"P\" =   POLYGON  ", "d"});
  run.context().copyUntilCommand("POLYGON");
  EXPECT_EQ("\"P\" =   POLYGON  ", run.context().currentLine());
  EXPECT_THAT(run.finish(), ElementsAre("a = POLYGONS", "POLYGON", "POLYGON = b"));
}

TEST(CopyUntilCommand, EndsTheRunWhenThereIsNone) {
  for (const char* type : {"BUILDING-SHADE", "BUILD-PARAMETERS", "POLYGON"}) {
    GeneratorRun run({"a", "b"});
    EXPECT_EQ(std::string("Error al generar el edificio. No se ha encontrado la clave: ") + type,
              stopMessage([&] { run.context().copyUntilCommand(type); }));
  }
}

TEST(SkipUntilKey, DropsTheLinesUpToAMatch) {
  GeneratorRun run({"a", "..", "b"});
  run.context().skipUntilKey(EmitterNames::kEnd);
  EXPECT_EQ("..", run.context().currentLine());
  run.context().copyRest();
  EXPECT_THAT(run.finish(), ElementsAre("b"));
}

TEST(SkipUntilKey, StopsOnALineOfTenDashes) {
  GeneratorRun run({"a", "---------", "$ ---------- $", "..", "b"});
  run.context().skipUntilKey(EmitterNames::kEnd);
  EXPECT_EQ("$ ---------- $", run.context().currentLine());
  run.context().copyRest();
  EXPECT_THAT(run.finish(), ElementsAre("..", "b"));
}

TEST(SkipUntilKey, EndsWithTheTemplate) {
  GeneratorRun run({"a", "b"});
  run.context().skipUntilKey(EmitterNames::kEnd);
  run.context().copyRest();
  EXPECT_THAT(run.finish(), ElementsAre());
}

TEST(CopyRest, CopiesEveryLineAsItIs) {
  GeneratorRun run({"  a\t", "", "\xF1 = 1"});
  run.context().copyRest();
  EXPECT_THAT(run.finish(), ElementsAre("  a\t", "", "\xF1 = 1"));
}

TEST(CopyRest, LastLineOfATemplateThatEndsInALineEndComesTwice) {
  GeneratorRun run({"a", "b", ""});
  run.context().copyRest();
  EXPECT_THAT(run.finish(), ElementsAre("a", "b", "b"));
}

TEST(CopyRest, CarriageReturnsOfTheTemplateAreLineEnds) {
  GeneratorRun run({"a\r", "B = ..\r", "c"});
  LineMatch match;
  EXPECT_TRUE(run.context().findNextKey(EmitterNames::kEnd, match));
  run.context().copyRest();
  EXPECT_THAT(run.finish(), ElementsAre("a", "c"));
}

TEST(TemplateLine, Of3000BytesIsTheLongest) {
  const std::string longest(3000, 'x');
  GeneratorRun run({longest, longest + "\r", "b"});
  run.context().copyRest();
  EXPECT_THAT(run.finish(), ElementsAre(longest, longest, "b"));
}

TEST(TemplateLine, LongerThan3000BytesEndsTheRun) {
  GeneratorRun run({"a", std::string(3001, 'x'), "b"});
  EXPECT_EQ("Error en el fichero casa.bdl, línea 2: la línea es demasiado larga",
            stopMessage([&] { run.context().copyRest(); }));
}

TEST(RequireFiniteOutput, EndsTheRunWithTheFirstRealThatIsNotFinite) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const struct {
    const char* why;
    float first;
    const char* shown;
  } cases[] = {
      {"not a number", std::numeric_limits<float>::quiet_NaN(), "nan"},
      {"infinity", kInfinity, "inf"},
      {"minus infinity", -kInfinity, "-inf"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    GeneratorRun run({});
    run.context().lines().writeKeyword("AZIMUTH", 0.0F, {});
    run.context().lines().writeKeyword("X", c.first, {});
    run.context().lines().writeKeyword("Y", kInfinity, {});
    EXPECT_EQ(
        std::string("Error en el fichero casa.tip: el valor de X en la salida no es un número "
                    "finito: ") +
            c.shown,
        stopMessage([&] { run.context().requireFiniteOutput(); }));
  }
}

TEST(RequireFiniteOutput, LargestRealIsFinite) {
  GeneratorRun run({});
  run.context().lines().writeKeyword("X", std::numeric_limits<float>::max(), {});
  EXPECT_EQ(kNotStopped, stopMessage([&] { run.context().requireFiniteOutput(); }));
}
