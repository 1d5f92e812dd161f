#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include "check/checked_template.h"
#include "check/suggestion.h"
#include "core/concat.h"
#include "core/cp1252.h"
#include "generator/name_list.h"
#include "generator/window_emitter.h"
#include "plan/plan_numbers.h"
#include "typology/tipo.h"
#include "typology/vivienda_keywords.h"

namespace {

/// A number for people: a decimal comma, no zeros at its end.
std::string shown(double value, int decimals = 2) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  std::string text = buffer;
  if (text.find('.') != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
  }
  std::ranges::replace(text, '.', ',');
  return text;
}

class Fit {
 public:
  Fit(const CheckedTemplate& checked, const TypologyRecord& typology, Wanted wanted)
      : wanted_(wanted),
        plantilla_(checked.plantilla()),
        commands_(checked.commands()),
        windows_(checked.windows()),
        typology_(typology) {}

  Findings ofNames() {
    compareNames();
    compareFrame();
    return std::move(findings_);
  }

  Findings ofPlan(const Plan& plan) {
    comparePolygons(plan);
    compareStoreys();
    compareShades();
    compareFacades(plan);
    if (typology_.alturaPlanta > 0 && std::isfinite(typology_.alturaPlanta)) {
      foretellGlazing(plan);
    }
    return std::move(findings_);
  }

 private:
  /// Constructions and glass that the template does not define, or defines as something else.
  void compareNames() {
    for (const std::string_view keyword :
         {"MUROS-FACHADA", "PARTICION-INTERIOR-VERTICAL", "MEDIANERA", "SUELOS",
          "PARTICION-INTERIOR-HORIZONTAL", "CUBIERTAS"}) {
      compareName(keyword, "CONSTRUCTION", "una construcción"_cp1252);
    }
    compareName("VENTANA-VIDRIO", "GLASS-TYPE", "un vidrio");
  }

  void compareName(std::string_view keyword, std::string_view type, std::string_view what) {
    const ViviendaKeyword* row = findViviendaKeyword(keyword);
    const std::string& given = typology_.*std::get<std::string TypologyRecord::*>(row->field);
    if (given.empty() || given == "\"\"") return;  // a finding of its own
    // A name of one word may go without its quotes.
    const std::string name = given.starts_with('"') ? given : concat("\"", given, "\"");
    const TemplateCommands::Command* command = commands_.named(name);
    // The typology's own text comes behind the template: what it defines counts as well.
    if (command == nullptr && definedInTypology(name)) return;
    if (command != nullptr && command->type == type) return;
    if (command != nullptr && isDefinedAs(name, type)) return;
    Finding finding{.code = command == nullptr ? Code::kNombreNoDefinido : Code::kNombreDeOtraCosa,
                    .message = {},
                    .place = placeOf(keyword),
                    .found = name,
                    .used = "el nombre tal cual"};
    if (command == nullptr) {
      finding.message =
          concat(keyword, " nombra ", name, ", que no está definido en la plantilla"_cp1252);
      finding.suggestion = nearestOf(type, name);
    } else {
      finding.message = concat(keyword, " nombra ", name, ", que en la plantilla es ",
                               command->type, " y no ", what);
    }
    finding.allowed = concat("el nombre de ", what, " (", type, ")");
    findings_.push_back(std::move(finding));
  }

  bool isDefinedAs(std::string_view name, std::string_view type) const {
    return std::ranges::any_of(commands_.all(), [&](const TemplateCommands::Command& command) {
      return command.name == name && command.type == type;
    });
  }

  bool definedInTypology(std::string_view name) const {
    return TemplateCommands(typology_.fuente()).named(name) != nullptr;
  }

  /// The template's name of that type that is meant, as far as can be told.
  std::string nearestOf(std::string_view type, std::string_view name) const {
    std::vector<std::string_view> names;
    for (const TemplateCommands::Command* command : commands_.ofType(type)) {
      names.push_back(command->name);
    }
    const std::string_view near = nearestWord(name, names);
    return near.empty() ? namesOf(type) : std::string(near);
  }

  /// The names of that type that the template has, for whoever looks for the right one.
  std::string namesOf(std::string_view type) const {
    std::string names;
    int shownNames = 0;
    for (const TemplateCommands::Command* command : commands_.ofType(type)) {
      if (++shownNames > 4) return names + " ...";
      names += concat(names.empty() ? "" : ", ", command->name);
    }
    return names.empty() ? std::string() : concat("uno de los de la plantilla: ", names);
  }

