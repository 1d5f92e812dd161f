#include "generator/window_emitter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "generator/generator_context.h"
#include "generator/generator_fixture.h"
#include "plan/plan.h"
#include "support/recording_application.h"

namespace {

using testing::ElementsAre;
using Lines = std::vector<std::string>;

enum { kNorte = 0, kEste = 2, kSureste = 3, kSur = 4, kSuroeste = 5, kOeste = 6 };
using Change = std::function<void(TypologyRecord&, Plan&)>;

/// Bays of 12 m2 on the street and of 15 m2 in the courtyard.
Plan planOfBays() {
  Plan plan;
  plan.numHuecosFachada = {2, 2, 2, 2};
  plan.numHuecosPatio = {4, 4, 4, 4};
  plan.superficieFachada = {24, 24, 24, 24};
  plan.superficiePatio = {60, 60, 60, 60};
  return plan;
}

class WindowRun : public GeneratorRun {
 public:
  explicit WindowRun(const Lines& lines, const Change& change = {})
      : GeneratorRun(lines, tableOf({" \"V\" ", "1 1 1 1 1 180 90 1"})) {
    typology().porcentajeFachada = {30, 30, 30, 30};
    typology().porcentajePatio = {50, 50, 50, 50};
    if (change) change(typology(), plan_);
    context().copyUntilCommand("WINDOW");
  }
  void emit(int orientationClass, bool courtyard) { windows_.emit(orientationClass, 0, courtyard); }

 private:
  Plan plan_ = planOfBays();
  WindowEmitter windows_{context(), plan_};
};

/// The output for a template that begins with a WINDOW command.
Lines windowOutput(const Lines& lines, const Change& change = {}, int orientationClass = kSur,
                   bool courtyard = false) {
  WindowRun run(lines, change);
  run.emit(orientationClass, courtyard);
  run.context().copyRest();
  return run.finish();
}

/// X, Y, WIDTH and HEIGHT of the window, as written.
Lines sizeOf(const Lines& keywordLines, const Change& change = {}, int orientationClass = kSur,
             bool courtyard = false) {
  Lines lines = {"\"V\" = WINDOW"};
  lines.insert(lines.end(), keywordLines.begin(), keywordLines.end());
  lines.emplace_back("..");
  const Lines output = windowOutput(lines, change, orientationClass, courtyard);
  if (output.size() < 9) return output;
  return {output.end() - 7, output.end() - 3};
}

const Lines kStreetSize = {"  X = 0.500000 ", "  Y = 0.900000 ", "  WIDTH = 3.000000 ",
                           "  HEIGHT = 1.200000 "};
// 50 % of 15 m2, as tall as the storey.
const Lines kTallCourtyardSize = {"  X = 1.250000 ", "  Y = 0.000000 ", "  WIDTH = 2.500000 ",
                                  "  HEIGHT = 3.000000 "};

}  // namespace

TEST(EmitWindow, SouthWindowOfThirtyPercentIsWrittenWhole) {
  const auto change = [](TypologyRecord& typology, Plan&) {
    typology.porcentajeFachada = {30, 0, 0, 0};
    typology.textoMarco = "FRAME-WIDTH = 0.1";
    typology.textoSombra = "SETBACK = 0.2";
  };
  EXPECT_THAT(windowOutput({"\"V\" = WINDOW", "  GLASS-TYPE = \"Viejo\"", "  X = 1", "  Y = 1",
                            "  HEIGHT = 1.5", "  WIDTH = 2", "  ..", "resto"},
                           change),
              ElementsAre("\"V\" = WINDOW", "  GLASS-TYPE = \"VI\" ", "  X = 0.500000 ",
                          "  Y = 0.900000 ", "  WIDTH = 3.000000 ", "  HEIGHT = 1.200000 ",
                          "FRAME-WIDTH = 0.1", "SETBACK = 0.2", "..", "resto"));
}

TEST(EmitWindow, FrameAndShadeThatTheFileDoesNotHaveAreEmptyLines) {
  EXPECT_THAT(windowOutput({"\"V\" = WINDOW", ".."}),
              ElementsAre("\"V\" = WINDOW", "  GLASS-TYPE = \"VI\" ", kStreetSize[0],
                          kStreetSize[1], kStreetSize[2], kStreetSize[3], "", "", ".."));
}

