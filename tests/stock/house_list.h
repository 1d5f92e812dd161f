#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "stock/stock_run.h"
#include "support/minimal_building.h"
#include "support/temporary_folder.h"

/// A list of houses beside the smallest template, some rows with a fault, and a folder for results.
class HouseList {
 public:
  static constexpr const char* kHeading =
      "ID;PLANTILLA;TIPOLOGIA;TIPO;NUMERO-PLANTAS;AREA-PLANTA;LONGITUD-FACHADA;"
      "PORCENTAJE-FACHADA-SUR;PORCENTAJE-FACHADA-ESTE;PORCENTAJE-FACHADA-NORTE;"
      "PORCENTAJE-FACHADA-OESTE;MUROS-FACHADA;PARTICION-INTERIOR-VERTICAL;MEDIANERA;SUELOS;"
      "PARTICION-INTERIOR-HORIZONTAL;CUBIERTAS;VENTANA-VIDRIO;VENTANA-MARCO;TEXTOS\n";
  /// A row that is right.
  static std::string rowOf(const std::string& id, const std::string& plantilla = "casa.bdl",
                           const std::string& area = "90") {
    return id + ";" + plantilla + ";;1;1;" + area +
           ";10;20,5;0;10;0;M1;PV;ME;SU;PH;CU;VI;M;textos.inp\n";
  }

  explicit HouseList(int rows = 60) : building_(folder_) {
    folder_.write("textos.inp", "\"M\" = NAME-FRAME\n  FRAME-WIDTH = 0.1\n  ..\n");
    writeList(rows);
  }

  void writeList(int rows, const std::string& third = "") {
    std::string text = kHeading;
    for (int i = 1; i <= rows; ++i) {
      const std::string id = "V" + std::to_string(i);
      if (i == 3 && !third.empty()) {
        text += third + "\n";
      } else if (i % 10 == 4) {
        text += id + ";casa.bdl;casa.tip" + std::string(17, ';') + "\n";
      } else {
        const std::string area = i % 10 == 7   ? "5"
                                 : i % 10 == 8 ? "1.234,5"
                                               : std::to_string(80 + i);
        text += rowOf(i % 20 == 19 ? "V1" : id, i % 20 == 12 ? "no.bdl" : "casa.bdl", area);
      }
    }
    folder_.write("lista.csv", text);
  }

  stock::StockOptions options(const std::string& results = "r") const {
    stock::StockOptions options;
    options.list = folder_ / "lista.csv";
    options.folder = folder_ / results;
    options.workers = 3;
    options.version = "1.0";
    return options;
  }
  const TemporaryFolder& folder() const { return folder_; }
  std::string results(const std::string& name = "r") const {
    return readBytes(folder_ / (name + "/resultados.csv"));
  }
  /// All files of the results but the journal, whose times differ.
  std::map<std::string, std::string> files(const std::string& name = "r") const {
    std::map<std::string, std::string> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_ / name)) {
      if (!entry.is_regular_file() || entry.path().filename().string().starts_with("diario"))
        continue;
      found[entry.path().lexically_relative(folder_ / name).string()] =
          readBytes(entry.path().string());
    }
    return found;
  }

 private:
  TemporaryFolder folder_;
  MinimalBuilding building_;
};
