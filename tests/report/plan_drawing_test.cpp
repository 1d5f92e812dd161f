#include "report/plan_drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "report/plan_cells.h"
#include "report/plan_rooms.h"
#include "report/sample_plans.h"
#include "report/sheet.h"
#include "typology/tipo.h"

using report::Bay;
using report::Box;
using report::Drawing;
using report::Label;
using report::PlanCells;
using report::Room;
using report::Shape;
using report::Sign;

namespace {

constexpr int kPlans = 12;  // of each family

Drawing drawn(const PlanData& data, const Plan& plan, double giro = 0) {
  report::PlanSheet sheet;
  sheet.data = data;
  sheet.plan = plan;
  sheet.giro = giro;
  sheet.title = "un título tan largo que no cabe entero en el cajetín de ninguna hoja";
  sheet.content = report::planContent(data.tipo);
  sheet.program = "tip2bdl 1.0.0";
  sheet.fingerprint = "0123456789abcdef";
  return report::planDrawing(sheet);
}

Plan planOf(const PlanData& data) { return std::get<Plan>(planTipologia(data)); }

bool says(const Drawing& drawing, const std::string& text) {
  return std::ranges::any_of(drawing.labels,
                             [&](const Label& label) { return label.text == text; });
}

}  // namespace

TEST(PlanDrawing, NoLabelTouchesAnotherAndNoneLeavesTheSheet) {
  std::mt19937 random(7);
  forRandomPlans(kPlans, [&](const PlanData& data, const Plan& plan) {
    const Drawing drawing = drawn(data, plan, static_cast<int>(random() % 360));
    const Box sheet{0, 0, drawing.width, drawing.height};
    for (std::size_t i = 0; i < drawing.labels.size(); ++i) {
      const Box box = report::boxOf(drawing.labels[i]);
      EXPECT_TRUE(box.x0 >= sheet.x0 && box.y0 >= sheet.y0 && box.x1 <= sheet.x1 &&
                  box.y1 <= sheet.y1)
          << drawing.labels[i].text;
      for (std::size_t k = 0; k < i; ++k) {
        EXPECT_FALSE(report::touch(box, report::boxOf(drawing.labels[k])))
            << drawing.labels[i].text << " / " << drawing.labels[k].text;
      }
    }
  });
}

TEST(PlanDrawing, ItFitsAPageOfA4) {
  forRandomPlans(kPlans, [](const PlanData& data, const Plan& plan) {
    const Drawing drawing = drawn(data, plan);
    EXPECT_LE(std::max(drawing.width, drawing.height), 297);
    EXPECT_LE(std::min(drawing.width, drawing.height), 210);
  });
}

TEST(PlanDrawing, NoTextIsSmallerThanTwoAndAHalfMillimetres) {
  forRandomPlans(kPlans, [](const PlanData& data, const Plan& plan) {
    for (const Label& label : drawn(data, plan).labels) EXPECT_GE(label.capHeight, 2.5);
  });
}

TEST(PlanDrawing, EveryDwellingHasItsLetter) {
  forRandomPlans(kPlans, [](const PlanData& data, const Plan& plan) {
    const Drawing drawing = drawn(data, plan);
    if (tipoRow(data.tipo).family == PlanFamily::kHouse) {
      EXPECT_TRUE(says(drawing, "Vivienda"));
      return;
    }
    for (const char* letter : {"A", "B", "C", "D"}) EXPECT_TRUE(says(drawing, letter)) << letter;
  });
}

TEST(PlanDrawing, EveryBayIsMarkedAtBothEnds) {
  forRandomPlans(kPlans, [](const PlanData& data, const Plan& plan) {
    const Drawing drawing = drawn(data, plan);
    const auto marks = std::ranges::find(drawing.shapes, Sign::kBayMark, &Shape::sign);
    ASSERT_NE(drawing.shapes.end(), marks);
    EXPECT_EQ(2 * report::bays(PlanCells(plan)).size(), marks->lines.size());
  });
}

TEST(Bays, AreThoseThatTheRunCounts) {
  forRandomPlans(kPlans, [](const PlanData& data, const Plan& plan) {
    const int storeys = tipoRow(data.tipo).planStoreys;
    PerFacade<int> street{}, courtyard{};
    for (const Bay& bay : report::bays(PlanCells(plan))) {
      ++(bay.courtyard ? courtyard : street)[bay.side];
    }
    for (std::size_t side = 0; side < 4; ++side) {
      EXPECT_EQ(plan.numHuecosFachada[side], street[side] * storeys) << side;
      EXPECT_EQ(plan.numHuecosPatio[side], courtyard[side] * storeys) << side;
    }
  });
}

TEST(Bays, AreAsLongAsTheWallThatTheyShare) {
  forRandomPlans(kPlans, [](const PlanData& data, const Plan& plan) {
    const double height = 3.0 * tipoRow(data.tipo).planStoreys;
    PerFacade<double> street{}, courtyard{};
    for (const Bay& bay : report::bays(PlanCells(plan))) {
      (bay.courtyard ? courtyard : street)[bay.side] += bay.length() * height;
    }
    for (std::size_t side = 0; side < 4; ++side) {
      const double room = 1e-4 * plan.superficieFachada[side] + 0.05;
      EXPECT_NEAR(plan.superficieFachada[side], street[side], room) << side;
      EXPECT_NEAR(plan.superficiePatio[side], courtyard[side], room) << side;
    }
  });
}

