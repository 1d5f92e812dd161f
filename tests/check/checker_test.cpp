#include "check/checker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "core/cp1252.h"
#include "run_and_check.h"

// What a checker says of a typology alone, and of many that share a template.

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Every line that begins with `keyword` gets that value; "" takes it out.
void set(std::string& typology, std::string_view keyword, std::string_view value) {
  const std::size_t begin = typology.find("  " + std::string(keyword) + " = ");
  ASSERT_NE(std::string::npos, begin) << keyword;
  const std::size_t end = typology.find('\n', begin) + 1;
  const std::string line =
      value.empty() ? "" : "  " + std::string(keyword) + " = " + std::string(value) + "\n";
  typology.replace(begin, end - begin, line);
}

}  // namespace

TEST(Checker, ATypologyAloneHasTheErrorsThatNeedNoTemplate) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::minimal();
  EXPECT_THAT(messagesOf(Checker().check(folder / "no.tip"), Severity::kError),
              ElementsAre("No existe el fichero de datos *.tip"));
  set(inputs.typology, "TIPO", "24");
  set(inputs.typology, "NUMERO-PLANTAS", "3");
  folder.write("casa.tip", inputs.typology);
  EXPECT_THAT(messagesOf(Checker().check(folder / "casa.tip"), Severity::kError),
              ElementsAre(": "));
  set(inputs.typology, "TIPO", "2");
  set(inputs.typology, "AREA-PLANTA", "20");
  set(inputs.typology, "NUMERO-PLANTAS", "2");
  folder.write("casa.tip", inputs.typology);
  EXPECT_THAT(messagesOf(Checker().check(folder / "casa.tip"), Severity::kError),
              testing::Contains(toCp1252("Área de planta no válida. Debe ser >30 y <1000")));
}

TEST(Checker, WhatIsWrongWithATemplateIsSaidOnce) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::minimal();
  inputs.building.insert(inputs.building.find("END .."), "\"Olvidado\" = ROOF\n..\n");
  inputs.writeInto(folder);
  folder.write("otra.tip", inputs.typology);
  const auto ofTemplate = [](const Finding& f) { return f.code == Code::kComandoSinSuperficie; };
  Checker checker(folder / "casa.bdl");
  EXPECT_EQ(1, std::ranges::count_if(checker.check(folder / "casa.tip"), ofTemplate));
  EXPECT_EQ(0, std::ranges::count_if(checker.check(folder / "otra.tip"), ofTemplate));
}

TEST(Checker, WhatIsWrongWithATypologyIsSaidOfEachOne) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::minimal();
  set(inputs.typology, "MEDIANERA", "");
  inputs.writeInto(folder);
  folder.write("otra.tip", inputs.typology);
  Checker checker(folder / "casa.bdl");
  for (const char* name : {"casa.tip", "otra.tip"}) {
    EXPECT_THAT(
        messagesOf(checker.check(folder / name), Severity::kError),
        ElementsAre("En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD MEDIANERA"));
  }
}

TEST(Checker, ATemplateThatNoTypologyCanUseIsToldOnce) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::minimal();
  inputs.table = "Tabla\n";
  inputs.writeInto(folder);
  folder.write("otra.tip", inputs.typology);
  Checker checker(folder / "casa.bdl");
  EXPECT_EQ(1U, messagesOf(checker.check(folder / "casa.tip"), Severity::kError).size());
  EXPECT_THAT(messagesOf(checker.check(folder / "otra.tip"), Severity::kError), IsEmpty());
}

TEST(Checker, AnErrorInTheTemplateThatEndsEachTypologysRunIsToldOfEachOne) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::minimal();
  inputs.building.replace(inputs.building.find("BUILD-PARAMETERS"), 16, "OTRA-COSA");
  inputs.writeInto(folder);
  folder.write("otra.tip", inputs.typology);
  Checker checker(folder / "casa.bdl");
  for (const char* name : {"casa.tip", "otra.tip"}) {
    EXPECT_THAT(messagesOf(checker.check(folder / name), Severity::kError),
                ElementsAre("Error al generar el edificio. No se ha encontrado la clave: "
                            "BUILD-PARAMETERS"));
  }
}

TEST(Checker, ReadsATemplateOnceForAThousandTypologies) {
  const TemporaryFolder folder;
  Inputs::minimal().writeInto(folder);
  Checker checker(folder / "casa.bdl");
  EXPECT_THAT(messagesOf(checker.check(folder / "casa.tip"), Severity::kError), IsEmpty());
  // Whoever read it again would meet this.
  folder.write("casa.bdl", "nada");
  folder.write("casa.tbl", "nada");
  folder.write("defectos.inp", std::string(1, '\0'));
  for (int i = 1; i < 1000; ++i) {
    const std::string path =
        folder.write("casa-" + std::to_string(i) + ".tip", Inputs::minimal().typology);
    ASSERT_THAT(messagesOf(checker.check(path), Severity::kError), IsEmpty());
  }
}

TEST(Checker, NoLimitOfThePlanFollowsFromANumberThatIsMissing) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::ofSample("casa-una-planta", "tipo-01");
  inputs.typology.replace(inputs.typology.find("   TIPO"), 7, "   TIPA");
  inputs.writeInto(folder);
  const Findings findings = findingsOfCheck(folder);
  EXPECT_THAT(messagesOf(findings, Severity::kError), testing::SizeIs(1));
  for (const Finding& finding : findings) {
    EXPECT_NE(Code::kPlantasDeLaPlantilla, finding.code);
  }
}

TEST(Checker, AMeasureThatIsMissingAndNeededIsSaidToBeWrittenAndNotToBeUsed) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::ofSample("bloque-patio", "tipo-13");
  const std::string line = "   AREA-PATIO = 30\n";
  ASSERT_NE(std::string::npos, inputs.typology.find(line));
  inputs.typology.erase(inputs.typology.find(line), line.size());
  inputs.writeInto(folder);
  const Findings findings = findingsOfCheck(folder);
  ASSERT_FALSE(findings.empty());
  EXPECT_EQ(Code::kMedidaDePlanta, findings.front().code);
  EXPECT_EQ("nada", findings.front().found);
  EXPECT_EQ("escriba AREA-PATIO", findings.front().suggestion);
  for (const Finding& finding : findings) EXPECT_NE(Code::kValorPorDefecto, finding.code);
}
