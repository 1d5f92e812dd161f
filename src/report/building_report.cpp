#include "report/building_report.h"

#include <algorithm>

#include "core/cp1252.h"
#include "core/paths.h"
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
      text += std::string(sideName(side)) + " " + real((record.*field)[side]);
    }
    return text;
  }
  std::string operator()(std::string TypologyRecord::*field) const {
    return std::string(unquoted(record.*field));
  }
  std::string operator()(IgnoredText) const { return {}; }
};

/// As a rater writes it.
std::string unitText(std::string_view unit) {
  if (unit == "m2") return "m²";
  return unit == "1/h" ? "ren/h" : cp1252::toUtf8(unit);
}

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

std::string titleOf(const TypologyRecord& typology) {
  for (const WrittenCommand& command : readCommands(typology.fuente().bytes())) {
    if (command.type == "VIVIENDA") return std::string(command.name);
  }
  return {};
}

}  // namespace

std::string baseName(const std::string& path) { return path.substr(folderOf(path).size()); }

void addTypology(Report& report, const TypologyRecord& typology) {
  report.numeroPlantas = typology.numeroPlantas;
  report.title = titleOf(typology);
  const Place none = typology.placeOf({});
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    Datum datum;
    datum.keyword = keyword.name;
    datum.unit = unitText(keyword.unit);
    datum.value = std::holds_alternative<IgnoredText>(keyword.field)
                      ? fixedValue(keyword.name, typology)
                      : std::visit(ValueText{typology}, keyword.field);
    const Place place = typology.placeOf(keyword.name);
    if (place.line != none.line || place.column != none.column) {
      datum.file = baseName(place.file);
      datum.line = place.line;
    }
    report.data.push_back(std::move(datum));
  }

  PlanSheet sheet;
  sheet.data = {typology.tipo,
                typology.areaPlanta,
                typology.areaPatio,
                typology.areaEscalera,
                typology.longitudFachada,
                typology.profundidadPatio,
                typology.profundidadEscalera};
  const PlanResult result = planTipologia(sheet.data);
  if (!std::holds_alternative<Plan>(result)) return;
  sheet.plan = std::get<Plan>(result);
  sheet.giro = static_cast<double>(typology.orientacion);
  sheet.title = report.title;
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
  report.constructions = constructionsOf(*report.building);
  report.sheet->party = partySides(*report.building);
  report.sheet->windows = windowsOfPlan(*report.building);
}

}  // namespace report
