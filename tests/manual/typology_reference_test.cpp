#include <gtest/gtest.h>

#include <charconv>
#include <cstdlib>
#include <map>
#include <string>
#include <variant>

#include "core/concat.h"
#include "plan/families.h"
#include "plan/ordinary_plan.h"
#include "report/plan_drawing.h"
#include "support/temporary_folder.h"
#include "typology/tipo.h"
#include "typology/vivienda_keywords.h"

// The facts of the manual's reference of the typology file are those of the program's tables. With
// TIP2BDL_UPDATE_GOLDENS in the environment the tables of the page are written anew.

namespace {

using R = TypologyRecord;

const char* const kPage = SOURCE_FOLDER "/docs/manual/tipologia.md";

std::string shortest(float value) {
  char digits[32];
  return {digits, std::to_chars(digits, digits + sizeof digits, value).ptr};
}

std::string code(std::string_view text) { return concat("`", text, "`"); }

/// "1 a 9, 13": the numbers for which `holds`.
template <typename Predicate>
std::string tiposWhere(Predicate holds) {
  std::string text;
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    if (!holds(tipo)) continue;
    int last = tipo;
    while (last < kLastTipo && holds(last + 1)) ++last;
    text += concat(text.empty() ? "" : ", ", std::to_string(tipo));
    if (last > tipo) text += concat(last == tipo + 1 ? ", " : " a ", std::to_string(last));
    tipo = last;
  }
  return text;
}

std::string storeysOf(const StoreyRule& rule) {
  return std::to_string(rule.least) + (rule.most == kAnyNumber ? " o más" : "");
}

std::string storeysByTipo() {
  std::map<int, std::string> rules;
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    const StoreyRule& rule = tipoRow(tipo).storeys;
    const std::string tipos =
        tiposWhere([&](int other) { return tipoRow(other).storeys.least == rule.least; });
    const bool several = tipos.find(' ') != std::string::npos;
    rules[rule.least] =
        concat(storeysOf(rule), several ? " con los tipos " : " con el tipo ", tipos);
  }
  std::string text;
  for (const auto& [least, words] : rules) text += (text.empty() ? "" : "; ") + words;
  return text;
}

bool isPlanNumber(std::string_view name) {
  return name.starts_with("AREA-") || name.starts_with("PROFUNDIDAD-") ||
         name == "LONGITUD-FACHADA";
}

std::string valuesOf(const ViviendaKeyword& keyword) {
  if (keyword.name == "TIPO") return concat("de 1 a ", std::to_string(kLastTipo));
  if (keyword.name == "NUMERO-PLANTAS") return storeysByTipo();
  if (!isPlanNumber(keyword.name)) return std::string(keyword.values);
  return "según el tipo, [abajo](#medidas-y-márgenes)";
}

struct IfMissing {
  R defaults = defaultTypology();
  std::string operator()(int R::*field) const { return code(std::to_string(defaults.*field)); }
  std::string operator()(float R::*field) const { return code(shortest(defaults.*field)); }
  std::string operator()(PerFacade<float> R::*field) const {
    std::string list;
    for (const float value : defaults.*field) list += (list.empty() ? "" : ", ") + shortest(value);
    return code("( " + list + " )");
  }
  std::string operator()(std::string R::*) const { return "no hay"; }
  std::string operator()(const IgnoredText& text) const { return code(defaults.*text.kept); }
};

std::string keywordTable() {
  std::string table = "| dato | qué es | unidad | valores | si falta |\n|---|---|---|---|---|\n";
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    table += concat("| ", code(keyword.name), " | ", keyword.meaning, " | ",
                    keyword.unit == "m2" ? "m²" : keyword.unit, " | ", valuesOf(keyword), " | ",
                    keyword.required ? "error" : std::visit(IfMissing(), keyword.field), " |\n");
  }
  return table;
}

struct Measure {
  std::string_view name;
  float PlanData::*number;
};
constexpr Measure kMeasures[] = {
    {"AREA-PLANTA", &PlanData::areaPlanta},
    {"LONGITUD-FACHADA", &PlanData::longitudFachada},
    {"AREA-PATIO", &PlanData::areaPatio},
    {"PROFUNDIDAD-PATIO", &PlanData::profundidadPatio},
    {"AREA-ESCALERA", &PlanData::areaEscalera},
    {"PROFUNDIDAD-ESCALERA", &PlanData::profundidadEscalera},
};

