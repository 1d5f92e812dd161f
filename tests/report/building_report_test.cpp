#include "report/building_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>

#include "core/output_lines.h"
#include "core/platform.h"
#include "generator/generation_sequence.h"
#include "report/sample_plans.h"
#include "report/sample_run.h"
#include "typology/kinds_of_buildings.h"

using report::FacadeMeasure;
using report::GlazingReason;
using report::Measures;

namespace {

class NoBar : public TProgressBar {
 public:
  int GetPosition() const override { return 0; }
  void SetPosition(int /*position*/) override {}
};

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
    EXPECT_EQ(tipoRow(run.typology->tipo).family == PlanFamily::kHouse ? 1 : 4 * m.storeys,
              m.dwellings);
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

TEST(BuildingReport, ABuildingReadFromItsLinesIsTheOneReadFromItsText) {
  forRandomRuns([](const SampleRun& run) {
    const Template often(SourceText("casa.bdl", run.plantilla->building().bytes()),
                         SourceText("casa.tbl", run.plantilla->tableText().bytes()),
                         Template::Use::kOften);
    OutputLines lines;
    NoBar bar;
    generate(often, *run.typology, lines, bar);
    ASSERT_EQ(run.output, lines.text());
    const report::OriginalBuilding original(often.copiedText(), often.table());
    report::Report other = run.report;
    const auto read = [&](report::Names names) {
      return report::readBuilding(lines, run.typology->textoTipologia(), original, run.plan(),
                                  names);
    };
    other.building = read(report::Names::kKept);
    other.building->commands = run.building().commands;
    other.building->nightFactor = run.building().nightFactor;
    other.measures =
        report::measure(read(report::Names::kLeftOut), run.plan(),
                        {run.typology->porcentajeFachada, run.typology->porcentajePatio,
                         static_cast<double>(run.typology->orientacion)});
    other.measures->spaces = report::measureSpaces(*other.building, run.plan());
    EXPECT_EQ(asJson(run.report), asJson(other));
    EXPECT_EQ(asHtml(run.report), asHtml(other));
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

TEST(BuildingReport, APartitionCountsForBothOfItsSpacesAndOnceForTheBuilding) {
  forRandomRuns([](const SampleRun& run) {
    const Measures& m = run.measures();
    double spaces = 0;
    for (const auto& space : m.spaces) {
      spaces += space.partition;
      EXPECT_EQ(m.spaces.size() > 1, space.partition > 0) << space.name;
    }
    EXPECT_NEAR(2 * m.partition / static_cast<double>(m.storeys), spaces, 1e-3 * spaces + 1e-6);
  });
}

TEST(BuildingReport, TheDirectionsHoldAllWalls) {
  forRandomRuns([](const SampleRun& run) {
    const Measures& m = run.measures();
    double facade = 0, courtyard = 0, party = 0, openings = 0;
    for (const auto& each : m.byDirection) {
      facade += each.facade;
      courtyard += each.courtyard;
      party += each.party;
      openings += each.openings;
    }
    EXPECT_NEAR(m.facade, facade, 0.01);
    EXPECT_NEAR(m.courtyard, courtyard, 0.01);
    EXPECT_NEAR(m.party, party, 0.01);
    EXPECT_NEAR(m.openings, openings, 0.01);
  });
}

TEST(BuildingReport, ATemplateOfAnotherBuildingIsToldFirstOfAll) {
  std::mt19937 random(11);
  const SampleRun block = sampleRun({.tipo = 23,
                                     .areaPlanta = 440,
                                     .areaEscalera = 25,
                                     .longitudFachada = 22,
                                     .profundidadEscalera = 5},
                                    random);
  const SampleRun house =
      sampleRun({.tipo = 5, .areaPlanta = 72, .longitudFachada = 8}, random, 0, &block);
  EXPECT_FALSE(house.building().followsPlan());
  const std::string html = asHtml(house.report);
  EXPECT_NE(std::string::npos, html.find("La plantilla no parece de esta tipología."));
  EXPECT_EQ(std::string::npos, html.find("id=\"alzado1")) << "its walls are not those of the plan";
  EXPECT_TRUE(house.report.sheet->windows.empty());
  for (const FacadeMeasure& facade : house.measures().facades) {
    if (facade.windows > 0) {
      EXPECT_EQ(1, std::ranges::count(facade.reasons, GlazingReason::kOtherWalls));
    }
  }
  EXPECT_EQ(std::string::npos, asHtml(block.report).find("La plantilla no parece"));
}

TEST(BuildingReport, TellsTheSummerNightsAsTheRunWroteThem) {
  std::mt19937 random(2);
  const SampleRun run = sampleRun({.tipo = 1, .areaPlanta = 110, .longitudFachada = 11}, random);
  EXPECT_NEAR(4, run.building().nightFactor * run.report.identity->airChanges, 1e-4);
  EXPECT_NE(std::string::npos, asHtml(run.report).find("Noches de verano: 4,0\u00A0ren/h"));
}

TEST(BuildingReport, NamesTheKeywordsOfFrameShadeAndPlace) {
  report::Report report;
  const TypologyRecord typology(SourceText(
      "casa.tip",
      "\"Una casa\" = VIVIENDA\n TIPO = 1\n NUMERO-PLANTAS = 1\n AREA-PLANTA = 110\n"
      " LONGITUD-FACHADA = 11\n PORCENTAJE-FACHADA = ( 1, 2, 3, 4 )\n MUROS-FACHADA = M\n"
      " PARTICION-INTERIOR-VERTICAL = P\n MEDIANERA = N\n SUELOS = S\n"
      " PARTICION-INTERIOR-HORIZONTAL = H\n CUBIERTAS = C\n VENTANA-VIDRIO = V\n"
      " VENTANA-MARCO = \"Pino\"\n ..\n"
      "\"Otro\" = NAME-FRAME\n FRAME-WIDTH = 9\n ..\n"
      "\"Pino\" = NAME-FRAME\n FRAME-WIDTH = 0.12\n ..\n"));
  addTypology(report, typology);
  const report::Datum& last = report.data.back();
  EXPECT_EQ("Pino = NAME-FRAME", last.command);
  EXPECT_EQ("FRAME-WIDTH", last.keyword);
  EXPECT_EQ("0.12", last.value);
  EXPECT_EQ(20, last.line);
}

TEST(BuildingReport, WhatNoRunReadsHasTheLineWhereItIsWritten) {
  const auto lineOf = [](std::string_view keyword, const std::string& lines) {
    report::Report report;
    std::vector<Fault> faults;
    addTypology(report, TypologyRecord(SourceText("casa.tip", "\"C\" = VIVIENDA\n CUBIERTAS = C\n" +
                                                                  lines + " ..\n"),
                                       faults));
    return std::ranges::find(report.data, keyword, &report::Datum::keyword)->line;
  };
  EXPECT_EQ(0, lineOf("CUBIERTA", " ATICO = NO\n"));
  EXPECT_EQ(3, lineOf("ATICO", " ATICO = NO\n"));
  EXPECT_EQ(4, lineOf("CUBIERTA", " ATICO = NO\n CUBIERTA = PLANA\n"));
}

TEST(BuildingReport, ARefusedTypologySaysWhichItIs) {
  report::Report report;
  report.fault = Fault{"No vale", std::nullopt};
  report.identity = {"Mi casa", 5, 2, 0, 1};
  const std::string html = asHtml(report);
  EXPECT_NE(std::string::npos, html.find("<h1>Mi casa</h1>"));
  EXPECT_NE(std::string::npos, html.find("Tipología 5: casa de dos plantas."));
  const auto json = nlohmann::json::parse(asJson(report));
  EXPECT_EQ(5, json["identificacion"]["tipo"]);
  EXPECT_EQ("Mi casa", json["identificacion"]["titulo"]);
  report.identity->title.clear();
  EXPECT_NE(std::string::npos, asHtml(report).find("<h1>Tipología 5</h1>")) << "never an empty one";
}

TEST(BuildingReport, StaysBelowTwoHundredKilobytesHoweverManyStoreys) {
  std::mt19937 random(3);
  for (const int tipo : oneBlockAKind()) {
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
  report.data = {{"", "TIPO", "1", "", "casa.tip", 2}};
  const std::string html = asHtml(report);
  EXPECT_NE(std::string::npos, html.find("No vale á &lt;script&gt;"));
  EXPECT_NE(std::string::npos, html.find("casa.tip:3:2: X = &lt;b&gt;"));
  EXPECT_EQ(std::string::npos, html.find("<script"));
  const auto json = nlohmann::json::parse(asJson(report));
  EXPECT_EQ(false, json["completo"]);
  EXPECT_EQ("No vale á <script>", json["falta"]["mensaje"]);
}
