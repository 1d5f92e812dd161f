#include <algorithm>
#include <cmath>

#include "core/cp1252.h"
#include "report/building_report.h"
#include "report/building_views.h"
#include "report/html_writer.h"
#include "report/plan_rooms.h"
#include "report/words.h"

namespace report {

namespace {

std::string m2(double value, int decimals = 2) { return quantity(value, decimals, "m²"); }
std::string percent(double value) { return quantity(value, 1, "%"); }

std::string looksTo(double azimuth) {
  return std::string(directionName(azimuth)) + ", " + degrees(azimuth);
}

std::string facadeName(const FacadeMeasure& facade) {
  if (facade.courtyard) return "Patio, mira al " + std::string(directionName(facade.azimuth));
  return std::string(facadeTitle(facade.side)) + " «" + std::string(sideName(facade.side)) + "»";
}

std::string reasonsOf(const FacadeMeasure& facade) {
  std::string text;
  for (const GlazingReason reason : facade.reasons) {
    if (!text.empty()) text += "; ";
    text += reasonText(reason);
  }
  return text.empty() ? "coincide" : text;
}

std::string counted(Count count) { return number(static_cast<double>(count), 0); }

std::string plural(Count count, std::string_view one, std::string_view many) {
  return counted(count) + "\u00A0" + std::string(count == 1 ? one : many);
}

class Page {
 public:
  explicit Page(const Report& report) : report_(report) {}

  std::string write() {
    head();
    fault();
    identity();
    pictures();
    glazing();
    measures();
    data();
    rewritten();
    findings();
    endPage(html_, report_.program,
            "Informe sin fecha: las mismas entradas dan siempre los mismos bytes.");
    return html_.take();
  }

 private:
  std::string title() const {
    if (!report_.title.empty()) return cp1252::toUtf8(report_.title);
    return report_.sheet ? "Tipología " + std::to_string(report_.sheet->data.tipo) : "Edificio";
  }

  void head() {
    beginPage(html_, "Informe", title());
    if (report_.sheet) {
      html_.raw("<p class=\"entrada\">Tipología ")
          .text(std::to_string(report_.sheet->data.tipo))
          .raw(": ")
          .text(familyTitle(report_.sheet->data.tipo))
          .raw(".</p>\n");
    }
    html_.raw("<p>").text(kModelOnly).raw("</p>\n</header>\n");
  }

  void fault() {
    if (!report_.fault) {
      nav();
      html_.raw("<main>\n");
      return;
    }
    html_
        .raw(
            "<main>\n<section class=\"falta\" aria-label=\"Error\">\n"
            "<p><strong>El edificio no se genera.</strong> ")
        .text(report_.fault->message)
        .raw("</p>\n");
    if (const auto& place = report_.fault->place) {
      const std::string where = place->line > 0 ? asOneLine(*place) : place->file;
      html_.raw("<p><code>").text(where).raw("</code></p>\n");
    }
    html_.raw("<p>Este informe muestra solo lo que se ha podido leer.</p>\n</section>\n");
  }

  void nav() {
    html_.raw(
        "<nav aria-label=\"Secciones\">\n<ul>\n"
        "<li><a href=\"#identificacion\">Qué es</a></li>\n"
        "<li><a href=\"#imagenes\">Imágenes</a></li>\n"
        "<li><a href=\"#huecos\">Huecos</a></li>\n"
        "<li><a href=\"#medidas\">Medidas</a></li>\n"
        "<li><a href=\"#datos\">Datos</a></li>\n"
        "<li><a href=\"#ordenes\">Órdenes</a></li>\n"
        "<li><a href=\"#comprobaciones\">Comprobaciones</a></li>\n</ul>\n</nav>\n");
  }

  void identity() {
    html_.raw("<section id=\"identificacion\">\n<h2>1. Qué es</h2>\n");
    if (report_.measures) {
      const Measures& m = *report_.measures;
      html_.raw("<dl class=\"cifras\">\n");
      addFigure(html_, "Plantas", std::to_string(m.storeys));
      addFigure(html_, "Altura de planta", quantity(m.storeyHeight, 2, "m"));
      addFigure(html_, "Viviendas", std::to_string(m.dwellings));
      addFigure(html_, "Superficie de planta", m2(m.footprint, 1));
      addFigure(html_, "Superficie total del modelo", m2(m.floorArea, 0));
      addFigure(html_, "Fachada principal",
                "al " + looksTo(realAzimuth(kSouth, report_.sheet->giro)));
      html_.raw("</dl>\n");
      if (m.storeys != report_.numeroPlantas) {
        html_.raw("<p class=\"nota\">La tipología pide NUMERO-PLANTAS = ")
            .text(std::to_string(report_.numeroPlantas))
            .raw("; el modelo tiene ")
            .text(plural(m.storeys, "planta", "plantas"))
            .raw(", las de los multiplicadores de la plantilla.</p>\n");
      }
      html_.raw("<figure>\n<div class=\"lienzo ajusta\">\n")
          .drawing(axonometric(*report_.building, report_.sheet->plan, report_.sheet->giro), "axo")
          .raw(
              "</div>\n<figcaption>Vista axonométrica desde el suroeste. Giro del edificio "
              "(ORIENTACION): ")
          .text(degrees(report_.sheet->giro))
          .raw(", en sentido horario desde el norte.");
      if (m.storeys > kMostStoreys) {
        html_.raw(" Se dibujan las ").text(std::to_string(kMostStoreys)).raw(" plantas más bajas.");
      }
      html_.raw("</figcaption>\n</figure>\n");
      storeys();
    }
    HtmlTable inputs("Ficheros de entrada", {"Fichero", "Nombre", "Huella (XXH3)", "Bytes"}, 3);
    for (const InputFile& input : report_.inputs) {
      inputs.row({input.role, input.name,
                  input.fingerprint.empty() ? "no se ha podido leer" : input.fingerprint,
                  number(static_cast<double>(input.bytes), 0)});
    }
    inputs.write(html_);
    html_.raw("</section>\n");
  }