TEST(EmitWindow, DropsEveryLineOfAWindowKeyword) {
  for (const char* keyword : {"GLASS-TYPE",
                              "INF-COEF",
                              "SETBACK",
                              "OVERHANG-A",
                              "OVERHANG-B",
                              "OVERHANG-W",
                              "OVERHANG-D",
                              "OVERHANG-ANGLE",
                              "LEFT-FIN-A",
                              "LEFT-FIN-B",
                              "LEFT-FIN-H",
                              "LEFT-FIN-D",
                              "RIGHT-FIN-A",
                              "RIGHT-FIN-B",
                              "RIGHT-FIN-H",
                              "RIGHT-FIN-D",
                              "FRAME-WIDTH",
                              "FRAME-CONDUCT",
                              "FRAME-ABS",
                              "POSITION-LAMAS",
                              "LAMAS-WIDTH",
                              "LAMAS-DISTANCE",
                              "LAMAS-ANGLE",
                              "LAMAS-TRANSMISIVITY",
                              "LAMAS-REFLECTIVITY",
                              "COEFF",
                              "WIDTH",
                              "HEIGHT",
                              "X",
                              "Y"}) {
    SCOPED_TRACE(keyword);
    const Lines bare = windowOutput({"\"V\" = WINDOW", "NOTA = 1", ".."});
    EXPECT_EQ(bare, windowOutput({"\"V\" = WINDOW", "NOTA = 1",
                                  std::string("   ") + keyword + " = 1", ".."}));
    EXPECT_EQ(bare,
              windowOutput({"\"V\" = WINDOW", std::string("A = ") + keyword, "NOTA = 1", ".."}))
        << "as a value";
  }
}

TEST(EmitWindow, KeepsForeignLinesBeforeItsOwn) {
  const Lines output = windowOutput(
      {"\"V\" = WINDOW", "  SHADING = \"S\"", "  X = 1", "$ nota", "  x = 1", "  X-REF = 1", ".."});
  ASSERT_EQ(13U, output.size());
  EXPECT_THAT(Lines(output.begin() + 1, output.begin() + 6),
              ElementsAre("  SHADING = \"S\"", "$ nota", "  x = 1", "  X-REF = 1",
                          "  GLASS-TYPE = \"VI\" "));
}

TEST(EmitWindow, OnAFacadeWithoutGlazingDisappearsWithAllItsLines) {
  const struct {
    const char* why;
    float percentage;
  } cases[] = {{"0 %", 0},
               {"negative", -1},
               {"negative zero", -0.0F},
               {"not a number", std::numeric_limits<float>::quiet_NaN()}};
  const Lines lines = {"antes", "\"V\" = WINDOW", "  X = 1", "  NOTA = 1", "  ..", "resto"};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const auto setPercentage = [&](TypologyRecord& typology, Plan&) {
      typology.porcentajeFachada[0] = c.percentage;
    };
    EXPECT_THAT(windowOutput(lines, setPercentage), ElementsAre("antes", "resto"));
  }
}

TEST(EmitWindow, LeastGlazingIsEnoughToExist) {
  const auto change = [](TypologyRecord& typology, Plan&) {
    typology.porcentajeFachada[0] = std::numeric_limits<float>::denorm_min();
  };
  EXPECT_THAT(sizeOf({}, change), ElementsAre("  X = 2.000000 ", "  Y = 0.900000 ",
                                              "  WIDTH = 0.000000 ", "  HEIGHT = 1.200000 "));
}

TEST(EmitWindow, InTheCourtyardExistsByTheCourtyardsGlazing) {
  const auto noStreet = [](TypologyRecord& typology, Plan&) { typology.porcentajeFachada.fill(0); };
  const auto noCourtyard = [](TypologyRecord& typology, Plan&) {
    typology.porcentajePatio.fill(0);
  };
  const Lines lines = {"\"V\" = WINDOW", ".."};
  EXPECT_EQ(9U, windowOutput(lines, noStreet, kEste, true).size());
  EXPECT_EQ(0U, windowOutput(lines, noCourtyard, kEste, true).size());
  EXPECT_EQ(9U, windowOutput(lines, noCourtyard, kEste, false).size());
  EXPECT_EQ(0U, windowOutput(lines, noStreet, kEste, false).size());
}

TEST(EmitWindow, RemovalStopsAtALineOfDashesAndTheRestIsCopied) {
  const auto change = [](TypologyRecord& typology, Plan&) { typology.porcentajeFachada.fill(0); };
  EXPECT_THAT(
      windowOutput({"\"V\" = WINDOW", "X = 1", "$ ------------", "Y = 1", "..", "resto"}, change),
      ElementsAre("Y = 1", "..", "resto"));
}

TEST(EmitWindow, RemovalEndsWithTheTemplate) {
  const auto change = [](TypologyRecord& typology, Plan&) { typology.porcentajeFachada.fill(0); };
  EXPECT_THAT(windowOutput({"antes", "\"V\" = WINDOW", "X = 1"}, change), ElementsAre("antes"));
}

