#include "report/building_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>

#include "report/building_views.h"
#include "report/sample_plans.h"
#include "report/sample_run.h"
#include "report/svg_writer.h"
#include "typology/tipo.h"

using report::Drawing;
using report::FacadeMeasure;
using report::GlazingReason;
using report::Label;
using report::Measures;
using report::Shape;
using report::Sign;

namespace {

constexpr int kRuns = 5;  // of each family

void forRandomRuns(const std::function<void(const SampleRun&)>& body, int runs = kRuns) {
  std::mt19937 random(4711);
  forRandomPlans(runs, [&](const PlanData& data, const Plan&) { body(sampleRun(data, random)); });
}

/// Sum of WIDTH x HEIGHT over the windows of a generated building, each as often as its storey
/// stands: read without the reader that is tested.
double openingsWrittenIn(const std::string& output) {
  std::istringstream lines(output);
  double sum = 0, width = 0, floors = 1, multiplier = 1;
  std::string type;
  for (std::string line; std::getline(lines, line);) {
    const auto value = [&] { return std::atof(line.c_str() + line.find('=') + 1); };
    const auto is = [&](const char* key) {
      return line.find(key) == line.find_first_not_of(' ') && line.find('=') != line.npos;
    };
    if (line.starts_with('"') && line.find("FRAME-WIDTH") == line.npos) {
      const std::size_t word = line.rfind(' ') + 1;
      type = line.substr(word);
    }
    if (is("MULTIPLIER")) (type == "FLOOR" ? floors : multiplier) = value();
    if (type != "WINDOW") continue;
    if (is("WIDTH")) width = value();
    if (is("HEIGHT")) sum += width * value() * floors * multiplier;
  }
  return sum;
}

}  // namespace

TEST(BuildingReport, TheOpeningsAreThoseThatTheRunWrote) {
  forRandomRuns([](const SampleRun& run) {
    double sum = 0;
    for (const FacadeMeasure& facade : run.measures().facades) sum += facade.openings;
    EXPECT_NEAR(openingsWrittenIn(run.output), sum, 0.01);
    EXPECT_NEAR(run.measures().openings, sum, 1e-9);
  });
}

TEST(BuildingReport, AreasAndVolumeAddUpAsTheFamilySays) {
  forRandomRuns([](const SampleRun& run) {
    const Measures& m = run.measures();
    const double A = static_cast<double>(run.typology->areaPlanta);
    const double h = static_cast<double>(run.typology->alturaPlanta);
    const double room = 2e-4 * A;
    const auto storeys = static_cast<double>(m.storeys);
    EXPECT_NEAR(A, m.footprint, room);
    EXPECT_NEAR(A * storeys, m.floorArea, room * storeys);
    EXPECT_NEAR(A * h * storeys, m.volume, room * h * storeys);
    EXPECT_NEAR(A, m.roof, room);
    EXPECT_NEAR(A, m.ground, room);
    EXPECT_NEAR(A * (storeys - 1), m.slabs, room * storeys);
    EXPECT_EQ(run.typology->numeroPlantas, m.storeys);
    EXPECT_EQ(run.typology->tipo < 10 ? 1 : 4 * m.storeys, m.dwellings);
    double spaces = 0;
    for (const auto& space : m.spaces) spaces += space.area;
    EXPECT_NEAR(A, spaces, room);
  });
}

TEST(BuildingReport, EveryFacadeIsAsLongAsItsFamilySays) {
  forRandomRuns([](const SampleRun& run) {
    const Measures& m = run.measures();
    const double sizing = 3.0 * tipoRow(run.typology->tipo).planStoreys;
    for (const FacadeMeasure& facade : m.facades) {
      const auto& surfaces =
          facade.courtyard ? run.plan().superficiePatio : run.plan().superficieFachada;
      const double length = static_cast<double>(surfaces[facade.side]) / sizing;
      const double height = m.storeyHeight * static_cast<double>(m.storeys);
      EXPECT_NEAR(length * height, facade.wall, 1e-4 * facade.wall + 0.1)
          << facade.side << facade.courtyard;
    }
  });
}

TEST(BuildingReport, WhatIsObtainedIsWhatIsAskedTimesThreeOverTheStoreyHeight) {
  forRandomRuns([](const SampleRun& run) {
    const Measures& m = run.measures();
    for (const FacadeMeasure& facade : m.facades) {
      const bool capped = std::ranges::count(facade.reasons, GlazingReason::kCappedAtBay) > 0;
      const double usual = std::min(facade.asked, 100.0) * 3 / m.storeyHeight;
      EXPECT_NEAR(usual, facade.obtained, 0.02 * usual + 0.02) << facade.side << facade.courtyard;
      EXPECT_EQ(facade.asked > 100, capped);
    }
  });
}