  void storeys() {
    HtmlTable table("Plantas", {"Planta", "Nombre en la plantilla", "Cota del suelo", "Altura"}, 2);
    Count first = 0;
    const auto& floors = report_.building->floors;
    for (std::size_t i = 0; i < floors.size(); ++i) {
      const WrittenFloor& floor = floors[i];
      const Count last = first + floor.multiplier - 1;
      std::string name = first == 0 ? "planta baja" : "planta " + std::to_string(first);
      if (last > first) {
        name = (first == 0 ? "planta baja a " : "plantas " + std::to_string(first) + " a ") +
               std::to_string(last);
      }
      if (i + 1 == floors.size() && first > 0) name += ", última";
      table.row({name, floor.name, quantity(floor.level, 2, "m"), quantity(floor.height, 2, "m")});
      first = last + 1;
    }
    table.write(html_);
  }

  void pictures() {
    if (!report_.sheet) return;
    html_
        .raw(
            "<section id=\"imagenes\" class=\"pagina\">\n<h2>2. Imágenes</h2>\n<figure>\n"
            "<div class=\"lienzo\" role=\"group\" tabindex=\"0\" aria-label=\"Plano de planta\">\n")
        .drawing(planDrawing(*report_.sheet), "plano")
        .raw(
            "</div>\n<figcaption>Plano de planta. «sur», «este», «norte» y «oeste» son los lados "
            "del dibujo antes del giro; cada uno lleva la dirección a la que mira en realidad."
            "</figcaption>\n</figure>\n");
    HtmlTable table("Superficies de una planta", {"Recinto", "Superficie"}, 1);
    for (const Room& room : rooms(report_.sheet->plan)) {
      table.row({room.count > 1 ? std::to_string(room.count) + " " + room.name + "s" : room.name,
                 m2(room.area * room.count)});
    }
    table.total({"Superficie de planta (AREA-PLANTA)",
                 m2(static_cast<double>(report_.sheet->data.areaPlanta))});
    table.write(html_);
    if (report_.measures) elevations();
    html_.raw("</section>\n");
  }

  void elevations() {
    const int scale = elevationScale(*report_.building, report_.sheet->plan);
    html_.raw("<h3>Alzados, a escala 1:").text(std::to_string(scale)).raw("</h3>\n");
    int count = 0;
    for (const FacadeMeasure& facade : report_.measures->facades) {
      const Drawing drawing = elevation(*report_.building, report_.sheet->plan, facade.side,
                                        facade.courtyard, report_.sheet->giro, scale);
      if (drawing.shapes.empty()) continue;
      html_.raw("<figure>\n<div class=\"lienzo\" role=\"group\" tabindex=\"0\" aria-label=\"")
          .text(drawing.title)
          .raw("\">\n")
          .drawing(drawing, "alzado" + std::to_string(++count))
          .raw("</div>\n<figcaption>")
          .text(drawing.title)
          .raw(". Muro ")
          .text(m2(facade.wall))
          .raw(", huecos ")
          .text(m2(facade.openings))
          .raw(" en ")
          .text(plural(facade.windows, "ventana", "ventanas"))
          .raw(". Pedido ")
          .text(percent(facade.asked))
          .raw(", obtenido ")
          .text(percent(facade.obtained))
          .raw(".</figcaption>\n</figure>\n");
    }
  }

