#include <algorithm>
#include <iterator>
#include <string>
#include <variant>

#include "core/concat.h"
#include "core/cp1252.h"
#include "core/numbers.h"
#include "plan/needed_measures.h"
#include "stock/list_columns.h"
#include "typology/tipo.h"

namespace stock {

namespace {

/// What a list says of a column otherwise than a typology file of its keyword. UTF-8, and no ";",
/// which parts the cells.
struct InLists {
  std::string_view name;
  std::string_view values;
};

constexpr InLists kInLists[] = {
    {"VENTANA-MARCO", "nombre de un NAME-FRAME de TEXTOS"},
    {"VENTANA-SOMBRA", "nombre de un VENTANA-SOMBRA de TEXTOS"},
    {"AIR-CHANGES/HR", "renovaciones de aire por hora"},
};

bool isSame(const StoreyRule& one, const StoreyRule& other) {
  return one.least == other.least && one.most == other.most;
}

std::string storeysOf(const StoreyRule& rule) {
  if (rule.most == kAnyNumber) return concat("más de ", std::to_string(rule.least - 1));
  const std::string least = std::to_string(rule.least);
  return rule.most == rule.least ? least : concat(least, " a ", std::to_string(rule.most));
}

/// "1 con TIPO 1, 2 con TIPO 2 a 9, más de 2 con TIPO 10 a 23".
std::string storeysByTipo() {
  std::string text;
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) {
    const auto hasSame = [&](int other) {
      return isSame(tipoRow(tipo).storeys, tipoRow(other).storeys);
    };
    int first = 1;
    while (!hasSame(first)) ++first;
    if (first < tipo) continue;  // said
    text += concat(text.empty() ? "" : ", ", storeysOf(tipoRow(tipo).storeys), " con TIPO ",
                   tiposWhere(hasSame));
  }
  return text;
}

std::string valuesOf(const ViviendaKeyword& keyword, const TypologyRecord& defaults) {
  const auto* row = std::ranges::find(kInLists, keyword.name, &InLists::name);
  if (row != std::end(kInLists)) return std::string(row->values);
  if (keyword.name == "TIPO") return concat("1 a ", std::to_string(kLastTipo));
  if (keyword.name == "NUMERO-PLANTAS") return storeysByTipo();
  if (const auto* ignored = std::get_if<IgnoredText>(&keyword.field)) {
    return concat("no se usa: siempre ", defaults.*ignored->kept);
  }
  if (keyword.values.empty()) return "según TIPO";
  std::string values(keyword.values);
  std::ranges::replace(values, ';', ',');
  return values;
}

std::string shortReal(float value) {
  std::string text = formatReal(value);
  while (text.ends_with('0')) text.pop_back();
  if (text.ends_with('.')) text.pop_back();
  std::ranges::replace(text, '.', ',');
  return text;
}

struct DefaultText {
  const TypologyRecord& record;
  std::string operator()(int TypologyRecord::*field) const { return std::to_string(record.*field); }
  std::string operator()(float TypologyRecord::*field) const { return shortReal(record.*field); }
  std::string operator()(PerFacade<float> TypologyRecord::*field) const {
    return shortReal((record.*field)[kSouth]);
  }
  std::string operator()(std::string TypologyRecord::*field) const {
    return (record.*field).empty() ? "ninguno" : record.*field;
  }
  std::string operator()(IgnoredText text) const { return record.*text.kept; }
};

/// What becomes of a row without a value there.
std::string ifMissing(const ViviendaKeyword& keyword, const TypologyRecord& defaults) {
  if (keyword.required) return "error";
  const std::string used = std::visit(DefaultText{defaults}, keyword.field);
  const std::string needed = tiposWhere([&](int tipo) { return needsMeasure(tipo, keyword.name); });
  return needed.empty() ? used : concat("error con TIPO ", needed, ", ", used, " con los demás");
}

void addLine(std::string& text, std::string_view name, std::string_view unit,
             std::string_view values, std::string_view missing) {
  text += concat(name, ";", unit, ";", values, ";", missing, "\n");
}

}  // namespace

std::string columnsForPeople() {
  const TypologyRecord defaults = defaultTypology();
  std::string text;
  addLine(text, "columna", "unidad", "valores", "si falta");
  addLine(text, kIdColumn, "", "único, hasta 100 letras sin acento, cifras, \"-\", \"_\" y \".\"",
          "error");
  addLine(text, kTemplateColumn, "", "ruta desde la lista", "la de --plantilla");
  addLine(text, kTypologyColumn, "", "ruta de un fichero *.tip desde la lista",
          "las columnas que siguen");
  for (const KeywordColumns& columns : keywordColumns()) {
    const ViviendaKeyword& keyword = *columns.keyword;
    const std::string missing = ifMissing(keyword, defaults);
    const std::string values = valuesOf(keyword, defaults);
    for (const std::string& name : columns.names) {
      addLine(text, name, keyword.unit, values, missing);
    }
  }
  addLine(
      text, kTextsColumn, "",
      "ruta desde la lista de los marcos, las sombras y el lugar que la tipología lleva consigo",
      "ninguno");
  return text;
}

}  // namespace stock
