#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

#include "core/concat.h"
#include "manual/manual_page.h"
#include "plan/families.h"
#include "plan/needed_measures.h"
#include "plan/ordinary_plan.h"
#include "report/plan_drawing.h"
#include "support/temporary_folder.h"
#include "typology/facade.h"
#include "typology/tipo.h"
#include "typology/vivienda_keywords.h"

// The facts of the manual's reference of the typology file are those of the program's tables.

namespace {

using R = TypologyRecord;

constexpr std::string_view kPage = "tipologia.md";

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

std::string ifMissing(const ViviendaKeyword& keyword) {
  if (keyword.required) return "error";
  const std::string used = std::visit(IfMissing(), keyword.field);
  const std::string needed = tiposWhere([&](int tipo) { return needsMeasure(tipo, keyword.name); });
  return needed.empty() ? used : concat("error con los tipos ", needed, "; con los demás, ", used);
}

std::string keywordTable() {
  std::string table = "| dato | qué es | unidad | valores | si falta |\n|---|---|---|---|---|\n";
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    table += concat("| ", code(keyword.name), " | ", keyword.meaning, " | ",
                    keyword.unit == "m2" ? "m²" : keyword.unit, " | ", valuesOf(keyword), " | ",
                    ifMissing(keyword), " |\n");
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

std::string buildingTable() {
  std::string table =
      "| `TIPO` | edificio | plantas | medidas además de la planta y la fachada | sombras de patio "
      "| "
      "clase |\n|---|---|---|---|---|---|\n";
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    const TipoRow& row = tipoRow(tipo);
    std::string measures;
    for (const Measure& measure : std::span(kMeasures).subspan(2)) {
      if (familyRow(row.family).looksAt(measure.number))
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

std::optional<int> firstTipoWhere(const std::function<bool(int)>& holds) {
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    if (holds(tipo)) return tipo;
  }
  return std::nullopt;
}

std::string measureTable() {
  std::string table =
      "| `TIPO` | medida | corriente | desde | hasta | unidad |\n|---|---|---|---|---|---|\n";
  for (const FamilyRow& family : families()) {
    const auto isOfFamily = [&](int tipo) { return tipoRow(tipo).family == family.family; };
    const std::optional<int> tipo = firstTipoWhere(isOfFamily);
    if (!tipo) continue;  // of no number
    const PlanData data = ordinaryPlan(*tipo);
    for (const Measure& measure : kMeasures) {
      if (!family.looksAt(measure.number)) continue;
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

/// The message of the plan with that many hundredths for one of its numbers; empty for one that can
/// be drawn.
std::string messageWith(PlanData data, float PlanData::*number, long hundredths) {
  data.*number = static_cast<float>(static_cast<double>(hundredths) / 100);
  const PlanResult result = planTipologia(data);
  const auto* failure = std::get_if<PlanFailure>(&result);
  return failure == nullptr ? "" : failure->first().message;
}

/// What the number must be greater than, or less than, whatever the others are: the end of the
/// hundredths, from `bad` on, that its own check speaks of.
double limitOf(const PlanData& data, float PlanData::*number, long bad) {
  const std::string message = messageWith(data, number, bad);
  long good = std::lround(static_cast<double>(data.*number) * 100);
  EXPECT_NE("", message);
  while (std::abs(good - bad) > 1) {
    const long middle = (good + bad) / 2;
    (messageWith(data, number, middle) == message ? bad : good) = middle;
  }
  return static_cast<double>(bad) / 100;
}

/// A side of a courtyard or a stair follows from its area and its depth.
std::string limitTable() {
  std::string table =
      "| `TIPO` | `AREA-PLANTA` | `LONGITUD-FACHADA` | planta / fachada | `AREA-PATIO` | lados del "
      "patio | `AREA-ESCALERA` | lados de la escalera |\n|---|---|---|---|---|---|---|---|\n";
  for (const FamilyRow& family : families()) {
    const auto isOfFamily = [&](int tipo) { return tipoRow(tipo).family == family.family; };
    const std::optional<int> tipo = firstTipoWhere(isOfFamily);
    if (!tipo) continue;  // of no number
    const PlanData data = ordinaryPlan(*tipo);
    const auto least = [&](float PlanData::*number) { return limitOf(data, number, 1); };
    const auto cell = [&](bool used, double value) {
      return concat(used ? shortest(static_cast<float>(value)) : "—", " | ");
    };
    const double longest = limitOf(data, &PlanData::longitudFachada, 1000000);
    table +=
        concat("| ", tiposWhere(isOfFamily), " | ", cell(true, least(&PlanData::areaPlanta)),
               cell(true, least(&PlanData::longitudFachada)),
               cell(true, std::round(static_cast<double>(data.areaPlanta) / longest * 10) / 10));
    for (const auto measure : {&PlanData::areaPatio, &PlanData::profundidadPatio,
                               &PlanData::areaEscalera, &PlanData::profundidadEscalera}) {
      const bool used = family.looksAt(measure);
      table += cell(used, used ? least(measure) : 0);
    }
    table.pop_back();
    table += "\n";
  }
  return table;
}

/// The plan of the sample of a number, from the page's folder.
std::string planOf(int tipo) {
  const std::string goldens = SOURCE_FOLDER "/tests/golden";
  const std::string file =
      concat("tipo-", tipo < 10 ? "0" : "", std::to_string(tipo), ".plano.svg");
  for (const auto& folder : std::filesystem::directory_iterator(goldens)) {
    if (std::filesystem::exists(folder.path() / file))
      return concat("../../tests/golden/", folder.path().filename().string(), "/", file);
  }
  ADD_FAILURE() << "no plan: " << file;
  return {};
}

/// Three in a row: by their counts, those of a family stand side by side.
std::string planTable() {
  std::vector<int> tipos;
  for (int first = 1; first <= kLastTipo; ++first) {
    if (std::ranges::count(tipos, first) != 0) continue;
    for (int tipo = first; tipo <= kLastTipo; ++tipo) {
      if (tipoRow(tipo).family == tipoRow(first).family) tipos.push_back(tipo);
    }
  }
  tipos.resize((tipos.size() + 2) / 3 * 3);
  std::string table = "| | | |\n|---|---|---|\n";
  for (std::size_t i = 0; i < tipos.size(); ++i) {
    const std::string number = std::to_string(tipos[i]);
    if (tipos[i] != 0) {
      table +=
          concat("| <img src=\"", planOf(tipos[i]), "\" alt=\"Plano del tipo ", number,
                 "\" width=\"250\"><br>**", number, "**: ", report::familyTitle(tipos[i]), " ");
    } else {
      table += "| ";
    }
    if (i % 3 == 2) table += "|\n";
  }
  return table;
}

}  // namespace

TEST(TypologyReferenceGolden, EveryKeywordStandsThereWithItsFacts) {
  expectTable(kPage, "datos", keywordTable());
}

TEST(TypologyReferenceGolden, EveryNumberStandsThereWithItsBuilding) {
  expectTable(kPage, "edificios", buildingTable());
}

TEST(TypologyReferenceGolden, EveryMeasureStandsThereWithItsRange) {
  expectTable(kPage, "medidas", measureTable());
}

TEST(TypologyReferenceGolden, EveryFamilyStandsThereWithWhatNoBuildingMayGoBelow) {
  expectTable(kPage, "límites", limitTable());
}

TEST(TypologyReference, AStairAndACourtyardLeave120SquareMetres) {
  int tried = 0;
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    const FamilyRow& family = familyRow(tipoRow(tipo).family);
    const PlanData data = ordinaryPlan(tipo);
    for (const auto number : {&PlanData::areaPatio, &PlanData::areaEscalera}) {
      if (!family.looksAt(number)) continue;
      EXPECT_NEAR(120, static_cast<double>(data.areaPlanta) - limitOf(data, number, 1000000), 0.02)
          << "TIPO " << tipo << ": " << kPage << " says so of every family that has one";
      ++tried;
    }
  }
  EXPECT_GT(tried, 0);
}

TEST(TypologyReferenceGolden, EveryNumberHasItsPlan) { expectTable(kPage, "planos", planTable()); }

TEST(TypologyReference, TheDrawingHasTheFacadesInTheOrderOfTheirValues) {
  std::string order;
  for (const Facade side : {kSouth, kEast, kNorth, kWest}) {
    order += concat(order.empty() ? "" : ", ", kFacadeNames[side]);
  }
  EXPECT_THAT(readFile(SOURCE_FOLDER "/docs/images/fachadas.svg"),
              testing::HasSubstr(concat("( 1, 2, 3, 4 ) = ( ", order, " )")));
}
