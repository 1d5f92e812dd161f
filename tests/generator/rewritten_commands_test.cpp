#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "generator/generator_fixture.h"
#include "support/recording_application.h"

// What `generate` does with the template behind the building parameters: floors, spaces and the
// surfaces of the table, and the progress bar.

namespace {

using testing::ElementsAre;
using Lines = std::vector<std::string>;

const std::string kWall = "10 0 0 0 0 180 90 0";
const std::string kWindow = "1 0 0 0 0 180 90 1";

/// A run of a house whose template continues with `lines`.
class CommandsRun : public GeneratorRun {
 public:
  explicit CommandsRun(const Lines& lines, std::string_view table = kEmptyTable)
      : GeneratorRun(behindTheParameters(lines), table) {}

  /// The output behind the building parameters and before the typology text.
  Lines output(RecordingBar& bar) {
    const std::string message = stopMessage([&] { generate(bar); });
    if (message != kNotStopped) return {message};
    const Lines whole = finishWithoutTypology();
    const auto first = std::find(whole.begin(), whole.end(), "$ aquí");
    return Lines(first + 1, whole.end());
  }
  Lines output() {
    RecordingBar bar;
    return output(bar);
  }

 private:
  static Lines behindTheParameters(const Lines& lines) {
    Lines whole = {"P = POLYGON", "..", "D = BUILD-PARAMETERS", "..", "$ aquí"};
    whole.insert(whole.end(), lines.begin(), lines.end());
    return whole;
  }
};

/// Positions that the bar takes over a template of so many FLOOR headers, the rest of each missing,
/// with a table of so many surfaces.
std::vector<int> positionsWith(std::size_t surfaceCount, std::size_t lines, int start = 0) {
  Lines table;
  for (std::size_t i = 0; i < surfaceCount; ++i) {
    table.insert(table.end(), {"S" + std::to_string(i), kWall});
  }
  CommandsRun run(Lines(lines, "F = FLOOR"), tableOf(table));
  RecordingBar bar(start);
  run.output(bar);
  return bar.positions;
}

}  // namespace

TEST(GenerateCommands, FloorsAndSpacesAreRewritten) {
  CommandsRun run(
      {"\"F\" = FLOOR", "FLOOR-HEIGHT = 2", "..", "\"E\" = SPACE", "MULTIPLIER = 2", "..", "END"});
  EXPECT_THAT(run.output(), ElementsAre("\"F\" = FLOOR", "  FLOOR-HEIGHT = 3.000000 ", "..",
                                        "\"E\" = SPACE", "  MULTIPLIER = 1 ", "..", "END"));
}

TEST(GenerateCommands, LineWhoseKeyIsTheWordIsOneToo) {
  CommandsRun run({"SPACE = 1", "HEIGHT = 2", ".."});
  EXPECT_THAT(run.output(), ElementsAre("SPACE = 1", "  HEIGHT = 3.000000 ", ".."));
}

TEST(GenerateCommands, LinesBehindAFiveStoreyFloorsMultiplierAreCopied) {
  CommandsRun run({"F = FLOOR", "MULTIPLIER = 2", "FLOOR-HEIGHT = 2", ".."});
  run.typology().numeroPlantas = 5;
  EXPECT_THAT(run.output(),
              ElementsAre("F = FLOOR", "  MULTIPLIER = 3 ", "FLOOR-HEIGHT = 2", ".."));
}

TEST(GenerateCommands, ScheduleIsRewritten) {
  CommandsRun run({"VALUES = ( 4, 4, 4, 4, 4, 4, 4, 4, 1 )"});
  run.typology().airChangesHr = 4;
  EXPECT_EQ(
      " VALUES = ( 1.000000, 1.000000, 1.000000, 1.000000, 1.000000, 1.000000, 1.000000, "
      "1.000000, 1 ) ",
      run.output().at(0));
}

TEST(GenerateCommands, SurfaceOfAKindBelow1GetsItsConstruction) {
  for (const char* type :
       {"EXTERIOR-WALL", "ROOF", "TROMBE-WALL", "INTERIOR-WALL", "UNDERGROUND-WALL", "WINDOW"}) {
    SCOPED_TRACE(type);
    const std::string header = std::string("\"M\" = ") + type;
    CommandsRun run({header, "CONSTRUCTION = \"Vieja\"", ".."}, tableOf({"\"M\"", kWall}));
    EXPECT_THAT(run.output(), ElementsAre(header, "  CONSTRUCTION = \"M1\" ", ".."));
  }
}