TEST(Rooms, TheirAreasAddUpAsTheFamilySays) {
  forRandomPlans(kPlans, [](const PlanData& data, const Plan& plan) {
    double built = 0, open = 0;
    for (const Room& room : report::rooms(plan)) {
      (room.name == "Patio" ? open : built) += room.area * room.count;
    }
    EXPECT_NEAR(data.areaPlanta, built, 1e-4 * data.areaPlanta);
    const bool hasCourtyard = tipoRow(data.tipo).courtyards != CourtyardPlace::kNoCourtyard;
    EXPECT_NEAR(hasCourtyard ? data.areaPatio : 0, open, 1e-4 * data.areaPlanta);
  });
}

TEST(PlanDrawing, NamesAFacadeByItsIndexAndByWhereItLooks) {
  const PlanData house{.tipo = 1, .areaPlanta = 110, .longitudFachada = 11};
  const struct {
    double giro;
    const char* looks;
  } cases[] = {{0, "mira al sur, 180°"},
               {90, "mira al oeste, 270°"},
               {-45, "mira al sureste, 135°"},
               {202.5, "mira al norte, 22,5°"},
               {360, "mira al sur, 180°"}};
  for (const auto& c : cases) {
    const Drawing drawing = drawn(house, planOf(house), c.giro);
    const auto name = std::ranges::find(drawing.labels, "Fachada principal «sur»", &Label::text);
    ASSERT_LT(name - drawing.labels.begin() + 1, std::ssize(drawing.labels));
    EXPECT_EQ(c.looks, std::next(name)->text);
  }
}

TEST(PlanDrawing, NorthTurnsToTheLeftWhenTheBuildingTurnsToTheRight) {
  const PlanData house{.tipo = 1, .areaPlanta = 110, .longitudFachada = 11};
  const Drawing drawing = drawn(house, planOf(house), 90);
  const auto arrow = std::ranges::find(drawing.shapes, Sign::kNorth, &Shape::sign);
  ASSERT_NE(drawing.shapes.end(), arrow);
  EXPECT_NEAR(arrow->lines[0][0].y, arrow->lines[0][1].y, 1e-9);
  EXPECT_GT(arrow->lines[0][0].x, arrow->lines[0][1].x);
}

TEST(PlanDrawing, TheMeasuresOfAChainAddUpToItsTotalAsPrinted) {
  Drawing drawing;
  const report::Chain thirds{{0, 40, 80, 120}, {0, 10.0 / 3, 20.0 / 3, 10}};
  report::addChain(drawing, report::ChainSide::kBelow, thirds, 8, 0);
  std::vector<std::string> texts;
  for (const Label& label : drawing.labels) texts.push_back(label.text);
  EXPECT_EQ((std::vector<std::string>{"3,33", "3,34", "3,33"}), texts);
}

TEST(PlanDrawing, AChainNeverMixesAFacadeWithTheCourtyardBehindIt) {
  const PlanData data{
      .tipo = 13, .areaPlanta = 454, .areaPatio = 30, .longitudFachada = 22, .profundidadPatio = 5};
  const Drawing drawing = drawn(data, planOf(data));
  const auto bays = std::ranges::count_if(drawing.labels, [](const Label& label) {
    return label.text == "3,66" || label.text == "3,67";
  });
  EXPECT_EQ(12, bays) << "six bays below and six on the left";
  EXPECT_FALSE(says(drawing, "0,67")) << "from a bay's end to the courtyard's";
}

TEST(PlanDrawing, ACourtyardInTheEdgeHasItsLength) {
  const PlanData data{.tipo = 18,
                      .areaPlanta = 230.4F,
                      .areaPatio = 18,
                      .areaEscalera = 12,
                      .longitudFachada = 18,
                      .profundidadPatio = 3.6F,
                      .profundidadEscalera = 3.2F};
  EXPECT_TRUE(says(drawn(data, planOf(data)), "3,60"))
      << "its two bays are too narrow for measures";
}

TEST(PlanDrawing, TheLastMeasureOfAChainMayStandBesideIt) {
  const PlanData data{
      .tipo = 12, .areaPlanta = 513.5F, .areaEscalera = 45.5F, .longitudFachada = 39.5F};
  EXPECT_TRUE(says(drawn(data, planOf(data)), "3,50")) << "the stair at the end";
}

TEST(PlanDrawing, StairsAndCourtyardsHaveTheirNames) {
  forRandomPlans(kPlans, [](const PlanData& data, const Plan& plan) {
    const Drawing drawing = drawn(data, plan);
    const auto count = [&](const char* text) {
      return std::ranges::count(drawing.labels, text, &Label::text);
    };
    const bool hasStair = std::ranges::count(plan.outlines, Role::kStair, &Outline::role) > 0;
    const bool hasCourtyard = tipoRow(data.tipo).courtyards != CourtyardPlace::kNoCourtyard;
    EXPECT_EQ(hasStair ? 2 : 0, count("Escalera")) << "in the drawing and in the list of areas";
    EXPECT_EQ(hasCourtyard ? 2 : 0, count("Patio"));
  });
}