TEST(EmitWindow, WiderThanItsBayIsCutAndGrowsButNeverBeyondTheStorey) {
  const auto percent = [](float percentage) {
    return [=](TypologyRecord& typology, Plan&) { typology.porcentajeFachada[0] = percentage; };
  };
  EXPECT_THAT(sizeOf({}, percent(50)), ElementsAre("  X = 0.000000 ", "  Y = 0.750000 ",
                                                   "  WIDTH = 4.000000 ", "  HEIGHT = 1.500000 "));
  EXPECT_THAT(sizeOf({}, percent(130)), ElementsAre("  X = 0.000000 ", "  Y = 0.000000 ",
                                                    "  WIDTH = 4.000000 ", "  HEIGHT = 3.000000 "));
}

TEST(EmitWindow, StreetWindowAsTallAsAStoreyTakesTheCourtyardsData) {
  const struct {
    const char* why;
    Lines keywordLines;
    const Lines& size;
  } cases[] = {
      {"no height", {}, kStreetSize},
      {"below a storey", {"HEIGHT = 2.9"}, kStreetSize},
      {"the nearest real below", {"HEIGHT = 2.99999976"}, kStreetSize},
      {"a storey", {"HEIGHT = 3.0"}, kTallCourtyardSize},
      {"the nearest real above", {"HEIGHT = 3.00000024"}, kTallCourtyardSize},
      {"taller", {"HEIGHT = 5"}, kTallCourtyardSize},
      {"a width is no matter", {"WIDTH = 5"}, kStreetSize},
      {"the last height counts", {"HEIGHT = 5", "HEIGHT = 1"}, kStreetSize},
      {"and so it does here", {"HEIGHT = 1", "HEIGHT = 5"}, kTallCourtyardSize},
      {"a height of 0 sets none", {"HEIGHT = 5", "HEIGHT = 0"}, kTallCourtyardSize},
      {"nor does a negative one", {"HEIGHT = 5", "HEIGHT = -1"}, kTallCourtyardSize},
      {"nor what is no number", {"HEIGHT = 5", "HEIGHT = nan"}, kTallCourtyardSize},
      {"nor text", {"HEIGHT = alto"}, kStreetSize},
      {"nor the word as a value", {"ALTO = HEIGHT"}, kStreetSize},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.size, sizeOf(c.keywordLines));
  }
}

TEST(EmitWindow, IsSizedForAStoreyOfThreeMetresWhateverTheBuildings) {
  for (const float storey : {2.5F, 5.0F}) {
    SCOPED_TRACE(storey);
    const auto change = [&](TypologyRecord& typology, Plan&) { typology.alturaPlanta = storey; };
    EXPECT_EQ(kStreetSize, sizeOf({"HEIGHT = 2.9"}, change));
    EXPECT_EQ(kTallCourtyardSize, sizeOf({"HEIGHT = 3.0"}, change));
  }
}

TEST(EmitWindow, TallStreetWindowOfACourtyardWithoutGlazingIsWrittenWithoutWidth) {
  const auto percent = [](float percentage) {
    return [=](TypologyRecord& typology, Plan&) { typology.porcentajePatio.fill(percentage); };
  };
  EXPECT_EQ("  WIDTH = 0.000000 ", sizeOf({"HEIGHT = 3"}, percent(0)).at(2));
  EXPECT_EQ("  WIDTH = -0.000000 ", sizeOf({"HEIGHT = 3"}, percent(-0.0F)).at(2));
}

TEST(EmitWindow, CourtyardWindowTakesTheCourtyardsDataWhateverItsHeight) {
  // 50 % of 15 m2 on 5 m is wider than the bay.
  EXPECT_THAT(sizeOf({}, {}, kSur, true),
              ElementsAre("  X = 0.000000 ", "  Y = 0.750000 ", "  WIDTH = 5.000000 ",
                          "  HEIGHT = 1.500000 "));
  EXPECT_EQ(kTallCourtyardSize, sizeOf({"HEIGHT = 3"}, {}, kSur, true));
}

