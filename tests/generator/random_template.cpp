#include "generator/random_template.h"

#include <vector>

namespace {

/// What means something to somebody, and what looks like it.
const std::vector<std::string> kWords = {"POLYGON",
                                         "BUILD-PARAMETERS",
                                         "BUILDING-SHADE",
                                         "\"Sombra001\"",
                                         "FLOOR",
                                         "SPACE",
                                         "\"Muro\"",
                                         "\"Ventana\"",
                                         "\"Med\"",
                                         "\"Cubierta\"",
                                         "WINDOW",
                                         "EXTERIOR-WALL",
                                         "..",
                                         "V1",
                                         "V4",
                                         "V5",
                                         "V05",
                                         "V",
                                         "HEIGHT",
                                         "WIDTH",
                                         "2.5",
                                         "3",
                                         "X",
                                         "COEFF",
                                         "MULTIPLIER",
                                         "1",
                                         "FLOOR-HEIGHT",
                                         "SPACE-HEIGHT",
                                         "AIR-CHANGES/HR",
                                         "CONSTRUCTION",
                                         "----------",
                                         "nada",
                                         "",
                                         " "};
const std::string kSchedule = "VALUES = ( 4, 4, 4, 4, 4, 4, 4, 4, 1 )";

}  // namespace

std::string RandomTemplate::text() {
  const std::string lineEnd = oneIn(4) ? "\r\n" : "\n";
  std::string text;
  for (int polygons = number(3); polygons >= 0; --polygons) {
    text += "\"P\" = POLYGON" + lineEnd + lines(number(4), lineEnd) + ".." + lineEnd;
  }
  text += "\"D\" = BUILD-PARAMETERS" + lineEnd + lines(number(80), lineEnd);
  if (oneIn(2)) text.resize(text.size() - lineEnd.size());
  return text;
}

std::string RandomTemplate::typology() {
  return "\"T\" = VIVIENDA\n TIPO = 1\n NUMERO-PLANTAS = 1\n AREA-PLANTA = 100\n"
         " LONGITUD-FACHADA = 10\n PORCENTAJE-FACHADA = ( " +
         std::string(oneIn(2) ? "0" : "120") + ", 30, 0, 20 )\n PORCENTAJE-PATIO = ( 0, " +
         (oneIn(2) ? "0" : "30") +
         ", 0, 0 )\n MUROS-FACHADA = \"M\"\n PARTICION-INTERIOR-VERTICAL = \"PV\"\n"
         " MEDIANERA = \"ME\"\n SUELOS = \"SU\"\n PARTICION-INTERIOR-HORIZONTAL = \"PH\"\n"
         " CUBIERTAS = \"CU\"\n VENTANA-VIDRIO = \"VI\"\n AIR-CHANGES/HR = " +
         (oneIn(2) ? "0.5" : "0") + "\n..\n";
}

const std::string& RandomTemplate::word() { return kWords[random_() % kWords.size()]; }

std::string RandomTemplate::line() {
  if (oneIn(20)) return "  " + kSchedule;
  if (oneIn(400)) return std::string(3001, 'x');
  std::string line = word();
  for (int signs = oneIn(4) ? number(3) : 1; signs > 0; --signs) line += " = " + word();
  return line;
}

std::string RandomTemplate::lines(int count, const std::string& lineEnd) {
  std::string text;
  for (; count > 0; --count) text += line() + lineEnd;
  return text;
}
