#include "report/page_sections.h"
#include "report/page_text.h"
#include "report/words.h"

namespace report {

namespace {

std::string reasonsOf(const FacadeMeasure& facade) {
  std::string text;
  for (const GlazingReason reason : facade.reasons) {
    if (!text.empty()) text += "; ";
    text += reasonText(reason);
  }
  return text.empty() ? "coincide" : text;
}

void writeNote(HtmlWriter& html, Count windows, std::string_view one, std::string_view many) {
  if (windows == 0) return;
  html.raw("<p class=\"nota\">Nota: ")
      .text(plural(windows, one, many))
      .raw(". Se dibujan como están escritas.</p>\n");
}

void writeBuilding(HtmlWriter& html, const Measures& m) {
  HtmlTable table("Del edificio, con todas sus plantas", {"Magnitud", "Cómo se calcula", "Valor"},
                  2);
  const auto row = [&](const char* name, const char* formula, const std::string& value) {
    table.row({name, formula, value});
  };
  row("Superficie total del modelo", "Σ contornos de los espacios × plantas", m2(m.floorArea));
  row("Superficie de los espacios habitables del modelo",
      "la de los espacios que la tabla marca, × plantas", m2(m.countedArea));
  row("Volumen bruto", "Σ superficie × altura de planta, de suelo a suelo",
      quantity(m.volume, 1, "m³"));
  row("Fachadas a la calle, brutas", "Σ longitud × altura × plantas, con huecos", m2(m.facade));
  if (m.courtyard > 0) row("Fachadas de patio, brutas", "lo mismo, en el patio", m2(m.courtyard));
  if (m.party > 0) row("Medianeras", "Σ longitud × altura × plantas", m2(m.party));
  row("Cubierta plana", "Σ contornos", m2(m.roof));
  row("Suelo", "Σ contornos", m2(m.ground));
  if (m.partition > 0) {
    row("Particiones verticales entre espacios", "cada arista una vez × altura × plantas",
        m2(m.partition));
  }
  if (m.inner > 0) row("Tabiques dentro de un espacio", "como los da la plantilla", m2(m.inner));
  if (m.slabs > 0) row("Forjados entre plantas", "Σ contornos × (plantas − 1)", m2(m.slabs));
  row("Huecos", "Σ ancho × alto × multiplicador", m2(m.openings));
  row("Huecos / superficie", "100 · huecos / superficie total", percent(m.openingsByFloor));
  row("Superficie en contacto con el aire o el terreno (A)",
      "fachadas + patios + cubierta + suelo de todos los espacios, huecos incluidos",
      m2(m.exchanging));
  row("Compacidad (V/A)", "volumen bruto / A", quantity(m.compactness, 2, "m³/m²"));
  table.write(html);
}

void writeSpaces(HtmlWriter& html, const Measures& m) {
  HtmlTable spaces(
      "De cada recinto de la planta baja",
      {"Recinto", "Superficie", "Volumen", "Fachada", "Patio", "Medianera", "Partición", "Huecos"},
      1);
  for (const SpaceMeasure& space : m.spaces) {
    spaces.row({space.name, m2(space.area), quantity(space.volume, 1, "m³"), m2(space.facade),
                m2(space.courtyard), m2(space.party), m2(space.partition), m2(space.openings)});
  }
  spaces.write(html);
  html.raw(
      "<p class=\"nota\">De una planta. La partición entre dos recintos está en los dos, y en "
      "el edificio una vez. Suelo y cubierta, si los tiene: su superficie.</p>\n");
}

void writeDirections(HtmlWriter& html, const Measures& m) {
  HtmlTable table("Por orientación real",
                  {"Orientación", "Fachada", "Patio", "Medianera", "Huecos", "Huecos / fachadas"},
                  1);
  for (const DirectionMeasure& each : m.byDirection) {
    if (each.open() + each.party <= 0) continue;
    table.row({std::string(directionSymbol(each.azimuth)) + ", " + degrees(each.azimuth),
               m2(each.facade), m2(each.courtyard), m2(each.party), m2(each.openings),
               each.open() > 0 ? percent(100 * each.openings / each.open()) : ""});
  }
  table.write(html);
  html.raw(
      "<p class=\"nota\">Azimut desde el norte, en sentido horario. El giro del edificio se "
      "suma a la dirección de cada lado del dibujo. Muros brutos; huecos sobre calle y patio "
      "juntos.</p>\n");
}

}  // namespace

void writeGlazing(HtmlWriter& html, const Report& report) {
  if (!report.measures) return;
  const Measures& m = *report.measures;
  html.raw("<section id=\"huecos\" class=\"pagina\">\n<h2>3. Huecos</h2>\n");
  HtmlTable table("Huecos por fachada, pedidos y obtenidos",
                  {"Fachada", "Mira al", "Lado", "Diferencia", "Muro", "Huecos", "Ventanas",
                   "Pedido", "Obtenido"},
                  4);
  double wall = 0;
  Count windows = 0;
  for (const FacadeMeasure& facade : m.facades) {
    table.row({facadeName(facade), looksTo(facade.azimuth), facade.courtyard ? "patio" : "calle",
               reasonsOf(facade), m2(facade.wall), m2(facade.openings), counted(facade.windows),
               percent(facade.asked), percent(facade.obtained)});
    wall += facade.wall;
    windows += facade.windows;
  }
  table.total({"Total", "", "", "", m2(wall), m2(m.openings), counted(windows), "",
               percent(wall > 0 ? 100 * m.openings / wall : 0)});
  table.write(html);
  html.raw(
      "<p class=\"nota\">Muro: longitud × altura de planta × plantas, con sus huecos. "
      "Hueco: ancho × alto de cada ventana escrita, por su multiplicador; no se sabe si "
      "incluye el marco. El porcentaje pedido se aplica a paños de 3,00 m de alto, sea cual "
      "sea la altura de planta.</p>\n");
  writeNote(html, m.headsAboveCeiling, "ventana pasa del techo de su planta",
            "ventanas pasan del techo de su planta");
  writeNote(html, m.tallerThanStorey, "ventana es más alta que su planta",
            "ventanas son más altas que su planta");
  html.raw("</section>\n");
}

void writeMeasures(HtmlWriter& html, const Report& report) {
  if (!report.measures) return;
  html.raw("<section id=\"medidas\">\n<h2>4. Medidas</h2>\n");
  writeBuilding(html, *report.measures);
  writeSpaces(html, *report.measures);
  writeDirections(html, *report.measures);
  html.raw("</section>\n");
}

}  // namespace report