  void glazing() {
    if (!report_.measures) return;
    const Measures& m = *report_.measures;
    html_.raw("<section id=\"huecos\" class=\"pagina\">\n<h2>3. Huecos</h2>\n");
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
    table.write(html_);
    html_.raw(
        "<p class=\"nota\">Muro: longitud × altura de planta × plantas, con sus huecos. "
        "Hueco: ancho × alto de cada ventana escrita, por su multiplicador; no se sabe si "
        "incluye el marco. El porcentaje pedido se aplica a paños de 3,00 m de alto, sea cual "
        "sea la altura de planta.</p>\n");
    if (m.headsAboveCeiling > 0) {
      html_.raw("<p class=\"nota\">Nota: ")
          .text(plural(m.headsAboveCeiling, "ventana pasa del techo de su planta",
                       "ventanas pasan del techo de su planta"))
          .raw(". Se dibujan como están escritas.</p>\n");
    }
    html_.raw("</section>\n");
  }

  void measures() {
    if (!report_.measures) return;
    const Measures& m = *report_.measures;
    html_.raw("<section id=\"medidas\">\n<h2>4. Medidas</h2>\n");
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
    row("Compacidad (V/A)", "volumen / (fachadas + patios + cubierta + suelo), huecos incluidos",
        quantity(m.compactness, 2, "m³/m²"));
    table.write(html_);

    HtmlTable spaces("De cada recinto de la planta baja",
                     {"Recinto", "Superficie", "Volumen", "Fachada", "Patio", "Medianera",
                      "Partición", "Huecos"},
                     1);
    for (const SpaceMeasure& space : m.spaces) {
      spaces.row({space.name, m2(space.area), quantity(space.volume, 1, "m³"), m2(space.facade),
                  m2(space.courtyard), m2(space.party), m2(space.partition), m2(space.openings)});
    }
    spaces.write(html_);
    html_.raw(
        "<p class=\"nota\">La partición que comparten dos recintos se cuenta en el que la "
        "escribe.</p>\n");

    HtmlTable byDirection("Por orientación real",
                          {"Orientación", "Fachada bruta", "Huecos", "Huecos / fachada"}, 1);
    for (std::size_t i = 0; i < kDirections.size(); ++i) {
      const double facade = m.facadeByDirection[i];
      if (facade <= 0) continue;
      byDirection.row({std::string(kDirections[i]), m2(facade), m2(m.openingsByDirection[i]),
                       percent(100 * m.openingsByDirection[i] / facade)});
    }
    byDirection.write(html_);
    html_.raw(
        "<p class=\"nota\">Azimut desde el norte, en sentido horario. El giro del edificio se "
        "suma a la dirección de cada lado del dibujo. Calle y patio juntos.</p>\n</section>\n");
  }

  void data() {
    if (report_.data.empty()) return;
    html_.raw("<section id=\"datos\" class=\"pagina\">\n<h2>5. Datos</h2>\n");
    HtmlTable table("Palabras clave de la tipología",
                    {"Palabra clave", "Valor", "Unidad", "Origen"}, 4);
    for (const Datum& datum : report_.data) {
      table.row({datum.keyword, datum.value, datum.unit,
                 datum.file.empty() ? "por defecto"
                                    : datum.file + ", línea " + std::to_string(datum.line)});
    }
    table.write(html_);
    html_.raw(
        "<p class=\"nota\">CUBIERTA, ATICO y SOTANO: se muestra lo que se construye, diga lo "
        "que diga el fichero.</p>\n");
    HtmlTable uses("Construcciones", {"Construcción", "Dónde", "Superficies", "Bruto"}, 2);
    for (const ConstructionUse& use : report_.constructions) {
      uses.row({use.name, use.where, counted(use.surfaces), m2(use.area)});
    }
    if (!uses.empty()) uses.write(html_);
    html_.raw("</section>\n");
  }

  void rewritten() {
    if (!report_.building) return;
    html_.raw("<section id=\"ordenes\">\n<h2>6. Qué se ha reescrito</h2>\n");
    HtmlTable table("Órdenes de la plantilla, por tipo",
                    {"Tipo", "Conservadas", "Reescritas", "Eliminadas"}, 1);
    CommandCount sum;
    for (const auto& [type, count] : report_.building->commands) {
      table.row({type, counted(count.kept), counted(count.rewritten), counted(count.removed)});
      sum = {sum.kept + count.kept, sum.rewritten + count.rewritten, sum.removed + count.removed};
    }
    table.total({"Total", counted(sum.kept), counted(sum.rewritten), counted(sum.removed)});
    table.write(html_);
    html_.raw("</section>\n");
  }

  void findings() {
    html_.raw("<section id=\"comprobaciones\">\n<h2>7. Comprobaciones</h2>\n");
    if (report_.findings.empty()) {
      html_.raw("<p>Sin errores, avisos ni notas.</p>\n</section>\n");
      return;
    }
    HtmlTable table("Comprobaciones de las entradas", {"Grado", "Mensaje", "Lugar", "Código"}, 4);
    for (const Finding& finding : report_.findings) {
      table.row({finding.severity, finding.message, finding.place, finding.code});
    }
    table.write(html_);
    html_.raw("</section>\n");
  }

  const Report& report_;
  HtmlWriter html_;
};

}  // namespace

std::string asHtml(const Report& report) { return Page(report).write(); }

}  // namespace report