TEST(EmitWindow, EveryFacadeHasItsOwnEntryOfTheStreetArrays) {
  const auto change = [](TypologyRecord& typology, Plan& plan) {
    plan.numHuecosFachada = {1, 2, 3, 4};
    plan.superficieFachada = {6, 24, 54, 96};  // bays of 6, 12, 18 and 24 m2
    typology.porcentajeFachada = {10, 15, 20, 25};
  };
  const struct {
    int orientationClass;
    const char* width;
  } cases[] = {{kSureste, "  WIDTH = 0.500000 "},  {kSur, "  WIDTH = 0.500000 "},
               {kSuroeste, "  WIDTH = 0.500000 "}, {kEste, "  WIDTH = 1.500000 "},
               {kNorte, "  WIDTH = 3.000000 "},    {kOeste, "  WIDTH = 5.000000 "}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.orientationClass);
    EXPECT_EQ(c.width, sizeOf({}, change, c.orientationClass).at(2));
  }
}

TEST(EmitWindow, EveryFacadeHasItsOwnEntryOfTheCourtyardArrays) {
  const auto change = [](TypologyRecord& typology, Plan& plan) {
    plan.numHuecosPatio = {1, 2, 3, 4};
    plan.superficiePatio = {6, 24, 54, 96};
    typology.porcentajePatio = {10, 15, 20, 25};
  };
  const struct {
    int orientationClass;
    const char* width;
  } cases[] = {{kSur, "  WIDTH = 0.500000 "},
               {kEste, "  WIDTH = 1.500000 "},
               {kNorte, "  WIDTH = 3.000000 "},
               {kOeste, "  WIDTH = 5.000000 "}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.orientationClass);
    EXPECT_EQ(c.width, sizeOf({}, change, c.orientationClass, true).at(2));
  }
}

TEST(EmitWindow, EndsWithTheTemplateAndIsWrittenNonetheless) {
  EXPECT_THAT(windowOutput({"\"V\" = WINDOW", "X = 1", "NOTA = 1"}),
              ElementsAre("\"V\" = WINDOW", "NOTA = 1", "  GLASS-TYPE = \"VI\" ", kStreetSize[0],
                          kStreetSize[1], kStreetSize[2], kStreetSize[3], "", "", ".."));
}

TEST(EmitWindow, InARoofOrAFloorEndsTheRun) {
  for (const int orientationClass : {-1, -2}) {
    SCOPED_TRACE(orientationClass);
    const auto noGlazing = [](TypologyRecord& typology, Plan&) {
      typology.porcentajeFachada.fill(0);
    };
    WindowRun run({"\"V\" = WINDOW", ".."}, noGlazing);
    EXPECT_EQ("La versión actual del ZELTA no contempla ventanas en cubiertas o suelos",
              stopMessage([&] { run.emit(orientationClass, false); }));
  }
}

TEST(EmitWindow, OnAFacadeWithoutBaysEndsTheRun) {
  const auto noBays = [](TypologyRecord&, Plan& plan) {
    plan.numHuecosFachada.fill(0);
    plan.numHuecosPatio.fill(0);
  };
  const struct {
    const char* why;
    int orientationClass;
    bool courtyard;
    const char* height;
    const char* problem;
  } cases[] = {
      {"south", kSur, false, "HEIGHT = 1",
       "la ventana \"V\" está en la fachada sur, que no tiene huecos en esta tipología"},
      {"east", kEste, false, "HEIGHT = 1",
       "la ventana \"V\" está en la fachada este, que no tiene huecos en esta tipología"},
      {"north", kNorte, false, "HEIGHT = 1",
       "la ventana \"V\" está en la fachada norte, que no tiene huecos en esta tipología"},
      {"west", kOeste, false, "HEIGHT = 1",
       "la ventana \"V\" está en la fachada oeste, que no tiene huecos en esta tipología"},
      {"the courtyard's", kEste, true, "HEIGHT = 1",
       "la ventana \"V\" está en la fachada este del patio, que no tiene huecos en esta tipología"},
      {"a tall street window takes the courtyard's", kOeste, false, "HEIGHT = 3",
       "la ventana \"V\" está en la fachada oeste del patio, que no tiene huecos en esta "
       "tipología"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    // The line is the command's header, not the end that the reading has come to.
    WindowRun run({"$ casa", "\"V\" = WINDOW", c.height, ".."}, noBays);
    EXPECT_EQ(std::string("Error en el fichero casa.bdl, línea 2: ") + c.problem,
              stopMessage([&] { run.emit(c.orientationClass, c.courtyard); }));
  }
}

TEST(EmitWindow, RemovedWindowOnAFacadeWithoutBaysIsNoFault) {
  const auto change = [](TypologyRecord& typology, Plan& plan) {
    typology.porcentajeFachada.fill(0);
    plan.numHuecosFachada.fill(0);
  };
  EXPECT_THAT(windowOutput({"\"V\" = WINDOW", "..", "resto"}, change), ElementsAre("resto"));
}
