#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "generator/generator_context.h"
#include "generator/generator_fixture.h"
#include "support/recording_application.h"

// The schedule of four air changes an hour, which is rewritten while lines are copied by the main
// loop and nowhere else.

namespace {

using testing::ElementsAre;

const std::string kSchedule = "VALUES = ( 4, 4, 4, 4, 4, 4, 4, 4, 1 )";

std::string scheduleOf(const std::string& hourly) {
  std::string line = " VALUES = ( ";
  for (int i = 0; i < 8; ++i) line += hourly + ", ";
  return line + "1 ) ";
}

/// What the main loop makes of `line`.
std::string copied(const std::string& line, float airChangesHr) {
  GeneratorRun run({line});
  run.typology().airChangesHr = airChangesHr;
  LineMatch match;
  run.context().findNextKey(EmitterNames::kEnd, match);
  return run.finish().at(0);
}

}  // namespace

TEST(Schedule, OfFourAirChangesHoldsFourDividedByTheBuildingsInstead) {
  EXPECT_EQ(
      " VALUES = ( 8.000000, 8.000000, 8.000000, 8.000000, 8.000000, 8.000000, 8.000000, 8.000000, "
      "1 ) ",
      copied("  " + kSchedule, 0.5F));
}

TEST(Schedule, IsRewrittenOnlyWithAirChangesAboveZero) {
  const struct {
    const char* why;
    float airChangesHr;
  } cases[] = {{"zero", 0},
               {"negative zero", -0.0F},
               {"negative", -0.5F},
               {"not a number", std::numeric_limits<float>::quiet_NaN()}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ("  " + kSchedule, copied("  " + kSchedule, c.airChangesHr));
  }
}

TEST(Schedule, IsDividedIn32BitReals) {
  // 4 / 0.1 is 39.999999 in double.
  EXPECT_EQ(scheduleOf("40.000000"), copied(kSchedule, 0.1F));
  EXPECT_EQ(scheduleOf("66.666672"), copied(kSchedule, 0.06F));
}

TEST(Schedule, LosesWhatStandsAroundItsValues) {
  EXPECT_EQ(scheduleOf("4.000000"), copied("TYPE = FRACTION, " + kSchedule + " $ nota", 1));
}

TEST(Schedule, IsRecognisedByItsExactText) {
  const struct {
    const char* why;
    const char* line;
  } cases[] = {
      {"no blank behind the commas", "VALUES = ( 4,4,4,4,4,4,4,4,1 )"},
      {"no blank behind one of them", "VALUES = ( 4, 4, 4, 4, 4, 4, 4,4, 1 )"},
      {"no blanks inside the brackets", "VALUES = (4, 4, 4, 4, 4, 4, 4, 4, 1)"},
      {"two blanks", "VALUES =  ( 4, 4, 4, 4, 4, 4, 4, 4, 1 )"},
      {"other values", "VALUES = ( 4, 4, 4, 4, 4, 4, 4, 4, 4 )"},
      {"reals", "VALUES = ( 4.0, 4, 4, 4, 4, 4, 4, 4, 1 )"},
      {"lower case", "values = ( 4, 4, 4, 4, 4, 4, 4, 4, 1 )"},
      {"cut", "VALUES = ( 4, 4, 4, 4, 4, 4, 4, 4, 1"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.line, copied(c.line, 0.5F));
  }
}

TEST(Schedule, IsLeftAloneByCopyUntilCommand) {
  GeneratorRun run({kSchedule, "\"P\" = POLYGON"});
  run.typology().airChangesHr = 0.5F;
  run.context().copyUntilCommand("POLYGON");
  EXPECT_THAT(run.finish(), ElementsAre(kSchedule));
}

TEST(Schedule, IsLeftAloneByCopyRest) {
  GeneratorRun run({kSchedule});
  run.typology().airChangesHr = 0.5F;
  run.context().copyRest();
  EXPECT_THAT(run.finish(), ElementsAre(kSchedule));
}

TEST(Schedule, OnALineThatMatchesIsLeftToTheCaller) {
  GeneratorRun run({"CONSTRUCTION = " + kSchedule, "HEIGHT = " + kSchedule});
  run.typology().airChangesHr = 0.5F;
  LineMatch match;
  EXPECT_TRUE(run.context().findNextKey(EmitterNames::kSpace, match));
  EXPECT_EQ("HEIGHT = " + kSchedule, run.context().currentLine());
  EXPECT_THAT(run.finish(), ElementsAre(scheduleOf("8.000000")));
}

TEST(Schedule, IsRewrittenInsideACommandToo) {
  GeneratorRun run({"\"F\" = FLOOR", kSchedule, ".."});
  run.typology().airChangesHr = 2;
  run.context().copyUntilCommand("FLOOR");
  run.context().rewriteFloor();
  EXPECT_THAT(run.finish(), ElementsAre("\"F\" = FLOOR", scheduleOf("2.000000"), ".."));
}

TEST(Schedule, OfInfinitelyManyAirChangesEndsTheRun) {
  GeneratorRun run({kSchedule});
  run.typology().airChangesHr = std::numeric_limits<float>::denorm_min();
  LineMatch match;
  run.context().findNextKey(EmitterNames::kEnd, match);
  EXPECT_EQ(
      "Error en el fichero casa.tip: el valor de VALUES en la salida no es un número finito: inf",
      stopMessage([&] { run.context().requireFiniteOutput(); }));
}
