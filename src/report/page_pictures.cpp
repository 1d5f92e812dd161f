#include "report/building_views.h"
#include "report/page_sections.h"
#include "report/page_text.h"
#include "report/plan_rooms.h"
#include "report/words.h"

namespace report {

namespace {

void writeElevation(HtmlWriter& html, const Report& report, const FacadeMeasure& facade, int scale,
                    int count) {
  const Drawing drawing = elevation(*report.building, report.sheet->plan, facade.side,
                                    facade.courtyard, report.sheet->giro, scale);
  if (drawing.shapes.empty()) return;
  html.raw("<figure>\n<div class=\"lienzo\" role=\"group\" tabindex=\"0\" aria-label=\"")
      .text(drawing.title)
      .raw("\">\n")
      .drawing(drawing, "alzado" + std::to_string(count))
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

void writeElevations(HtmlWriter& html, const Report& report) {
  const int scale = elevationScale(*report.building, report.sheet->plan);
  html.raw("<h3>Alzados, a escala 1:")
      .text(std::to_string(scale))
      .raw(
          "</h3>\n<p class=\"nota\">Sus cifras están en la tabla <a href=\"#huecos\">Huecos por "
          "fachada</a>.</p>\n<div class=\"alzados\">\n");
  int count = 0;
  for (const FacadeMeasure& facade : report.measures->facades) {
    writeElevation(html, report, facade, scale, ++count);
  }
  html.raw("</div>\n");
}

}  // namespace

void writeView(HtmlWriter& html, const Report& report) {
  if (!report.building->followsPlan()) return;
  html.raw("<figure>\n<div class=\"lienzo ajusta\">\n")
      .drawing(axonometric(*report.building, report.sheet->plan, report.sheet->giro), "axo")
      .raw(
          "</div>\n<figcaption>Vista axonométrica desde el suroeste. Giro del edificio "
          "(ORIENTACION): ")
      .text(degrees(report.sheet->giro))
      .raw(", en sentido horario desde el norte.");
  if (report.measures->storeys > kMostStoreys) {
    html.raw(" Se dibujan las ").text(std::to_string(kMostStoreys)).raw(" plantas más bajas.");
  }
  html.raw("</figcaption>\n</figure>\n");
}

void writePictures(HtmlWriter& html, const Report& report) {
  if (!report.sheet) return;
  html.raw(
          "<section id=\"imagenes\" class=\"pagina\">\n<h2>2. Imágenes</h2>\n<figure>\n"
          "<div class=\"lienzo\" role=\"group\" tabindex=\"0\" aria-label=\"Plano de planta\">\n")
      .drawing(planDrawing(*report.sheet, PlanPaper::kReport), "plano")
      .raw(
          "</div>\n<figcaption>Plano de planta. «sur», «este», «norte» y «oeste» son los lados "
          "del dibujo antes del giro; cada uno lleva la dirección a la que mira en realidad."
          "</figcaption>\n</figure>\n");
  HtmlTable table("Superficies de una planta", {"Recinto", "Superficie"}, 1);
  for (const Room& room : rooms(report.sheet->plan)) {
    table.row({room.count > 1 ? std::to_string(room.count) + " " + room.name + "s" : room.name,
               m2(room.area * room.count)});
  }
  table.total({"Superficie de planta (AREA-PLANTA)",
               m2(static_cast<double>(report.sheet->data.areaPlanta))});
  table.write(html);
  if (report.measures && report.building->followsPlan()) writeElevations(html, report);
  html.raw("</section>\n");
}

}  // namespace report
