#include "report/form_reader.h"

#include <gtest/gtest.h>

#include <map>

#include "generator/generation_sequence.h"
#include "report/measures.h"
#include "report/sample_plans.h"
#include "report/sample_run.h"

namespace {

/// A sample's template, and what has been read of buildings of it.
struct Known {
  explicit Known(const Template& sample)
      : plantilla(SourceText("casa.bdl", sample.building().bytes()),
                  SourceText("casa.tbl", sample.tableText().bytes()), Template::Use::kOften),
        original(plantilla.copiedText(), plantilla.table()) {}

  Template plantilla;
  report::OriginalBuilding original;
  BuildingForms forms{plantilla};
  std::map<std::shared_ptr<const BuildingForm>, report::FormReader> readers;
};

/// All figures of a building, those of its parts too.
std::vector<double> figuresOf(const report::GeneratedBuilding& building, const SampleRun& run) {
  std::vector<double> figures;
  for (const auto& floor : building.floors) {
    figures.insert(figures.end(), {floor.height, static_cast<double>(floor.multiplier)});
  }
  for (const auto& space : building.spaces) {
    figures.insert(figures.end(), {space.area, space.height, static_cast<double>(space.outline)});
  }
  for (const auto& wall : building.surfaces) {
    figures.insert(figures.end(), {static_cast<double>(wall.kind), wall.area, wall.x0, wall.y1});
  }
  for (const auto& window : building.windows) {
    figures.insert(figures.end(), {window.x, window.y, window.width, window.height,
                                   static_cast<double>(window.wall)});
  }
  for (const int lost : building.lostStreet) figures.push_back(lost);
  for (const int lost : building.lostCourtyard) figures.push_back(lost);
  const report::Measures measures =
      report::measure(building, run.plan(),
                      {run.typology->porcentajeFachada, run.typology->porcentajePatio,
                       static_cast<double>(run.typology->orientacion)});
  figures.insert(figures.end(), {measures.floorArea, measures.compactness, measures.openings,
                                 static_cast<double>(measures.facades.size())});
  return figures;
}

}  // namespace

TEST(FormReader, ReadsWhatIsReadOfEachBuildingAlone) {
  std::map<std::string, Known> known;
  std::size_t forms = 0, buildings = 0;
  std::mt19937 random(4711);
  forRandomPlans(12, [&](const PlanData& data, const Plan&) {
    const SampleRun run = sampleRun(data, random);
    TypologyRecord typology = *run.typology;
    // A text that comes into every window, with lines that mean something or none.
    if (++buildings % 5 == 0) typology.textoMarco = "  WIDTH = 9";
    if (buildings % 7 == 0) typology.textoSombra = "\"Ventana\" = WINDOW";
    if (buildings % 11 == 0) typology.textoMarco = "  ..";

    const std::string text(run.plantilla->building().bytes());
    Known& of = known.try_emplace(text, *run.plantilla).first->second;
    OutputLines lines, unused;
    generate(of.plantilla, typology, lines);
    WrittenPieces pieces;
    const auto form = of.forms.generate(typology, pieces, unused);
    ASSERT_NE(nullptr, form);
    const auto [reader, isNew] = of.readers.try_emplace(form, form, of.original);
    forms += isNew ? 1 : 0;
    EXPECT_EQ(figuresOf(report::readBuilding(lines, typology.textoTipologia(), of.original,
                                             run.plan(), report::Names::kLeftOut),
                        run),
              figuresOf(reader->second.read(pieces, run.plan()), run));
  });
  EXPECT_LT(forms, buildings) << "too many forms";
}
