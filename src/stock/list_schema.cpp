#include <algorithm>
#include <iterator>
#include <string>
#include <variant>

#include "core/concat.h"
#include "core/cp1252.h"
#include "core/numbers.h"
#include "plan/needed_measures.h"
#include "stock/list_columns.h"

namespace stock {

namespace {

/// What a column says of itself besides what the table of keywords knows. UTF-8, and no ";", which
/// parts the cells.
struct About {
  std::string_view name;
  std::string_view range;
};

constexpr About kRanges[] = {
    {"TIPO", "1 a 23"},
    {"NUMERO-PLANTAS", "1 con TIPO 1, 2 con TIPO 2 a 9, más de 2 con los demás"},
    {"ALTURA-PLANTA", "mayor que 0"},
    {"AREA-PLANTA", "según TIPO"},
    {"AREA-PATIO", "según TIPO"},
    {"AREA-ESCALERA", "según TIPO"},
    {"LONGITUD-FACHADA", "mayor que 0, según TIPO"},
    {"PROFUNDIDAD-PATIO", "según TIPO"},
    {"PROFUNDIDAD-ESCALERA", "según TIPO"},
    {"CUBIERTA", "no se usa: siempre PLANA"},
    {"ATICO", "no se usa: siempre NO"},
    {"SOTANO", "no se usa: siempre NO"},
    {"PORCENTAJE-FACHADA", "0 a 100"},
    {"PORCENTAJE-PATIO", "0 a 100"},
    {"ORIENTACION", "giro en sentido horario, con 0 la fachada principal mira al sur"},
    {"VENTANA-MARCO", "nombre de un NAME-FRAME de TEXTOS"},
    {"VENTANA-SOMBRA", "nombre de un VENTANA-SOMBRA de TEXTOS"},
    {"AIR-CHANGES/HR", "renovaciones de aire por hora"},
};

std::string_view rangeOf(std::string_view keyword) {
  const auto* row = std::ranges::find(kRanges, keyword, &About::name);
  return row == std::end(kRanges) ? "nombre" : row->range;
}

std::string shortReal(float value) {
  std::string text = formatReal(value);
  while (text.ends_with('0')) text.pop_back();
  if (text.ends_with('.')) text.pop_back();
  std::ranges::replace(text, '.', ',');
  return text;
}

/// A record of a file with nothing but what it must have: what it holds besides are the defaults.
TypologyRecord recordOfDefaults() {
  std::string text = "\"E\" = VIVIENDA\n";
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    if (!keyword.required) continue;
    const bool list = std::holds_alternative<PerFacade<float> TypologyRecord::*>(keyword.field);
    text += concat(" ", keyword.name, list ? " = ( 1, 1, 1, 1 )\n" : " = 1\n");
  }
  return TypologyRecord(SourceText("defectos", text + "..\n"));
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
             std::string_view range, std::string_view missing) {
  text += concat(name, ";", unit, ";", range, ";", missing, "\n");
}

}  // namespace

std::string columnsForPeople() {
  const TypologyRecord defaults = recordOfDefaults();
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
    for (const std::string& name : columns.names) {
      addLine(text, name, keyword.unit, rangeOf(keyword.name), missing);
    }
  }
  addLine(
      text, kTextsColumn, "",
      "ruta desde la lista de los marcos, las sombras y el lugar que la tipología lleva consigo",
      "ninguno");
  return text;
}

}  // namespace stock
