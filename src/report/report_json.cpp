#include <cmath>
#include <nlohmann/json.hpp>

#include "core/cp1252.h"
#include "report/building_report.h"
#include "report/words.h"

namespace report {

namespace {

using Json = nlohmann::ordered_json;

std::string text(std::string_view bytes) { return cp1252::toUtf8(bytes); }

/// A hundredth and a thousandth are enough for sums to hold.
double rounded(double value, double steps = 1e4) { return std::round(value * steps) / steps; }

Json facadeOf(const FacadeMeasure& facade) {
  Json reasons = Json::array();
  for (const GlazingReason reason : facade.reasons) reasons.push_back(reasonText(reason));
  return {{"nombre", kFacadeNames[facade.side]},
          {"lado", facade.courtyard ? "patio" : "calle"},
          {"orientacion_grados", rounded(facade.azimuth)},
          {"orientacion", directionSymbol(facade.azimuth)},
          {"muro_m2", rounded(facade.wall)},
          {"huecos_m2", rounded(facade.openings)},
          {"ventanas", facade.windows},
          {"pedido_pct", rounded(facade.asked)},
          {"obtenido_pct", rounded(facade.obtained)},
          {"motivos", reasons}};
}

Json measuresOf(const Measures& m) {
  Json openings = Json::object();
  for (std::size_t i = 0; i < kDirections.size(); ++i) {
    const DirectionMeasure& each = m.byDirection[i];
    if (each.open() <= 0) continue;
    openings[std::string(kDirections[i])] = {{"muro_m2", rounded(each.open())},
                                             {"huecos_m2", rounded(each.openings)}};
  }
  Json spaces = Json::array();
  for (const SpaceMeasure& space : m.spaces) {
    spaces.push_back({{"nombre", text(space.name)},
                      {"superficie_m2", rounded(space.area)},
                      {"volumen_m3", rounded(space.volume)},
                      {"fachada_m2", rounded(space.facade)},
                      {"patio_m2", rounded(space.courtyard)},
                      {"medianera_m2", rounded(space.party)},
                      {"particion_m2", rounded(space.partition)},
                      {"huecos_m2", rounded(space.openings)}});
  }
  return {{"plantas", m.storeys},
          {"viviendas", m.dwellings},
          {"altura_planta_m", rounded(m.storeyHeight)},
          {"superficie_planta_m2", rounded(m.footprint)},
          {"superficie_total_m2", rounded(m.floorArea)},
          {"superficie_espacios_habitables_m2", rounded(m.countedArea)},
          {"volumen_m3", rounded(m.volume)},
          {"compacidad_m3_m2", rounded(m.compactness)},
          {"fachada_m2", rounded(m.facade)},
          {"patio_m2", rounded(m.courtyard)},
          {"medianera_m2", rounded(m.party)},
          {"cubierta_m2", rounded(m.roof)},
          {"suelo_m2", rounded(m.ground)},
          {"particion_m2", rounded(m.partition)},
          {"tabiques_m2", rounded(m.inner)},
          {"forjados_m2", rounded(m.slabs)},
          {"huecos_m2", rounded(m.openings)},
          {"huecos_por_planta_pct", rounded(m.openingsByFloor)},
          {"ventanas_sobre_el_techo", m.headsAboveCeiling},
          {"por_orientacion", openings},
          {"espacios_planta_baja", spaces}};
}

}  // namespace

std::string asJson(const Report& report) {
  Json json = {{"esquema", "tip2bdl-informe"}, {"version", kJsonVersion}};
  json["programa"] = report.program;
  json["completo"] = !report.fault.has_value();
  if (report.fault) {
    Json fault = {{"mensaje", text(report.fault->message)}};
    if (const auto& place = report.fault->place) {
      fault["fichero"] = text(place->file);
      if (place->line > 0) {
        fault["linea"] = place->line;
        fault["columna_bytes"] = place->column;
      }
    }
    json["falta"] = fault;
  }
  Json identity = Json::object();
  if (report.identity) {
    identity = {{"titulo", text(report.identity->title)},
                {"tipo", report.identity->tipo},
                {"significado", familyTitle(report.identity->tipo)},
                {"numero_plantas", report.identity->numeroPlantas},
                {"giro_grados", rounded(report.identity->giro)}};
  }
  Json inputs = Json::array();
  for (const InputFile& input : report.inputs) {
    inputs.push_back({{"papel", input.role},
                      {"nombre", text(input.name)},
                      {"bytes", input.bytes},
                      {"huella_xxh3", input.fingerprint}});
  }
  identity["entradas"] = inputs;
  json["identificacion"] = identity;
  if (report.measures) {
    Json facades = Json::array();
    for (const FacadeMeasure& facade : report.measures->facades)
      facades.push_back(facadeOf(facade));
    json["fachadas"] = facades;
    json["medidas"] = measuresOf(*report.measures);
  }
  Json data = Json::array();
  for (const Datum& datum : report.data) {
    Json row = {{"palabra_clave", text(datum.keyword)}, {"valor", text(datum.value)}};
    if (!datum.command.empty()) row["orden"] = text(datum.command);
    if (!datum.unit.empty()) row["unidad"] = text(datum.unit);
    if (datum.file.empty()) {
      row["por_defecto"] = true;
    } else {
      row["fichero"] = text(datum.file);
      row["linea"] = datum.line;
    }
    data.push_back(row);
  }
  json["datos"] = data;
  Json constructions = Json::array();
  for (const ConstructionUse& use : report.constructions) {
    constructions.push_back({{"nombre", text(use.name)},
                             {"donde", use.where},
                             {"superficies", use.surfaces},
                             {"bruto_m2", rounded(use.area)}});
  }
  json["construcciones"] = constructions;
  if (report.building) {
    Json commands = Json::array();
    for (const auto& [type, count] : report.building->commands) {
      commands.push_back({{"tipo", text(type)},
                          {"conservadas", count.kept},
                          {"reescritas", count.rewritten},
                          {"eliminadas", count.removed}});
    }
    json["ordenes"] = commands;
  }
  Json findings = Json::array();
  for (const Finding& finding : report.findings) {
    findings.push_back({{"grado", finding.severity},
                        {"codigo", finding.code},
                        {"mensaje", text(finding.message)},
                        {"lugar", text(finding.place)}});
  }
  json["comprobaciones"] = findings;
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace report
