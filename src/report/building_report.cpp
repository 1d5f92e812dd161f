#include "report/building_report.h"

#include <algorithm>

#include "core/cp1252.h"
#include "core/paths.h"
#include "plan/plan_numbers.h"
#include "report/building_views.h"
#include "report/fingerprint.h"
#include "report/words.h"
#include "report/written_commands.h"
#include "typology/vivienda_keywords.h"

namespace report {

namespace {

/// A value as a table shows it.
struct ValueText {
  const TypologyRecord& record;

  static std::string real(float value) {
    std::string text = shortNumber(static_cast<double>(value), 4);
    return text;
  }
  std::string operator()(int TypologyRecord::*field) const { return std::to_string(record.*field); }
  std::string operator()(float TypologyRecord::*field) const { return real(record.*field); }
  std::string operator()(PerFacade<float> TypologyRecord::*field) const {
    std::string text;
    for (const Facade side : kSides) {
      if (!text.empty()) text += " · ";
      text += std::string(kFacadeNames[side]) + " " + real((record.*field)[side]);
    }
    return text;
  }
  std::string operator()(std::string TypologyRecord::*field) const {
    return std::string(unquoted(record.*field));
  }
  std::string operator()(IgnoredText) const { return {}; }
};

/// As a rater writes it.
std::string unitText(std::string_view unit) { return unit == "m2" ? "m²" : cp1252::toUtf8(unit); }

std::string fixedValue(std::string_view keyword, const TypologyRecord& record) {
  if (keyword == "CUBIERTA") return record.cubierta;
  return keyword == "ATICO" ? record.atico : record.sotano;
}

std::string_view whereText(SurfaceKind kind) {
  switch (kind) {
    case SurfaceKind::kFacade:
      return "Fachadas";
    case SurfaceKind::kCourtyard:
      return "Fachadas de patio";
    case SurfaceKind::kParty:
      return "Medianeras";
    case SurfaceKind::kPartition:
      return "Particiones entre espacios";
    case SurfaceKind::kInner:
      return "Particiones dentro de un espacio";
    case SurfaceKind::kSlab:
      return "Forjados";
    case SurfaceKind::kRoof:
      return "Cubierta";
    case SurfaceKind::kGround:
      return "Suelo";
    case SurfaceKind::kOther:
      break;
  }
  return "Otras superficies";
}

std::vector<ConstructionUse> constructionsOf(const GeneratedBuilding& building) {
  std::vector<ConstructionUse> uses;
  for (const WrittenSurface& surface : building.surfaces) {
    if (surface.construction.empty()) continue;
    const std::string_view where = whereText(surface.kind);
    auto use = std::ranges::find_if(uses, [&](const ConstructionUse& each) {
      return each.name == surface.construction && each.where == where;
    });
    if (use == uses.end()) {
      uses.push_back({surface.construction, std::string(where), 0, 0});
      use = uses.end() - 1;
    }
    use->surfaces += surface.multiplier;
    use->area += surface.area * static_cast<double>(surface.multiplier);
  }
  return uses;
}

/// The command of a type that the run used; of any name where `name` is empty.
const WrittenCommand* usedCommand(const std::vector<WrittenCommand>& commands,
                                  std::string_view type, std::string_view name) {
  const auto found = std::ranges::find_if(commands, [&](const WrittenCommand& command) {
    return command.type == type && (name.empty() || command.name == name);
  });
  return found == commands.end() ? nullptr : &*found;
}

/// The line of a keyword; `none` where the command has none.
Place lineOf(const WrittenCommand& command, std::string_view name, const Place& none) {
  Place place = none;
  for (std::size_t i = command.keywords.size(); i-- > 0;) {
    if (command.keywords[i].first != name) continue;
    place.line = command.lines[i];
    place.column = 1;
  }
  return place;
}

/// The keywords of a frame, a shade or a place of which the run has the text `used`.
void addCommand(Report& report, const std::string& file, const WrittenCommand* command,
                std::string_view used) {
  if (command == nullptr || used.empty()) return;
  for (std::size_t i = 0; i < command->keywords.size(); ++i) {
    const auto& [keyword, value] = command->keywords[i];
    report.data.push_back({std::string(command->name) + " = " + std::string(command->type),
                           std::string(keyword), std::string(unquoted(value)), "", file,
                           command->lines[i]});
  }
}

}  // namespace

std::string baseName(const std::string& path) { return path.substr(folderOf(path).size()); }

void addTypology(Report& report, const TypologyRecord& typology) {
  const std::vector<WrittenCommand> commands = readCommands(typology.fuente().bytes());
  const WrittenCommand* vivienda = usedCommand(commands, "VIVIENDA", "");
  report.identity = {vivienda == nullptr ? "" : std::string(trimmed(vivienda->name)), typology.tipo,
                     typology.numeroPlantas, static_cast<double>(typology.orientacion),
                     static_cast<double>(typology.airChangesHr)};
  const Place none = typology.placeOf({});
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    Datum datum;
    datum.keyword = keyword.name;
    datum.unit = unitText(keyword.unit);
    datum.value = std::holds_alternative<IgnoredText>(keyword.field)
                      ? fixedValue(keyword.name, typology)
                      : std::visit(ValueText{typology}, keyword.field);
    Place place = typology.placeOf(keyword.name);
    // What no run reads is where it is written: a search would find CUBIERTA in CUBIERTAS.
    if (std::holds_alternative<IgnoredText>(keyword.field)) {
      place = vivienda == nullptr ? none : lineOf(*vivienda, keyword.name, none);
    }
    if (place.line != none.line || place.column != none.column) {
      datum.file = baseName(place.file);
      datum.line = place.line;
    }
    report.data.push_back(std::move(datum));
  }

  const std::string file = baseName(typology.fuente().name());
  addCommand(report, file, usedCommand(commands, "NAME-FRAME", unquoted(typology.ventanaMarco)),
             typology.textoMarco);
  addCommand(report, file,
             usedCommand(commands, "VENTANA-SOMBRA", unquoted(typology.ventanaSombra)),
             typology.textoSombra);
  addCommand(report, file, usedCommand(commands, "SOLAR-POSITION", ""),
             typology.textoPosicionSolar);

  PlanSheet sheet;
  sheet.data = planDataOf(typology);
  const PlanResult result = planTipologia(sheet.data);
  if (!std::holds_alternative<Plan>(result)) return;
  sheet.plan = std::get<Plan>(result);
  sheet.giro = report.identity->giro;
  sheet.title = report.identity->title;
  sheet.content = planContent(typology.tipo);
  sheet.program = report.program;
  sheet.fingerprint = fingerprint(typology.fuente().bytes());
  report.sheet = std::move(sheet);
}

void addBuilding(Report& report, const TypologyRecord& typology, const Template& plantilla,
                 std::string_view output) {
  if (!report.sheet) return;
  const Plan& plan = report.sheet->plan;
  report.building = readBuilding(output, typology.textoTipologia(), plantilla.building().bytes(),
                                 plantilla.table(), plan);
  const Asked asked{typology.porcentajeFachada, typology.porcentajePatio,
                    static_cast<double>(typology.orientacion)};
  report.measures = measure(*report.building, plan, asked);
  report.measures->spaces = measureSpaces(*report.building, plan);
  report.constructions = constructionsOf(*report.building);
  if (!report.building->followsPlan()) return;
  report.sheet->party = partySides(*report.building);
  report.sheet->windows = windowsOfPlan(*report.building);
}

}  // namespace report
