#pragma once

#include <string>
#include <string_view>

#include "support/temporary_folder.h"

/// The smallest complete inputs of a run, in a folder: a house of one storey with one wall, one
/// window, a floor and a space. Tests change what they are about.
class MinimalBuilding {
 public:
  explicit MinimalBuilding(const TemporaryFolder& folder) : folder_(folder) {
    folder.write("casa.bdl", kTemplate);
    folder.write("casa.tbl", kTable);
    folder.write("casa.tip", kTypology);
    folder.write("defectos.inp", kDefaults);
  }

  std::string dataFile() const { return folder_ / "casa.bdl"; }
  std::string typologyFile() const { return folder_ / "casa.tip"; }
  std::string outputFile() const { return folder_ / "salida.bdl"; }
  std::string markerFile() const { return folder_ / "fin.txt"; }

  /// The four as the programs take them; a template, so that this header needs no app folder.
  template <typename Paths>
  Paths as() const {
    return {dataFile(), typologyFile(), outputFile(), markerFile()};
  }

  static constexpr std::string_view kTemplate =
      "\"Planta\" = POLYGON\n"
      "V1 = ( 0 , 0 )\n"
      "V2 = ( 1 , 0 )\n"
      "V3 = ( 1 , 1 )\n"
      "V4 = ( 0 , 1 )\n"
      "..\n"
      "\"Datos\" = BUILD-PARAMETERS\n"
      "..\n"
      "\"P01\" = FLOOR\n"
      "  FLOOR-HEIGHT = 2.5\n"
      "..\n"
      "\"P01_E01\" = SPACE\n"
      "  HEIGHT = 2.5\n"
      "..\n"
      "\"Muro\" = EXTERIOR-WALL\n"
      "  CONSTRUCTION = \"M0\"\n"
      "..\n"
      "\"Ventana\" = WINDOW\n"
      "  WIDTH = 1\n"
      "  HEIGHT = 1\n"
      "..\n"
      "END ..";

  static constexpr std::string_view kTable =
      "Tabla\n"
      "de superficies\n"
      "2 1\n"
      "\"Muro\"\n"
      "30 10 0.5 3 10 180 90 0 1 0\n"
      "\"Ventana\"\n"
      "1 1 2 1 1 180 90 1 1 0\n"
      "\"P01_E01\"\n"
      "1 1 100 2\n";

  static constexpr std::string_view kTypology =
      "\"T\" = VIVIENDA\n"
      "  TIPO = 1\n"
      "  NUMERO-PLANTAS = 1\n"
      "  AREA-PLANTA = 100\n"
      "  LONGITUD-FACHADA = 10\n"
      "  PORCENTAJE-FACHADA = ( 20, 0, 0, 0 )\n"
      "  MUROS-FACHADA = \"M1\"\n"
      "  PARTICION-INTERIOR-VERTICAL = \"PV\"\n"
      "  MEDIANERA = \"ME\"\n"
      "  SUELOS = \"SU\"\n"
      "  PARTICION-INTERIOR-HORIZONTAL = \"PH\"\n"
      "  CUBIERTAS = \"CU\"\n"
      "  VENTANA-VIDRIO = \"VI\"\n"
      "..\n";

  static constexpr std::string_view kDefaults = "$ NADA\n";

 private:
  const TemporaryFolder& folder_;
};