TEST(PlanDrawing, AReportsPlanIsPrintedTrueToScale) {
  forRandomPlans(kPlans, [](const PlanData& data, const Plan& plan) {
    report::PlanSheet sheet;
    sheet.data = data;
    sheet.plan = plan;
    sheet.title = "una casa";
    const Drawing drawing = planDrawing(sheet, report::PlanPaper::kReport);
    EXPECT_LE(drawing.width, report::kReportWidth + 0.01);
    EXPECT_LE(drawing.height, 228);
  });
  // Too wide for 1:200 on an upright page, and much too small at 1:500.
  const PlanData wide{.tipo = 10, .areaPlanta = 363, .areaEscalera = 33, .longitudFachada = 33};
  report::PlanSheet sheet;
  sheet.data = wide;
  sheet.plan = planOf(wide);
  const Drawing drawing = planDrawing(sheet, report::PlanPaper::kReport);
  EXPECT_TRUE(says(drawing, "Escala 1:250. Cotas en metros."));
}

TEST(PlanDrawing, NoLineCrossesTheTextOfEqualParts) {
  Drawing drawing;
  report::Chain six;
  for (int i = 0; i <= 6; ++i) {
    six.places.push_back(i * 5.85);
    six.metres.push_back(i * 1.17);
  }
  report::addEqualParts(drawing, report::ChainSide::kBelow, six, 8, 0);
  ASSERT_EQ(1U, drawing.labels.size());
  EXPECT_EQ("6 × 1,17", drawing.labels[0].text);
  const Box text = report::boxOf(drawing.labels[0]);
  for (const Shape& shape : drawing.shapes) {
    for (const auto& line : shape.lines) {
      const auto [x0, x1] = std::minmax(line.front().x, line.back().x);
      const auto [y0, y1] = std::minmax(line.front().y, line.back().y);
      EXPECT_FALSE(report::touch(text, {x0 - 0.01, y0 - 0.01, x1 + 0.01, y1 + 0.01}));
    }
  }
}

TEST(Wrapped, LosesNothingOfALongWord) {
  const struct {
    const char* why;
    std::string text;
    std::vector<std::string> lines;
  } cases[] = {
      {"behind its signs",
       "bloque-escalera-patios-laterales-15",
       {"bloque-escalera-patios-", "laterales-15"}},
      {"anywhere", std::string(30, 'N'), {std::string(18, 'N'), std::string(12, 'N')}},
      {"words as they come", "una casa", {"una casa"}},
      {"nothing", "", {}},
  };
  for (const auto& c : cases) {
    const auto lines = report::wrapped(c.text, report::kMedium, 72);
    EXPECT_EQ(c.lines, lines) << c.why;
    for (const std::string& line : lines) {
      EXPECT_LE(report::textWidth(line, report::kMedium), 72) << c.why;
    }
  }
  const auto cut = report::wrapped(std::string(250, 'N'), report::kMedium, 72, 3);
  ASSERT_EQ(3U, cut.size());
  EXPECT_TRUE(cut.back().ends_with("…"));
  EXPECT_LE(report::textWidth(cut.back(), report::kMedium), 72);
}

TEST(PlanDrawing, ANeighboursSideIsAPartyWall) {
  const PlanData house{.tipo = 2, .areaPlanta = 54, .longitudFachada = 6};
  report::PlanSheet sheet;
  sheet.data = house;
  sheet.plan = planOf(house);
  sheet.party = {false, true, false, true};
  const Drawing drawing = report::planDrawing(sheet);
  const auto party = std::ranges::find(drawing.shapes, Sign::kParty, &Shape::sign);
  ASSERT_NE(drawing.shapes.end(), party);
  EXPECT_EQ(2U, party->lines.size());
  EXPECT_TRUE(says(drawing, "Medianera «este»"));
  EXPECT_TRUE(says(drawing, "Fachada principal «sur»"));
}

TEST(PlanDrawing, TheNeighbourOfASideCourtyardStandsWhereItsShadeIs) {
  PlanData data{.tipo = 15,
                .areaPlanta = 480,
                .areaPatio = 40,
                .areaEscalera = 20,
                .longitudFachada = 26,
                .profundidadPatio = 5,
                .profundidadEscalera = 4};
  const struct {
    int tipo;
    std::size_t walls;
  } cases[] = {{15, 1}, {18, 1}, {21, 2}};
  for (const auto& c : cases) {
    data.tipo = c.tipo;
    const Drawing drawing = drawn(data, planOf(data));
    const auto party = std::ranges::find(drawing.shapes, Sign::kParty, &Shape::sign);
    ASSERT_NE(drawing.shapes.end(), party) << c.tipo;
    EXPECT_EQ(c.walls, party->lines.size()) << c.tipo;
  }
}