  /// A frame that only the template defines: what it says of the frame is dropped with the window's
  /// own keywords.
  void compareFrame() {
    if (typology_.ventanaMarco.empty() || !typology_.textoMarco.empty()) return;
    if (!isDefinedAs(typology_.ventanaMarco, "NAME-FRAME")) return;
    findings_.push_back(
        {.code = Code::kMarcoDeLaPlantilla,
         .message = concat("El marco ", typology_.ventanaMarco,
                           " está en la plantilla y no en la tipología: las ventanas no llevarán "
                           "sus datos"_cp1252),
         .place = placeOf("VENTANA-MARCO"),
         .found = typology_.ventanaMarco,
         .used = "ventanas sin los datos del marco",
         .suggestion = concat("copie el comando ", typology_.ventanaMarco,
                              " = NAME-FRAME de la plantilla a la tipología"_cp1252)});
  }

  void comparePolygons(const Plan& plan) {
    const auto polygons = commands_.ofType("POLYGON");
    const std::size_t wanted = plan.outlines.size();
    if (polygons.size() <= wanted) return;  // too few end the run
    findings_.push_back(
        {.code = Code::kPoligonosDeMas,
         .message =
             concat("La plantilla tiene ", std::to_string(polygons.size()),
                    " contornos (POLYGON) y la tipología escribe "_cp1252, std::to_string(wanted)),
         .place = plantilla_.building().placeOf(polygons[wanted]->header),
         .found = std::to_string(polygons.size()),
         .used = concat("los ", std::to_string(wanted), " primeros"),
         .allowed = std::to_string(wanted),
         .suggestion = concat("use la plantilla de un edificio de tipología "_cp1252,
                              std::to_string(typology_.tipo))});
  }

  void compareStoreys() {
    const auto floors = commands_.ofType("FLOOR");
    const auto wanted = static_cast<std::size_t>(tipoRow(typology_.tipo).planStoreys);
    if (floors.size() == wanted) return;
    findings_.push_back(
        {.code = Code::kPlantasDeLaPlantilla,
         .message =
             concat("La plantilla tiene ", std::to_string(floors.size()),
                    floors.size() == 1 ? " planta" : " plantas", " (FLOOR) y la tipología "_cp1252,
                    std::to_string(typology_.tipo), " se construye con ", std::to_string(wanted)),
         .place = placeOf("TIPO"),
         .found = std::to_string(floors.size()),
         .used = "las de la plantilla",
         .allowed = std::to_string(wanted),
         .suggestion = concat("use la plantilla de un edificio de tipología "_cp1252,
                              std::to_string(typology_.tipo))});
  }

  /// The two headers that a number with courtyard shades meets first.
  void compareShades() {
    const TipoRow& row = tipoRow(typology_.tipo);
    if (row.shades == CourtyardShades::kNotLookedFor) return;
    const auto shades = commands_.ofType("BUILDING-SHADE");
    const std::array<std::string_view, 2> names = {kFirstShadeName, kSecondShadeName};
    const std::array<bool, 2> wanted = {row.firstShade(), row.secondShade()};
    for (std::size_t i = 0; i < names.size() && i < shades.size(); ++i) {
      if (!wanted[i] || shades[i]->name.find(names[i]) != std::string_view::npos) continue;
      findings_.push_back(
          {.code = Code::kSombraDePatio,
           .message = concat("El BUILDING-SHADE ", shades[i]->name, " está en el lugar de "_cp1252,
                             names[i], ", y su cabecera no se escribirá"_cp1252),
           .place = plantilla_.building().placeOf(shades[i]->header),
           .found = std::string(shades[i]->name),
           .used = "ninguna sombra",
           .allowed = std::string(names[i]),
           .suggestion = concat("llame \"", names[i], "\" a la sombra")});
    }
  }

  /// Façades with glazing and bays, but without a window in the template.
  void compareFacades(const Plan& plan) {
    for (std::size_t facade = 0; facade < 4; ++facade) {
      compareFacade("PORCENTAJE-FACHADA", facade, typology_.porcentajeFachada[facade],
                    windows_.street[facade], plan.numHuecosFachada[facade], "de calle");
      compareFacade("PORCENTAJE-PATIO", facade, typology_.porcentajePatio[facade],
                    windows_.courtyard[facade], plan.numHuecosPatio[facade], "de patio");
    }
  }

  void compareFacade(std::string_view keyword, std::size_t facade, float percentage, int windows,
                     int bays, std::string_view side) {
    if (!(percentage > 0) || windows > 0) return;
    // A percentage for a side without bays, and no window to ask for it, is no matter.
    if (bays == 0 && keyword == "PORCENTAJE-FACHADA") return;
    findings_.push_back({.code = Code::kFachadaSinVentanas,
                         .message = concat("La plantilla no tiene ventanas ", side,
                                           " en la fachada ", kFacadeNames[facade],
                                           ", que pide un ", shown(percentage), " % de huecos"),
                         .place = placeOf(keyword),
                         .found = shown(percentage) + " %",
                         .used = std::string("ningún hueco"_cp1252)});
  }

