#include "report/building_views.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "report/sample_plans.h"
#include "report/sample_run.h"
#include "report/sheet.h"
#include "report/svg_writer.h"

using report::Box;
using report::Drawing;
using report::FacadeMeasure;
using report::Label;
using report::Shape;
using report::Sign;

TEST(Elevation, FitsAPrintedPageAndMeasuresItsParts) {
  forRandomRuns([](const SampleRun& run) {
    const int scale = report::elevationScale(run.building(), run.plan());
    for (const FacadeMeasure& facade : run.measures().facades) {
      const Drawing drawing =
          report::elevation(run.building(), run.plan(), facade.side, facade.courtyard, 0, scale);
      EXPECT_LE(drawing.width, report::kReportWidth);
    }
  });
  std::mt19937 random(4);
  const SampleRun run = sampleRun({.tipo = 15,
                                   .areaPlanta = 480,
                                   .areaPatio = 40,
                                   .areaEscalera = 20,
                                   .longitudFachada = 26,
                                   .profundidadPatio = 5,
                                   .profundidadEscalera = 4},
                                  random);
  const auto texts = [&](Facade side, bool courtyard) {
    std::vector<std::string> found;
    for (const Label& label :
         report::elevation(run.building(), run.plan(), side, courtyard, 0, 200).labels) {
      if (!label.turned && label.anchor == report::Anchor::kMiddle) found.push_back(label.text);
    }
    return found;
  };
  EXPECT_EQ((std::vector<std::string>{"4,00", "18,00", "4,00"}), texts(kSouth, true));
  EXPECT_EQ((std::vector<std::string>{"7,50", "5,00", "7,50", "20,00"}), texts(kEast, false));
}

TEST(Elevation, DrawsEveryWindowOfEveryStorey) {
  forRandomRuns([](const SampleRun& run) {
    const int scale = report::elevationScale(run.building(), run.plan());
    for (const FacadeMeasure& facade : run.measures().facades) {
      const Drawing drawing =
          report::elevation(run.building(), run.plan(), facade.side, facade.courtyard, 30, scale);
      const auto glass = std::ranges::find(drawing.shapes, Sign::kGlass, &Shape::sign);
      const std::size_t drawn = glass == drawing.shapes.end() ? 0 : glass->lines.size();
      EXPECT_EQ(static_cast<std::size_t>(facade.windows), drawn);
    }
  });
}

TEST(Elevation, NoLabelTouchesAnother) {
  forRandomRuns([](const SampleRun& run) {
    const int scale = report::elevationScale(run.building(), run.plan());
    for (const FacadeMeasure& facade : run.measures().facades) {
      const Drawing drawing =
          report::elevation(run.building(), run.plan(), facade.side, facade.courtyard, 0, scale);
      for (std::size_t i = 0; i < drawing.labels.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) {
          EXPECT_FALSE(
              report::touch(report::boxOf(drawing.labels[i]), report::boxOf(drawing.labels[k])))
              << drawing.labels[i].text << " / " << drawing.labels[k].text;
        }
      }
    }
  });
}

TEST(Elevation, IsNamedByWhereItLooks) {
  EXPECT_EQ("Alzado sureste (135°), fachada principal «sur»",
            report::elevationTitle(kSouth, false, -45));
  EXPECT_EQ("Patio, pared que mira al norte (0°)", report::elevationTitle(kNorth, true, 0));
}

TEST(Axonometric, TheNorthArrowStandsBesideTheBuilding) {
  std::mt19937 random(8);
  for (const double giro : {0.0, 37.0, 45.0, 135.0, 250.0, 300.0}) {
    const SampleRun run = sampleRun(randomPlan(23, random), random, 12);
    const Drawing drawing = report::axonometric(run.building(), run.plan(), giro);
    ASSERT_EQ(1U, drawing.labels.size());
    const Box letter = report::boxOf(drawing.labels[0]);
    for (const Shape& shape : drawing.shapes) {
      if (shape.sign != Sign::kLitWall && shape.sign != Sign::kShadedWall) continue;
      for (const auto& line : shape.lines) {
        for (const auto& p : line) {
          EXPECT_FALSE(p.y > letter.y0 && p.x > letter.x0) << giro;
        }
      }
    }
  }
}

TEST(Axonometric, ACourtyardNeverShowsThroughTheFacade) {
  std::mt19937 random(6);
  const SampleRun run = sampleRun({.tipo = 13,
                                   .areaPlanta = 3990,
                                   .areaPatio = 600,
                                   .longitudFachada = 60,
                                   .profundidadPatio = 20},
                                  random, 20);
  for (const double giro : {45.0, 135.0, 225.0, 315.0}) {
    const Drawing drawing = report::axonometric(run.building(), run.plan(), giro);
    // Walls come from the back to the front: the far one of the courtyard, then the façade.
    double highest = 1e9;
    std::vector<double> tops;
    for (const Shape& shape : drawing.shapes) {
      if (shape.sign != Sign::kLitWall && shape.sign != Sign::kShadedWall) continue;
      double top = 1e9;
      for (const auto& p : shape.lines[0]) top = std::min(top, p.y);
      tops.push_back(top);
      highest = std::min(highest, top);
    }
    ASSERT_GT(tops.size(), 2U);
    for (std::size_t i = 1; i < tops.size(); ++i) EXPECT_GE(tops[i], tops[i - 1] - 0.01) << giro;
  }
}
