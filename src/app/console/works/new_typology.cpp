#include "app/console/works/new_typology.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <span>
#include <string_view>
#include <variant>

#include "core/concat.h"
#include "plan/families.h"
#include "plan/ordinary_plan.h"
#include "plan/plan_numbers.h"
#include "report/plan_drawing.h"
#include "typology/tipo.h"
#include "typology/vivienda_keywords.h"

// Comments keep away from the words in capitals that the file is searched for, from two points in a
// row, and from the inside of the frame and the shade, which go into the building on one line.

namespace {

using R = TypologyRecord;

struct Name {
  std::string_view keyword;
  std::string_view value;
};

constexpr std::string_view kFrame = "Marco_PVC";
constexpr std::string_view kShade = "Voladizo_60cm";
constexpr Name kNames[] = {
    {"MUROS-FACHADA", "Muro_Fachada_Aislado"},
    {"PARTICION-INTERIOR-VERTICAL", "Partición_Cerámica"},
    {"MEDIANERA", "Medianera_Ladrillo"},
    {"SUELOS", "Solera_Aislada"},
    {"PARTICION-INTERIOR-HORIZONTAL", "Forjado_Entre_Plantas"},
    {"CUBIERTAS", "Cubierta_Plana_Aislada"},
    {"VENTANA-VIDRIO", "Vidrio_Doble_4-12-4"},
    {"VENTANA-MARCO", kFrame},
    {"VENTANA-SOMBRA", kShade},
};

/// A keyword of the commands behind the dwelling's, which are copied into the building unread.
struct CopiedKeyword {
  std::string_view keyword;
  std::string_view value;
  std::string_view about;  // what it is, its unit and its range
};
struct CopiedCommand {
  std::string_view name;
  std::string_view type;
  std::string_view about;
  std::span<const CopiedKeyword> keywords;
};

constexpr CopiedKeyword kFrameKeywords[] = {
    {"FRAME-WIDTH", "0.12", "ancho del perfil, en m: mayor que 0"},
    {"FRAME-CONDUCT", "1.80", "conductancia, en W/m²K: mayor que 0"},
    {"FRAME-ABS", "0.30", "absortividad: de 0 a 1"},
    {"INF-COEF", "9.00", "permeabilidad, en m³/h por m²: 0 o más"},
};
constexpr CopiedKeyword kShadeKeywords[] = {
    {"SETBACK", "0.20", "retranqueo de la ventana, en m: 0 o más"},
    {"OVERHANG-A", "0.10", "lo que el voladizo pasa de la ventana por un lado, en m"},
    {"OVERHANG-B", "0.15", "lo que está por encima de ella, en m: 0 o más"},
    {"OVERHANG-W", "4.00", "ancho del voladizo, en m: 0 o más"},
    {"OVERHANG-D", "0.60", "fondo del voladizo, en m: 0 o más; con 0 no hay"},
    {"OVERHANG-ANGLE", "90.00", "lo que forma con la ventana, en grados: de 0 a 180"},
};
constexpr CopiedKeyword kPlaceKeywords[] = {
    {"LATITUDE", "40.40", "latitud, en grados: de -90 a 90, el norte positivo"},
    {"LONGITUDE", "-3.70", "longitud, en grados: de -180 a 180, el este positivo"},
    {"ALTITUDE", "650.0", "altitud sobre el mar, en m"},
};
constexpr CopiedCommand kBehind[] = {
    {kFrame, "NAME-FRAME", "El marco, que se copia en cada ventana sin leerlo.", kFrameKeywords},
    {kShade, "VENTANA-SOMBRA", "La sombra, que se copia en cada ventana sin leerla.",
     kShadeKeywords},
    {"Lugar", "SOLAR-POSITION", "El lugar, que se copia en el edificio sin leerlo.",
     kPlaceKeywords},
};
constexpr std::string_view kIfMissing = "Lo que falte no se escribe.";

constexpr int kStoreys = 4;
constexpr float kAirChanges = 0.63F;  // ren/h, as in most certificates
constexpr PerFacade<float> kStreetShares = {25, 15, 20, 12};
// A house stands between its neighbours.
constexpr PerFacade<float> kHouseShares = {25, 0, 20, 0};
constexpr PerFacade<float> kCourtyardShares = {20, 15, 25, 18};

/// As short as it can be written; with two decimals at most here.
std::string plain(double value) {
  std::array<char, 32> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<float>(value));
  return {digits.data(), end.ptr};
}

/// The plan number of a keyword; null for one that is none.
const PlanNumber* planNumberOf(const ViviendaKeyword& keyword) {
  const auto* field = std::get_if<float R::*>(&keyword.field);
  if (field == nullptr) return nullptr;
  const auto numbers = planNumbers();
  const auto number = std::ranges::find(numbers, *field, &PlanNumber::inTypology);
  return number == numbers.end() ? nullptr : &*number;
}

/// The building that the file describes.
R ordinaryRecord(const PlanData& data) {
  R record = defaultTypology();
  const TipoRow& row = tipoRow(data.tipo);
  record.tipo = data.tipo;
  record.numeroPlantas = std::clamp(kStoreys, row.storeys.least, row.storeys.most);
  record.alturaPlanta = static_cast<float>(kStoreyHeight);  // that of which windows are sized
  record.airChangesHr = kAirChanges;
  for (const PlanNumber& number : planNumbers()) {
    record.*number.inTypology = data.*number.inPlan;
  }
  const Plan plan = std::get<Plan>(planTipologia(data));
  const bool house = familyRow(row.family).isHouse();
  for (std::size_t i = 0; i < record.porcentajeFachada.size(); ++i) {
    record.porcentajeFachada.at(i) = (house ? kHouseShares : kStreetShares).at(i);
    record.porcentajePatio.at(i) = plan.numHuecosPatio.at(i) > 0 ? kCourtyardShares.at(i) : 0;
  }
  return record;
}