  /// Where the glazing will not be what was asked for, or windows leave their wall.
  void foretellGlazing(const Plan& plan) {
    const float height = typology_.alturaPlanta;
    const double factor = kStoreyHeight / height;
    // Where there is none, the data of the courtyard are those of the ends of the stair.
    const bool none = tipoRow(typology_.tipo).courtyards == CourtyardPlace::kNoCourtyard;
    const std::string inside = none ? " del extremo de la escalera" : " del patio";
    bool anyGlazing = false;
    for (std::size_t facade = 0; facade < 4; ++facade) {
      const std::string name(kFacadeNames[facade]);
      if (windows_.street[facade] > 0 && plan.numHuecosFachada[facade] > 0) {
        anyGlazing |=
            foretellFacade("PORCENTAJE-FACHADA", name, typology_.porcentajeFachada[facade]);
      }
      if (windows_.courtyard[facade] > 0 && plan.numHuecosPatio[facade] > 0) {
        anyGlazing |=
            foretellFacade("PORCENTAJE-PATIO", name + inside, typology_.porcentajePatio[facade]);
      }
    }
    if (!anyGlazing || height == kStoreyHeight) return;
    add(Code::kHuecosDistintos, [&]() -> Finding {
      return {.code = Code::kHuecosDistintos,
              .message =
                  concat("Los huecos se calculan con plantas de 3,00 m y esta mide ", shown(height),
                         " m: se obtendrá cada porcentaje por "_cp1252, shown(factor, 3)),
              .place = placeOf("ALTURA-PLANTA"),
              .found = shown(height) + " m",
              .used = std::string("paños de 3,00 m"_cp1252)};
    });
  }

  /// Of a façade that has windows. Whether any will be there.
  bool foretellFacade(std::string_view keyword, const std::string& facade, float percentage) {
    if (!(percentage > 0) || !std::isfinite(percentage)) return false;
    const double height = typology_.alturaPlanta;
    const double head = percentage > 100 ? kStoreyHeight : headOf(percentage);
    const auto which = [&] {
      return concat(" de la fachada ", facade, " (", shown(percentage), " %)");
    };
    if (percentage > 100) {
      note(Code::kVentanaLimitada, keyword, percentage,
           [&] { return concat("La ventana", which(), " queda limitada al paño entero"_cp1252); });
    }
    if (windowHeight(percentage) > height) {
      note(Code::kVentanaMasAlta, keyword, percentage, [&] {
        return concat("La ventana", which(), " mide ", shown(windowHeight(percentage)),
                      " m de alto y la planta ", shown(height), " m");
      });
    } else if (head > height) {
      note(Code::kVentanaSobreElTecho, keyword, percentage, [&] {
        return concat("El dintel de la ventana", which(), " queda a ", shown(head),
                      " m y el techo a ", shown(height), " m");
      });
    }
    return true;
  }

  /// Height of a window of the template's ordinary kind, m. Not what sizeWindow makes of it: that
  /// is rounded to 32 bits, where 80 % of a storey may be more than 2,40 m.
  static double windowHeight(double percentage) {
    return std::clamp(kStoreyHeight * percentage / 100.0, double{kWindowHeight}, kStoreyHeight);
  }
  /// It stands in the middle of its bay.
  static double headOf(double percentage) {
    return (kStoreyHeight + windowHeight(percentage)) / 2.0;
  }

  void note(Code code, std::string_view keyword, float percentage, const auto& message) {
    add(code, [&]() -> Finding {
      return {.code = code,
              .message = message(),
              .place = placeOf(keyword),
              .found = shown(percentage) + " %"};
    });
  }

  /// `finding`: makes it, if more than its code is wanted.
  void add(Code code, const auto& finding) {
    if (wanted_ == Wanted::kFindings) {
      findings_.push_back(finding());
    } else {
      findings_.push_back({.code = code, .message = {}});
    }
  }

  /// A place is looked for in the whole typology.
  std::optional<Place> placeOf(std::string_view keyword) const {
    if (wanted_ == Wanted::kCodes) return std::nullopt;
    return typology_.placeOf(keyword);
  }

  Wanted wanted_;
  const Template& plantilla_;
  const TemplateCommands& commands_;
  const WindowCounts& windows_;
  const TypologyRecord& typology_;
  Findings findings_;
};

}  // namespace

Findings nameFindings(const CheckedTemplate& checked, const TypologyRecord& typology,
                      Wanted wanted) {
  return Fit(checked, typology, wanted).ofNames();
}

Findings planFindings(const CheckedTemplate& checked, const TypologyRecord& typology,
                      const Plan& plan, Wanted wanted) {
  return Fit(checked, typology, wanted).ofPlan(plan);
}

Findings fitFindings(const CheckedTemplate& checked, const TypologyRecord& typology, bool hasPlan,
                     Wanted wanted) {
  Findings findings = nameFindings(checked, typology, wanted);
  if (!hasPlan) return findings;
  const PlanResult result = planTipologia(planDataOf(typology));
  if (const auto* plan = std::get_if<Plan>(&result)) {
    std::ranges::move(planFindings(checked, typology, *plan, wanted), std::back_inserter(findings));
  }
  return findings;
}
