#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/concat.h"
#include "core/cp1252.h"
#include "run_and_check.h"

// Behind the first error, which ends the run, a check tells the others.

using testing::ElementsAre;

namespace {

std::vector<std::string> errorsOf(const Inputs& inputs) {
  const TemporaryFolder folder;
  inputs.writeInto(folder);
  EXPECT_EQ("", contradiction(folder));
  return messagesOf(findingsOfCheck(folder), Severity::kError);
}

}  // namespace

TEST(FurtherErrors, EveryMissingKeywordIsNamed) {
  Inputs inputs = Inputs::minimal();
  inputs.typology = "\n\"T\" = VIVIENDA\n  TIPO = 1\n..\n";
  const std::string kMissing = "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD ";
  EXPECT_THAT(errorsOf(inputs),
              ElementsAre(kMissing + "NUMERO-PLANTAS", kMissing + "AREA-PLANTA",
                          kMissing + "LONGITUD-FACHADA", kMissing + "PORCENTAJE-FACHADA",
                          kMissing + "MUROS-FACHADA", kMissing + "PARTICION-INTERIOR-VERTICAL",
                          kMissing + "MEDIANERA", kMissing + "SUELOS",
                          kMissing + "PARTICION-INTERIOR-HORIZONTAL", kMissing + "CUBIERTAS",
                          kMissing + "VENTANA-VIDRIO"));
}

TEST(FurtherErrors, EveryBrokenLimitOfThePlanIsNamed) {
  Inputs inputs = Inputs::ofSample("bloque-escalera-patios", "tipo-14");
  inputs.typology =
      "\n\"T\" = VIVIENDA\n"
      "  TIPO = 14\n  NUMERO-PLANTAS = 3\n  AREA-PLANTA = 400\n  LONGITUD-FACHADA = 5\n"
      "  AREA-PATIO = 3\n  PROFUNDIDAD-PATIO = 1\n  AREA-ESCALERA = 3\n"
      "  PROFUNDIDAD-ESCALERA = 1\n  PORCENTAJE-FACHADA = ( 0, 0, 0, 0 )\n"
      "  MUROS-FACHADA = \"A\"\n  PARTICION-INTERIOR-VERTICAL = \"A\"\n  MEDIANERA = \"A\"\n"
      "  SUELOS = \"A\"\n  PARTICION-INTERIOR-HORIZONTAL = \"A\"\n  CUBIERTAS = \"A\"\n"
      "  VENTANA-VIDRIO = \"A\"\n..\n";
  EXPECT_THAT(
      errorsOf(inputs),
      ElementsAre(
          toCp1252("Longitud de fachada no válida. Debe ser >14 y la profundidad >3"),
          toCp1252("Área de patio no válida. Debe ser >4 y < area de planta - 120"),
          toCp1252("Profundidad de patio no válida. Debe ser >2 al igual que la longitud"),
          toCp1252("Área de escalera no válida. Debe ser >4 y < area de planta - 120"),
          toCp1252("Profundidad de escalera no válida. Debe ser >2 al igual que la longitud")));
}

TEST(FurtherErrors, EveryMalformedLineOfTheTableIsNamed) {
  Inputs inputs = Inputs::minimal();
  inputs.table = "Tabla\nde superficies\n3 1\n" + std::string(200, 'a') +
                 "\n30 10 0.5 3 10 180 90 0 1 0\n\"Ventana\"\n1 1 2 1\n\"Otra\"\n\n" +
                 std::string(201, 'b') + "\n1 1 100 2\n";
  const TemporaryFolder folder;
  inputs.writeInto(folder);
  EXPECT_EQ("", contradiction(folder));
  const std::string file = "Error en el fichero " + (folder / "casa.tbl") + ", línea ";
  const std::string data =
      ": los datos de una superficie deben ser siete números reales y su clase";
  EXPECT_THAT(messagesOf(findingsOfCheck(folder), Severity::kError),
              ElementsAre(toCp1252(file + "4: el nombre es demasiado largo"),
                          toCp1252(file + "7" + data), toCp1252(file + "9" + data),
                          toCp1252(file + "10: el nombre es demasiado largo")));
}

