#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <variant>

#include "plan/families.h"
#include "plan_input.h"
#include "support/temporary_folder.h"
#include "typology/kinds_of_buildings.h"

namespace fs = std::filesystem;

// The search for inputs that break a plan begins with one that is drawn, for each kind of building.

TEST(PlanCorpus, HasAPlanOfEachKindOfBuilding) {
  const fs::path corpus = fs::path(SOURCE_FOLDER) / "fuzz" / "corpus" / "plan";
  std::set<std::pair<PlanFamily, int>> drawn;  // family, storeys of the plan
  for (const auto& file : fs::directory_iterator(corpus)) {
    const std::string bytes = readFile(file.path().string());
    const PlanData data =
        PlanInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()).takePlan();
    const TipoRow& row = tipoRow(data.tipo);
    if (std::holds_alternative<Plan>(planTipologia(data))) {
      drawn.emplace(row.family, row.planStoreys);
    }
  }
  for (const int tipo : oneTipoAKind()) {
    const TipoRow& row = tipoRow(tipo);
    EXPECT_TRUE(drawn.contains({row.family, row.planStoreys}))
        << "no input of fuzz/corpus/plan draws TIPO " << tipo << ", \""
        << familyRow(row.family).name << "\": add one, written as fuzz/plan_input.h says";
  }
}
