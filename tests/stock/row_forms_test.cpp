#include "stock/row_forms.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <vector>

#include "core/concat.h"
#include "stock/dwellings.h"
#include "stock/list_columns.h"
#include "stock/list_reader.h"
#include "stock/outputs.h"
#include "stock/stock_run.h"
#include "support/minimal_building.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"

namespace {

constexpr const char* kColumns =
    "ID;TIPO;NUMERO-PLANTAS;ALTURA-PLANTA;AREA-PLANTA;LONGITUD-FACHADA;PORCENTAJE-FACHADA-SUR;"
    "PORCENTAJE-FACHADA-ESTE;PORCENTAJE-FACHADA-NORTE;PORCENTAJE-FACHADA-OESTE;MUROS-FACHADA;"
    "PARTICION-INTERIOR-VERTICAL;MEDIANERA;SUELOS;PARTICION-INTERIOR-HORIZONTAL;CUBIERTAS;"
    "VENTANA-VIDRIO;VENTANA-MARCO;TEXTOS\n";
constexpr const char* kNames = ";M1;PV;ME;SU;PH;CU;VI;M;textos.inp";

// Alike, most of them, but for the digits of their numbers.
const std::vector<std::string> kRows = {
    std::string("A;1;1;2,80;80;10;20,5;0;10;0") + kNames,
    std::string("B;1;1;2,60;95;12;20,7;0;10;0") + kNames,
    std::string("C;1;1;3,00;95;12;120,5;0;10;0") + kNames,
    std::string("D;1;1;3,00;95;12;0,5;0;10;0") + kNames,
    std::string("two storeys, which the number does not have;1;2;3,00;95;12;20,5;0;10;0") + kNames,
    std::string("E;1;2;3,00;95;12;20,5;0;10;0") + kNames,
    std::string("F;1;1;0,00;95;12;20,5;0;10;0") + kNames,
    std::string("G;1;1;2,80;5;12;20,5;0;10;0") + kNames,
    std::string("H;1;1;2,80;95;12;20.500;0;10;0") + kNames,
    std::string("I;1;1;2,80;1e60;12;20,5;0;10;0") + kNames,
    std::string("J;1;1;2,80;9e1;12;20,5;0;10;0") + kNames,
    std::string("K;1;1;2,80;1e1;12;20,5;0;10;0") + kNames,
    std::string("L;99;1;2,80;80;12;20,5;0;10;0") + kNames,
    std::string("M;1;1;;80;10;20,5;0;10;0") + kNames,
    std::string("N;1;1;2,80;80;10;20,5;0;10;0;M 1;PV;ME;SU;PH;CU;VI;ALTURA-PLANTA;textos.inp"),
    std::string("O;1;1;2,80;81;10;20,5;0;10;0;M 1;PV;ME;SU;PH;CU;VI;ALTURA-PLANTA;textos.inp"),
    std::string("P;1;1;;80;10;20,5;0;10;0;AREA-PATIO;PV;ME;SU;PH;CU;VI;;"),
    std::string("Q;1;1;;80;10;20,5;0;10;0;AREA-PATIO;PV;ME;SU;PH;CU;VI;;"),
    std::string("A1;1;1;2,80;80;10;1e39;0;10;0;I;PV;ME;SU;PH;CU;VI;M;textos.inp"),
    std::string("B1;1;1;2,80;80;10;3e01;0;10;0;I;PV;ME;SU;PH;CU;VI;M;textos.inp"),
    std::string("C1;1;1;2,80;80;10;3e01;0;10;0;I;PV;ME;SU;PH;CU;VI;M;textos.inp"),
    // A frame without a name, and none.
    std::string("A2;1;1;2,80;80;10;20,5;0;10;0;E;PV;ME;SU;PH;CU;VI;;nadie.inp"),
    std::string("B2;1;1;2,80;80;10;20,5;0;10;0;E;PV;ME;SU;PH;CU;VI;;nadie.inp"),
    std::string("C2;1;1;2,80;80;10;20,5;0;10;0;E;PV;ME;SU;PH;CU;VI;\"\"\"\"\"\";nadie.inp"),
    std::string("D2;1;1;2,80;80;10;20,5;0;10;0;E;PV;ME;SU;PH;CU;VI;\"\"\"\"\"\";nadie.inp"),
    std::string("E2;1;1;2,80;80;10;20,5;0;10;0;E;PV;ME;SU;PH;CU;VI;\"\"\"\"\"\";nadie.inp"),
    std::string("F2;1;1;2,80;80;10;20,5;0;10;0;E;PV;ME;SU;PH;CU;VI;;nadie.inp"),
    std::string("R;1;1;2,80;82;10;20,5;0;10;0;Muñoz;PV;ME;SU;PH;CU;VI;M;textos.inp"),
    std::string("S;1;1;2,80;83;10;20,5;0;10;0;Muñoz;PV;ME;SU;PH;CU;VI;M;otros.inp"),
};

/// All files of the results but the journal, by their paths.
std::map<std::string, std::string> filesIn(const std::string& folder) {
  std::map<std::string, std::string> found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    const std::filesystem::path path = entry.path();
    if (!entry.is_regular_file() || path.filename().string().starts_with("diario")) continue;
    found[path.lexically_relative(folder).string()] = readBytes(path.string());
  }
  return found;
}

}  // namespace

