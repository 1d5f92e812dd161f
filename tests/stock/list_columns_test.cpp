#include "stock/list_columns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <variant>

#include "core/concat.h"
#include "core/cp1252.h"
#include "list_text.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"

using stock::ListColumns;
using stock::readHeader;

namespace {

/// All columns that a row of keywords must have.
std::string keywordHeader() {
  std::string names = "ID;PLANTILLA";
  for (const stock::KeywordColumns& columns : stock::keywordColumns()) {
    if (!columns.keyword->required) continue;
    for (const std::string& name : columns.names) names += ";" + name;
  }
  return names;
}

ListColumns columnsOf(const std::string& header, bool needsTemplate = true) {
  stock::ListReader list = listOf(header);
  return readHeader(list, needsTemplate);
}

std::string refusalOf(const std::string& header, bool needsTemplate = true) {
  return stopMessage([&] { columnsOf(header, needsTemplate); });
}

}  // namespace

TEST(ListColumns, NamesAreComparedWithoutCaseAndAccents) {
  const ListColumns columns = columnsOf("id; Plantilla ;Tipología;\"textos\"\n");
  EXPECT_EQ(0, columns.id);
  EXPECT_EQ(1, columns.plantilla);
  EXPECT_EQ(2, columns.tipologia);
  EXPECT_EQ(3, columns.textos);
  EXPECT_TRUE(columns.warnings.empty());
}

TEST(ListColumns, AKeywordKnowsItsColumns) {
  const ListColumns columns =
      columnsOf(keywordHeader() +
                ";porcentaje-patio-sur;"
                "porcentaje-patio-este;porcentaje-patio-norte;porcentaje-patio-oeste\n");
  for (const stock::KeywordColumns& keyword : columns.keywords) {
    const bool there = keyword.keyword->required || keyword.keyword->name == "PORCENTAJE-PATIO";
    for (const int at : keyword.at) EXPECT_EQ(there, at >= 0) << keyword.keyword->name;
  }
}

TEST(ListColumns, OneThatNobodyReadsIsAWarningWithWhatMayBeMeant) {
  const struct {
    const char* name;
    const char* message;
  } cases[] = {
      {"AREA-PLNTA",
       "Columna desconocida: \"AREA-PLNTA\". No se leerá. ¿Quería decir AREA-PLANTA?"},
      {"área planta",
       "Columna desconocida: \"área planta\". No se leerá. ¿Quería decir AREA-PLANTA?"},
      {"barrio", "Columna desconocida: \"barrio\". No se leerá."},
      {"", "Columna desconocida: \"\". No se leerá."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const ListColumns columns = columnsOf(concat("ID;PLANTILLA;TIPOLOGIA;", c.name, "\n"));
    ASSERT_EQ(1U, columns.warnings.size());
    EXPECT_EQ(c.message, columns.warnings.front().message);
    ASSERT_TRUE(columns.warnings.front().place);
    EXPECT_EQ(1, columns.warnings.front().place->line);
    EXPECT_EQ(24, columns.warnings.front().place->column);
  }
}

TEST(ListColumns, OneThatIsMissingOrThereTwiceEndsTheRun) {
  EXPECT_EQ("Falta la columna ID en la lista", refusalOf("PLANTILLA;TIPOLOGIA\n"));
  EXPECT_EQ("Falta la columna PLANTILLA en la lista", refusalOf("ID;TIPOLOGIA\n"));
  EXPECT_EQ(kNotStopped, refusalOf("ID;TIPOLOGIA\n", false));
  EXPECT_EQ("Falta la columna TIPO en la lista", refusalOf("ID;PLANTILLA\n"));
  EXPECT_EQ("Falta la columna PORCENTAJE-PATIO-ESTE en la lista",
            refusalOf(keywordHeader() + ";PORCENTAJE-PATIO-SUR\n"));
  EXPECT_EQ("Falta la columna PLANTILLA en la lista. ¿Es \"Plantila\"?",
            refusalOf("ID;Plantila;TIPOLOGIA\n"));
  EXPECT_EQ("La lista tiene dos veces la columna ID", refusalOf("ID;PLANTILLA;TIPOLOGIA;id\n"));
  EXPECT_EQ("La lista está vacía: falta la línea con los nombres de las columnas", refusalOf(""));
  EXPECT_EQ(kNotStopped, refusalOf(keywordHeader() + "\n"));
}

TEST(ListColumns, EveryRequiredOneIsAskedFor) {
  for (const stock::KeywordColumns& columns : stock::keywordColumns()) {
    if (!columns.keyword->required) continue;
    for (const std::string& name : columns.names) {
      std::string header = keywordHeader() + ";";
      header.replace(header.find(";" + name + ";"), name.size() + 1, "");
      EXPECT_EQ("Falta la columna " + name + " en la lista", refusalOf(header));
    }
  }
}

TEST(ListSchema, HasALineAColumnWithItsUnitAndDefault) {
  const std::string schema = stock::columnsForPeople();
  const std::vector<std::string> lines = linesOf(schema);
  std::size_t columns = 5;  // the heading, and ID, PLANTILLA, TIPOLOGIA, TEXTOS
  for (const stock::KeywordColumns& keyword : stock::keywordColumns()) {
    for (const std::string& name : keyword.names) {
      ++columns;
      EXPECT_NE(std::string::npos,
                schema.find(concat("\n", name, ";", keyword.keyword->unit, ";")));
    }
  }
  EXPECT_EQ(columns, lines.size());
  for (const std::string& line : lines) EXPECT_EQ(3, std::ranges::count(line, ';')) << line;
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    const bool name = std::holds_alternative<std::string TypologyRecord::*>(keyword.field);
    const std::string cell = concat("\n", keyword.name, ";", keyword.unit, ";nombre");
    EXPECT_EQ(name, schema.find(cell) != std::string::npos) << keyword.name;
  }
  EXPECT_NE(std::string::npos, schema.find("\nALTURA-PLANTA;m;mayor que 0;3\n"));
  EXPECT_NE(std::string::npos, schema.find("\nAIR-CHANGES/HR;ren/h;"));
  EXPECT_NE(std::string::npos,
            schema.find("\nAREA-PATIO;m2;según TIPO;error con TIPO 13 a 21, 0 con los demás\n"));
}