bool isUsed(const Measure& measure, PlanFamily family) {
  const FamilyNeeds& needs = needsOf(family);
  return measure.name == "AREA-PATIO"             ? needs.areaPatio
         : measure.name == "PROFUNDIDAD-PATIO"    ? needs.profundidadPatio
         : measure.name == "AREA-ESCALERA"        ? needs.areaEscalera
         : measure.name == "PROFUNDIDAD-ESCALERA" ? needs.profundidadEscalera
                                                  : true;
}

std::string buildingTable() {
  std::string table =
      "| `TIPO` | edificio | plantas | medidas además de la planta y la fachada | sombras de patio "
      "| "
      "clase |\n|---|---|---|---|---|---|\n";
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    const TipoRow& row = tipoRow(tipo);
    std::string measures;
    for (const Measure& measure : std::span(kMeasures).subspan(2)) {
      if (isUsed(measure, row.family))
        measures += (measures.empty() ? "" : ", ") + code(measure.name);
    }
    const std::string shades = concat(row.firstShade() ? "`Sombra001`" : "",
                                      row.firstShade() && row.secondShade() ? ", " : "",
                                      row.secondShade() ? "`Sombra002`" : "");
    table +=
        concat("| ", std::to_string(tipo), " | ", report::familyTitle(tipo), " | ",
               storeysOf(row.storeys), " | ", measures.empty() ? "—" : measures, " | ",
               shades.empty() ? "—" : shades, " | ", std::to_string(row.buildingClass), " |\n");
  }
  return table;
}

std::string measureTable() {
  std::string table =
      "| `TIPO` | medida | corriente | desde | hasta | unidad |\n|---|---|---|---|---|---|\n";
  for (const FamilyNeeds& needs : kFamilyNeeds) {
    const auto isOfFamily = [&](int tipo) { return tipoRow(tipo).family == needs.family; };
    int tipo = 1;
    while (tipo <= kLastTipo && !isOfFamily(tipo)) ++tipo;
    if (tipo > kLastTipo) continue;  // of no number
    const PlanData data = ordinaryPlan(tipo);
    for (const Measure& measure : kMeasures) {
      if (!isUsed(measure, needs.family)) continue;
      const PlanRange range = rangeIn(data, measure.number);
      table +=
          concat("| ", tiposWhere(isOfFamily), " | ", code(measure.name), " | ",
                 shortest(data.*measure.number), " | ", shortest(static_cast<float>(range.least)),
                 " | ", shortest(static_cast<float>(range.most)), " | ",
                 measure.name.starts_with("AREA") ? "m²" : "m", " |\n");
    }
  }
  return table;
}

/// Compares the table of that name on the page, or writes it.
void expectTable(std::string_view name, const std::string& table) {
  const std::string begin = concat("<!-- tabla: ", name, " -->\n");
  std::string page = readFile(kPage);
  const std::size_t from = page.find(begin);
  ASSERT_NE(std::string::npos, from) << name;
  const std::size_t to = page.find("<!-- fin -->", from);
  ASSERT_NE(std::string::npos, to) << name;
  const std::size_t body = from + begin.size();
  if (std::getenv("TIP2BDL_UPDATE_GOLDENS") != nullptr) {
    writeFile(kPage, page.replace(body, to - body, table));
    return;
  }
  EXPECT_EQ(table, page.substr(body, to - body)) << "update with scripts/update-goldens";
}

}  // namespace

TEST(TypologyReferenceGolden, EveryKeywordStandsThereWithItsFacts) {
  expectTable("datos", keywordTable());
}

TEST(TypologyReferenceGolden, EveryNumberStandsThereWithItsBuilding) {
  expectTable("edificios", buildingTable());
}

TEST(TypologyReferenceGolden, EveryMeasureStandsThereWithItsRange) {
  expectTable("medidas", measureTable());
}