TEST(RowForms, ARowComesToWhatItComesToAlone) {
  const TemporaryFolder folder;
  const MinimalBuilding building(folder);
  folder.write("textos.inp", "\"M\" = NAME-FRAME\n  FRAME-WIDTH = 0.1\n  ..\n");
  folder.write("otros.inp", "\"M\" = NAME-FRAME\n  FRAME-WIDTH = 0,2\n  ..\n");
  folder.write("nadie.inp", "\"\" = NAME-FRAME\n  FRAME-WIDTH = 0.7\n  ..\n");
  const auto run = [&](const std::string& list, const std::string& results) {
    folder.write("lista.csv", list);
    stock::StockOptions options;
    options.list = folder / "lista.csv";
    options.folder = folder / results;
    options.plantilla = folder / "casa.bdl";
    options.keepTypologies = true;
    runStock(options);
    return filesIn(folder / results);
  };
  std::string all = kColumns;
  for (const std::string& row : kRows) all += row + "\n";
  const auto together = run(all, "r");
  const std::vector<std::string> lines = linesOf(together.at("resultados.csv"));
  ASSERT_EQ(kRows.size() + 1, lines.size());

  std::size_t outputs = 0;
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    SCOPED_TRACE(kRows[i]);
    // In its own line, since a refusal says in which one it stands.
    const auto alone =
        run(kColumns + std::string(i, '\n') + kRows[i] + "\n", "r" + std::to_string(i));
    EXPECT_EQ(linesOf(alone.at("resultados.csv")).at(1), lines[i + 1]);
    for (const auto& [name, bytes] : alone) {
      if (name == "resultados.csv") continue;
      ++outputs;
      ASSERT_TRUE(together.contains(name)) << name;
      EXPECT_EQ(bytes, together.at(name)) << name;
    }
  }
  EXPECT_EQ(together.size() - 1, outputs);
  EXPECT_LT(20U, outputs);  // buildings and their typologies
}

namespace {

/// The rows of a list that lies beside its template, made one after the other by one worker.
class MadeRows {
 public:
  explicit MadeRows(std::string list) : list_(std::move(list)) {
    folder_.write("textos.inp", "\"M\" = NAME-FRAME\n  FRAME-WIDTH = 0.1\n  ..\n");
    stock::ListReader reader("lista.csv", [this](char* buffer, std::size_t size) {
      const std::size_t count = list_.copy(buffer, size, read_);
      read_ += count;
      return count;
    });
    const stock::ListColumns columns = readHeader(reader, false);
    stock::Record record;
    for (long number = 1; reader.next(record); ++number) {
      const stock::ListRow row(columns, record, reader.name());
      const stock::PreparedDwelling prepared = dwellings_.prepare(row, number, false);
      ofForm_ +=
          room_.forms.find(prepared.typology, prepared.plantilla, prepared.texts) ? "f" : "-";
      stock::Outcome outcome;
      dwellings_.make(row, prepared, room_, outcome);
    }
  }

  /// "f" for each row whose form was known, and "-" for the others.
  const std::string& ofForm() const { return ofForm_; }

 private:
  TemporaryFolder folder_;
  MinimalBuilding building_{folder_};
  std::string list_;
  std::size_t read_ = 0;
  stock::Outputs outputs_{folder_ / "", {}};
  stock::Dwellings dwellings_{{.listName = "lista.csv",
                               .listFolder = folder_ / "",
                               .plantilla = folder_ / "casa.bdl",
                               .keepTypologies = false,
                               .usedFolder = false,
                               .version = "1"},
                              outputs_};
  stock::DwellingRoom room_;
  std::string ofForm_;
};

}  // namespace

TEST(RowForms, AreKnownFromTheThirdRowOn) {
  const std::string row = std::string(";1;1;2,80;80;10;20,5;0;10;0") + kNames + "\n";
  EXPECT_EQ("--ff",
            MadeRows(kColumns + ("A" + row) + ("B" + row) + ("C" + row) + ("D" + row)).ofForm());
}

TEST(RowForms, NoneIsMadeOfARowWithAnInfiniteNumber) {
  const auto row = [](const char* id, const char* south) {
    return concat(id, ";1;1;2,80;80;10;", south, ";0;10;0", kNames, "\n");
  };
  EXPECT_EQ("---f", MadeRows(kColumns + row("A", "1e39") + row("B", "1e39") + row("C", "1e01") +
                             row("D", "1e01"))
                        .ofForm());
}