TEST(FurtherErrors, EveryWindowWithoutBaysIsNamed) {
  Inputs inputs = Inputs::minimal();
  // Courtyard windows in a house, which has no courtyard.
  inputs.typology.insert(inputs.typology.find("  MUROS-FACHADA"),
                         "  PORCENTAJE-PATIO = ( 20, 20, 0, 0 )\n");
  inputs.table =
      "Tabla\nde superficies\n3 0\n\"Muro\"\n30 10 0.5 3 10 180 90 0 1 0\n"
      "\"Med1\"\n1 1 2 1 1 180 90 1 1 0\n\"Med2\"\n1 1 2 1 1 90 90 1 1 0\n";
  inputs.building.insert(inputs.building.find("END .."),
                         "\"Med1\" = WINDOW\n..\n\"Med2\" = WINDOW\n..\n");
  EXPECT_THAT(errorsOf(inputs), ElementsAre(testing::HasSubstr("la ventana \"Med1\""),
                                            testing::HasSubstr("la ventana \"Med2\"")));
}

// The run ends before its first floor; the check goes on through all of them.
TEST(FurtherErrors, NoNumberOfStoreysIsTooSmallForTheFloors) {
  for (const char* storeys : {"0", "-1", "-2147483647", "-2147483648"}) {
    SCOPED_TRACE(storeys);
    Inputs inputs = Inputs::ofSample("casa-adosada", "tipo-02");
    ASSERT_NE(std::string::npos, inputs.building.find("MULTIPLIER = 1"));
    const std::string kRight = "NUMERO-PLANTAS = 2";
    inputs.typology.replace(inputs.typology.find(kRight), kRight.size(),
                            concat("NUMERO-PLANTAS = ", storeys));
    EXPECT_THAT(errorsOf(inputs),
                ElementsAre(testing::EndsWith("el NUMERO-PLANTAS debe ser mayor que 0")));
  }
}

TEST(FurtherErrors, EveryMissingFileIsNamedAndATypologyThatIsThereIsChecked) {
  const TemporaryFolder folder;
  const std::vector<std::string> all = {"No existe el fichero de datos *.bdl",
                                        "No existe el fichero de datos *.tbl",
                                        "No existe el fichero de datos *.tip",
                                        toCp1252("No existe el fichero de librería defectos.inp")};
  EXPECT_EQ(all, messagesOf(findingsOfCheck(folder), Severity::kError));
  EXPECT_EQ("", contradiction(folder));
  folder.write("casa.tip", "\n\"T\" = VIVIENDA\n..\n");
  const Findings findings = findingsOfCheck(folder);
  EXPECT_THAT(messagesOf(findings, Severity::kError), testing::Contains(testing::EndsWith("TIPO")));
  EXPECT_EQ(folder / "casa.bdl", findings.front().place->file);
}

TEST(FurtherErrors, WhatIsWrongWithTheTemplateIsToldBesideTheTypology) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::ofSample("casa-una-planta", "tipo-01");
  const auto replace = [](std::string& text, std::string_view from, std::string_view to) {
    text.replace(text.find(from), from.size(), to);
  };
  replace(inputs.building, "= BUILD-PARAMETERS", "= OTRA-COSA");
  replace(inputs.typology, "   SUELOS", "   SUELO");
  replace(inputs.typology, "AREA-PLANTA = 110", "AREA-PLANTA = 20");
  inputs.writeInto(folder);
  EXPECT_THAT(messagesOf(findingsOfCheck(folder), Severity::kError),
              ElementsAre("En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD SUELOS",
                          std::string("Área de planta no válida. Debe ser >30 y <1000"_cp1252)));
  replace(inputs.typology, "AREA-PLANTA = 20", "AREA-PLANTA = 110");
  inputs.writeInto(folder);
  EXPECT_THAT(
      messagesOf(findingsOfCheck(folder), Severity::kError),
      ElementsAre("En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD SUELOS",
                  "Error al generar el edificio. No se ha encontrado la clave: BUILD-PARAMETERS"));
}