/// How a value is written.
class AsWritten {
 public:
  AsWritten(const R& record, std::string_view keyword) : record_(record), keyword_(keyword) {}

  std::string operator()(int R::*field) const { return std::to_string(record_.*field); }
  std::string operator()(float R::*field) const { return plain(record_.*field); }
  std::string operator()(PerFacade<float> R::*field) const {
    std::string list;
    for (const float value : record_.*field) list += (list.empty() ? "( " : ", ") + plain(value);
    return list + " )";
  }
  std::string operator()(std::string R::*) const {
    const auto* const name = std::ranges::find(kNames, keyword_, &Name::keyword);
    return concat("\"", name == std::end(kNames) ? "" : name->value, "\"");
  }
  std::string operator()(const IgnoredText& text) const { return record_.*text.kept; }

 private:
  const R& record_;
  std::string_view keyword_;
};

/// What the absence of a keyword means: what a record holds from the start.
struct IfMissing {
  std::string operator()(std::string R::*) const { return "no hay"; }
  std::string operator()(const IgnoredText& text) const { return defaultTypology().*text.kept; }
  template <typename Number>
  std::string operator()(Number R::*field) const {
    return AsWritten(defaultTypology(), {})(field);
  }
};

/// The values that a keyword may have in this building.
std::string valuesOf(const ViviendaKeyword& keyword, const PlanData& data) {
  if (keyword.field == ViviendaKeyword::Field(&R::tipo)) {
    return concat("de 1 a ", std::to_string(kLastTipo));
  }
  if (keyword.field == ViviendaKeyword::Field(&R::numeroPlantas)) {
    const StoreyRule& rule = tipoRow(data.tipo).storeys;
    return concat("con este tipo, ", std::to_string(rule.least),
                  rule.most == kAnyNumber ? " o más" : "");
  }
  const PlanNumber* const number = planNumberOf(keyword);
  if (number == nullptr) return std::string(keyword.values);
  if (data.*number->inPlan == 0) return "este tipo no lo usa";
  const PlanRange range = rangeIn(data, number->inPlan);
  return concat("de ", plain(range.least), " a ", plain(range.most),
                " con las demás medidas de este fichero");
}

std::string unitOf(const ViviendaKeyword& keyword) {
  if (keyword.unit.empty()) return {};
  return concat(", en ", keyword.unit == "m2"  ? "m²"
                         : keyword.unit == "°" ? "grados"
                                               : keyword.unit);
}

/// Whether this building cannot be without it: a measure that its plan needs is 0 where it is left
/// out, and 0 is not within its limits.
bool isNeeded(const ViviendaKeyword& keyword, const PlanData& data) {
  const PlanNumber* const number = planNumberOf(keyword);
  return keyword.required || (number != nullptr && data.*number->inPlan != 0);
}

std::string lines(const ViviendaKeyword& keyword, const PlanData& data, const R& record) {
  const std::string values = valuesOf(keyword, data);
  const bool needed = isNeeded(keyword, data);
  const std::string missing = needed ? "" : std::visit(IfMissing(), keyword.field);
  std::string comment = concat(keyword.meaning, unitOf(keyword));
  comment.front() = static_cast<char>(std::toupper(comment.front()));  // none begins with an accent
  if (!values.empty()) comment += ": " + values;
  if (needed) comment += "; obligatorio";
  if (!missing.empty()) comment += "; si falta, " + missing;
  return concat("   $ ", comment, "\n   ", keyword.name, " = ",
                std::visit(AsWritten(record, keyword.name), keyword.field), "\n");
}

std::string lines(const CopiedCommand& command) {
  std::string text = concat("\n$ ", command.about, " ", kIfMissing, "\n");
  for (const CopiedKeyword& row : command.keywords) {
    text += concat("$   ", row.keyword, ": ", row.about, "\n");
  }
  text += concat("\"", command.name, "\" = ", command.type, "\n");
  for (const CopiedKeyword& row : command.keywords) {
    text += concat("   ", row.keyword, " = ", row.value, "\n");
  }
  return text + "   ..\n";
}

}  // namespace

std::string newTypology(int tipo) {
  const PlanData data = ordinaryPlan(tipo);
  const R record = ordinaryRecord(data);
  const std::string number = std::to_string(tipo);
  std::string text = concat(
      "$ Tipología ", number, ": ", report::familyTitle(tipo), "\n",
      "$ Escrita por tip2bdl-cli nueva ", number,
      ". Cambie los números y los nombres y compruebe el", " fichero con tip2bdl-cli comprobar.\n",
      "$ Lo que sigue a un dólar es un comentario. Los decimales llevan punto. El fichero está en",
      " Windows-1252 (ANSI).\n\n\"Edificio\" = VIVIENDA\n");
  for (const ViviendaKeyword& keyword : viviendaKeywords()) text += lines(keyword, data, record);
  text += "   ..\n";
  for (const CopiedCommand& command : kBehind) text += lines(command);
  return text;
}
