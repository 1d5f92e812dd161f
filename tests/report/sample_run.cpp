#include "report/sample_run.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <stdexcept>

#include "bdl/valores_por_defecto.h"
#include "core/fichero.h"
#include "core/output_lines.h"
#include "core/platform.h"
#include "core/run_ended.h"
#include "generator/generation_sequence.h"
#include "report/sample_plans.h"
#include "typology/tipo.h"

namespace fs = std::filesystem;

namespace {

class NoProgress : public TProgressBar {
 public:
  int GetPosition() const override { return 0; }
  void SetPosition(int) override {}
};

/// The folder of the samples that holds a building of the number; "" when there is none.
std::string folderFor(int tipo) {
  const std::string file = std::string(tipo < 10 ? "tipo-0" : "tipo-") + std::to_string(tipo);
  for (const auto& folder : fs::directory_iterator(fs::path(SOURCE_FOLDER) / "samples")) {
    if (fs::exists(folder.path() / (file + ".tip"))) return folder.path().filename().string();
  }
  ADD_FAILURE() << "no folder of samples/ holds " << file
                << ".tip: tools/sample_buildings makes a building for each number";
  return {};
}

std::string line(const char* key, double value) {
  char text[80];
  std::snprintf(text, sizeof text, "   %s = %.4f\n", key, value);
  return text;
}

std::string percentages(std::mt19937& random) {
  std::string list;
  for (int i = 0; i < 4; ++i) {
    const auto draw = random() % 6;
    const auto value = draw == 0 ? 0U : draw == 1 ? 130U : static_cast<unsigned>(random() % 100);
    list += (i == 0 ? "( " : ", ") + std::to_string(value);
  }
  return list + " )\n";
}

std::string typologyText(const PlanData& plan, std::mt19937& random, int storeys) {
  const StoreyRule& rule = tipoRow(plan.tipo).storeys;
  const int most = static_cast<int>(3 + random() % 6);
  if (storeys == 0) storeys = rule.most == kAnyNumber ? most : rule.most;
  std::string text = "\"Al azar\" = VIVIENDA\n   TIPO = " + std::to_string(plan.tipo) +
                     "\n   NUMERO-PLANTAS = " + std::to_string(storeys) + "\n";
  text += line("ALTURA-PLANTA", 2.4 + static_cast<double>(random() % 12) / 10);
  text += line("AREA-PLANTA", static_cast<double>(plan.areaPlanta));
  text += line("AREA-PATIO", static_cast<double>(plan.areaPatio));
  text += line("AREA-ESCALERA", static_cast<double>(plan.areaEscalera));
  text += line("LONGITUD-FACHADA", static_cast<double>(plan.longitudFachada));
  text += line("PROFUNDIDAD-PATIO", static_cast<double>(plan.profundidadPatio));
  text += line("PROFUNDIDAD-ESCALERA", static_cast<double>(plan.profundidadEscalera));
  text += "   PORCENTAJE-FACHADA = " + percentages(random);
  text += "   PORCENTAJE-PATIO = " + percentages(random);
  text += line("ORIENTACION", static_cast<double>(random() % 360));
  for (const char* name : {"MUROS-FACHADA", "PARTICION-INTERIOR-VERTICAL", "MEDIANERA", "SUELOS",
                           "PARTICION-INTERIOR-HORIZONTAL", "CUBIERTAS", "VENTANA-VIDRIO"}) {
    text += std::string("   ") + name + " = \"C-" + name + "\"\n";
  }
  return text + "   ..\n";
}

SourceText sample(const std::string& name) {
  return fichero(std::string(SOURCE_FOLDER) + "/samples/" + name, "lectura").takeText();
}

}  // namespace

SampleRun sampleRun(const PlanData& plan, std::mt19937& random, int storeys,
                    const SampleRun* other) {
  SampleRun run;
  run.typologyText = typologyText(plan, random, storeys);
  const std::string folder = folderFor(plan.tipo);
  const auto fault = faultOf([&] {
    const ValoresPorDefecto defaults(sample(folder + "/defectos.inp"));
    run.plantilla = other != nullptr
                        ? other->plantilla
                        : std::make_shared<Template>(sample(folder + "/" + folder + ".bdl"),
                                                     sample(folder + "/" + folder + ".tbl"));
    run.typology = std::make_unique<TypologyRecord>(SourceText("azar.tip", run.typologyText));
    run.report.program = "tip2bdl 0.0.0";
    addTypology(run.report, *run.typology);
    OutputLines lines;
    NoProgress bar;
    generate(*run.plantilla, *run.typology, lines, bar);
    run.output = lines.text();
    addBuilding(run.report, *run.typology, *run.plantilla, run.output);
  });
  // Whoever goes on would look at a report without a building.
  if (fault) throw std::runtime_error("TIPO " + std::to_string(plan.tipo) + ": " + fault->message);
  return run;
}

void forRandomRuns(const std::function<void(const SampleRun&)>& body) {
  std::mt19937 random(4711);
  forRandomPlans(5, [&](const PlanData& data, const Plan&) { body(sampleRun(data, random)); });
}