TEST(BuildingReport, AFacadeOfNoGlassSaysThatItsWindowsWereRemoved) {
  forRandomRuns([](const SampleRun& run) {
    for (const FacadeMeasure& facade : run.measures().facades) {
      const bool removed = std::ranges::count(facade.reasons, GlazingReason::kRemoved) > 0;
      EXPECT_EQ(facade.asked <= 0, removed) << facade.side << facade.courtyard;
      EXPECT_EQ(facade.asked <= 0, facade.windows == 0);
    }
  });
}

TEST(BuildingReport, APartyWallWithWindowsIsAFacade) {
  std::mt19937 random(5);
  const PlanData data{.tipo = 2, .areaPlanta = 54, .longitudFachada = 6};
  int closed = 0, open = 0;
  for (int i = 0; i < 20; ++i) {
    const SampleRun run = sampleRun(data, random);
    const bool asked = run.typology->porcentajeFachada[kEast] > 0;
    ++(asked ? open : closed);
    const auto& facades = run.measures().facades;
    EXPECT_EQ(asked, std::ranges::count(facades, kEast, &FacadeMeasure::side) > 0);
    EXPECT_EQ(!asked, run.report.sheet->party[kEast]);
  }
  EXPECT_GT(closed, 0);
  EXPECT_GT(open, 0);
}

TEST(BuildingReport, CompactnessLeavesPartyWallsOut) {
  forRandomRuns([](const SampleRun& run) {
    const Measures& m = run.measures();
    EXPECT_NEAR(m.volume, m.compactness * (m.facade + m.courtyard + m.roof + m.ground), 1e-6);
  });
}

TEST(BuildingReport, EveryCommandOfTheTemplateIsKeptRewrittenOrRemoved) {
  forRandomRuns([](const SampleRun& run) {
    int lost = 0;
    for (const auto& [type, count] : run.building().commands) {
      if (type == "WINDOW") lost = count.removed;
      EXPECT_TRUE(type != "FLOOR" || count.kept == 0);
      EXPECT_TRUE(type != "MATERIAL" || count.rewritten + count.removed == 0);
    }
    int removed = 0;
    for (const int each : run.building().lostStreet) removed += each;
    for (const int each : run.building().lostCourtyard) removed += each;
    EXPECT_EQ(lost, removed);
  });
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

TEST(BuildingReport, StaysBelowTwoHundredKilobytesHoweverManyStoreys) {
  std::mt19937 random(3);
  for (const int tipo : {10, 13, 14, 21, 22, 23}) {
    const SampleRun run = sampleRun(randomPlan(tipo, random), random, 5000);
    EXPECT_LE(asHtml(run.report).size(), 200U * 1024) << tipo;
  }
}

TEST(BuildingReport, TheJsonHasTheSameFiguresAsTheMeasures) {
  forRandomRuns([](const SampleRun& run) {
    const auto json = nlohmann::json::parse(asJson(run.report));
    EXPECT_EQ("tip2bdl-informe", json["esquema"]);
    EXPECT_EQ(1, json["version"]);
    double openings = 0;
    for (const auto& facade : json["fachadas"]) {
      openings += facade["huecos_m2"].get<double>();
      for (const char* key : {"nombre", "lado", "orientacion_grados", "muro_m2", "ventanas",
                              "pedido_pct", "obtenido_pct"}) {
        EXPECT_TRUE(facade.contains(key)) << key;
      }
    }
    EXPECT_NEAR(run.measures().openings, openings, 1e-3);
    EXPECT_NEAR(run.measures().volume, json["medidas"]["volumen_m3"].get<double>(), 1e-3);
  });
}

TEST(BuildingReport, WithoutABuildingItShowsTheFaultAndTheData) {
  report::Report report;
  report.program = "tip2bdl";
  report.fault = Fault{"No vale \xE1 <script>", Place{"casa.tip", 3, 2, 1, "X = <b>"}};
  report.inputs = {{"Tipología", "casa.tip", "", 0}};
  report.data = {{"TIPO", "1", "", "casa.tip", 2}};
  const std::string html = asHtml(report);
  EXPECT_NE(std::string::npos, html.find("No vale á &lt;script&gt;"));
  EXPECT_NE(std::string::npos, html.find("casa.tip:3:2: X = &lt;b&gt;"));
  EXPECT_EQ(std::string::npos, html.find("<script"));
  const auto json = nlohmann::json::parse(asJson(report));
  EXPECT_EQ(false, json["completo"]);
  EXPECT_EQ("No vale á <script>", json["falta"]["mensaje"]);
}