TEST(GenerateCommands, SurfaceOfKind1AndAboveIsAWindowWhateverItsType) {
  for (const char* kind : {"1", "2", "7"}) {
    SCOPED_TRACE(kind);
    CommandsRun run({"\"M\" = EXTERIOR-WALL", "..", "END"},
                    tableOf({"\"M\"", std::string("1 0 0 0 0 180 90 ") + kind}));
    EXPECT_EQ("  GLASS-TYPE = \"VI\" ", run.output().at(1));
  }
}

TEST(GenerateCommands, TypeIsKnownAsPartOfTheLine) {
  CommandsRun run({"\"Mi WINDOW\" = DOOR", "..", "\"M\" = ROOFTOP", ".."},
                  tableOf({"\"Mi WINDOW\"", kWall, "\"M\"", kWall}));
  EXPECT_THAT(run.output(), ElementsAre("\"Mi WINDOW\" = DOOR", "  CONSTRUCTION = \"M1\" ", "..",
                                        "\"M\" = ROOFTOP", "  CONSTRUCTION = \"M1\" ", ".."));
}

TEST(GenerateCommands, SurfaceLineOfAnotherTypeIsKept) {
  const struct {
    const char* why;
    const char* line;
  } cases[] = {
      {"another command", "\"M\" = DOOR"},
      {"lower case", "\"M\" = window"},
      {"the name as a value", "  SURFACE = \"M\""},
      {"a schedule's values, even", "\"M\" = VALUES = ( 4, 4, 4, 4, 4, 4, 4, 4, 1 )"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    CommandsRun run({c.line, "CONSTRUCTION = \"Vieja\"", ".."}, tableOf({"\"M\"", kWall}));
    EXPECT_THAT(run.output(), ElementsAre(c.line, "CONSTRUCTION = \"Vieja\"", ".."));
  }
}

TEST(GenerateCommands, SurfaceTakesTheOrientationOfItsRow) {
  CommandsRun run({"\"S\" = ROOF", "..", "\"C\" = ROOF", "..", "\"M\" = ROOF", ".."},
                  tableOf({"\"C\"", "1 0 0 0 0 180 0 0", "\"S\"", "1 0 0 0 0 0 180 0", "\"M\"",
                           "1 0 0 0 0 0 90 0"}));
  EXPECT_THAT(run.output(), ElementsAre("\"S\" = ROOF", "  CONSTRUCTION = \"SU\" ", "..",
                                        "\"C\" = ROOF", "  CONSTRUCTION = \"CU\" ", "..",
                                        "\"M\" = ROOF", "  CONSTRUCTION = \"M1\" ", ".."));
}

TEST(GenerateCommands, NameInTheTableIsTrimmedForTheComparison) {
  CommandsRun run({"\"M\" = ROOF", ".."}, tableOf({"  \"M\"   ", kWall}));
  EXPECT_EQ("  CONSTRUCTION = \"M1\" ", run.output().at(1));
}

TEST(GenerateCommands, EarliestRowOfANameCounts) {
  CommandsRun run({"\"M\" = ROOF", ".."},
                  tableOf({"\"M\"", "1 0 0 0 0 0 0 -1", "\"M\"", "1 0 0 0 0 0 90 0"}));
  EXPECT_EQ("  CONSTRUCTION = \"CU\" ", run.output().at(1));
}

TEST(GenerateCommands, SurfaceCalledSpaceComesBeforeTheCommand) {
  CommandsRun run({"E = SPACE", "HEIGHT = 2", ".."}, tableOf({"SPACE", kWall}));
  EXPECT_THAT(run.output(), ElementsAre("E = SPACE", "HEIGHT = 2", ".."));
}

TEST(GenerateCommands, WindowWhoseNameContainsMedLooksIntoTheCourtyard) {
  // The house has glazing to the south street only, and no courtyard.
  const struct {
    const char* name;
    std::size_t lines;
  } cases[] = {{"\"P01_ME01_V1\"", 9},
               {"\"P01_Med01_V1\"", 0},
               {"\"Medianera\"", 0},
               {"\"P01_med01\"", 9},
               {"\"P01_MED01\"", 9}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    CommandsRun run({std::string(c.name) + " = WINDOW", ".."}, tableOf({c.name, kWindow}));
    EXPECT_EQ(c.lines, run.output().size());
  }
}

TEST(GenerateCommands, EastWindowOfTheCourtyardTakesItsPercentageAndArrays) {
  Lines lines = {"\"D\" = BUILD-PARAMETERS", "..", "\"V_Med\" = WINDOW", ".."};
  for (int i = 0; i < 6; ++i) lines.insert(lines.begin(), {"P = POLYGON", ".."});
  GeneratorRun run(lines, tableOf({"\"V_Med\"", "1 0 0 0 0 90 90 1"}));
  TypologyRecord& typology = run.typology();
  typology.tipo = 13;
  typology.areaPlanta = 240;
  typology.areaPatio = 48;
  typology.longitudFachada = 12;
  typology.profundidadPatio = 8;
  typology.porcentajeFachada = {0, 0, 0, 0};
  typology.porcentajePatio = {0, 20, 0, 0};
  RecordingBar bar;
  run.generate(bar);
  const Lines output = run.finish();
  const auto header = std::find(output.begin(), output.end(), "\"V_Med\" = WINDOW");
  ASSERT_GT(output.end() - header, 6);
  // 72 m2 on 6 bays: 12 m2 and 4 m a bay; 20 % of it, 1.2 m high.
  EXPECT_THAT(Lines(header + 2, header + 6),
              ElementsAre("  X = 1.000000 ", "  Y = 0.900000 ", "  WIDTH = 2.000000 ",
                          "  HEIGHT = 1.200000 "));
}

TEST(GenerateCommands, RoofWindowEndsTheRun) {
  for (const char* tilt : {"0", "180"}) {
    SCOPED_TRACE(tilt);
    CommandsRun run({"\"V\" = WINDOW", ".."},
                    tableOf({"\"V\"", std::string("1 0 0 0 0 180 ") + tilt + " 1"}));
    EXPECT_THAT(run.output(),
                ElementsAre("La versión actual del ZELTA no contempla ventanas en cubiertas o "
                            "suelos"));
  }
}

TEST(GenerateProgress, StepIs150ByTheSurfacesAndOneMore) {
  const struct {
    const char* why;
    std::size_t surfaces;
    int step;
  } cases[] = {
      {"no surface: the whole way", 0, 150},
      {"one", 1, 75},
      {"cut to an integer", 3, 37},
      {"the last count above 1", 74, 2},
      {"just 1", 149, 1},
      {"never 0", 150, 1},
      {"however many", 1000, 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_THAT(positionsWith(c.surfaces, 1), ElementsAre(c.step));
  }
}

TEST(GenerateProgress, BarGoesOnFromWhereItStandsAndBeyond150) {
  CommandsRun run({"F = FLOOR", "..", "F = FLOOR", "..", "F = FLOOR", ".."});
  RecordingBar bar(7);
  run.output(bar);
  EXPECT_THAT(bar.positions, ElementsAre(157, 307, 457));
}

TEST(GenerateProgress, EveryFoundLineMovesTheBarAndLetsMessagesThrough) {
  const Lines table = {"\"M\"", kWall, "\"V\"", kWindow, "\"N\"", "1 0 0 0 0 0 90 1"};
  const struct {
    const char* why;
    Lines lines;
    std::size_t moves;
  } cases[] = {
      {"a floor", {"F = FLOOR", ".."}, 1},
      {"a space", {"E = SPACE", ".."}, 1},
      {"a wall", {"\"M\" = ROOF", ".."}, 1},
      {"a window", {"\"V\" = WINDOW", ".."}, 1},
      {"a removed window", {"\"N\" = WINDOW", ".."}, 1},
      {"a surface line of another type", {"\"M\" = DOOR", ".."}, 1},
      {"none", {"\"X\" = ROOF", ".."}, 0},
      {"two", {"\"M\" = ROOF", "..", "\"M\" = DOOR", ".."}, 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    CommandsRun run(c.lines, tableOf(table));
    RecordingBar bar;
    const int before = recordingApplication().processed;
    run.output(bar);
    EXPECT_EQ(c.moves, bar.positions.size());
    EXPECT_EQ(before + static_cast<int>(c.moves), recordingApplication().processed);
  }
}

TEST(GenerateProgress, BarIsNotTouchedBeforeTheFirstCommand) {
  EXPECT_THAT(positionsWith(0, 0, 7), ElementsAre());
}
