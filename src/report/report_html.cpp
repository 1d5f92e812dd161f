#include <cmath>

#include "core/cp1252.h"
#include "report/building_report.h"
#include "report/html_writer.h"
#include "report/page_sections.h"
#include "report/page_text.h"
#include "report/words.h"

namespace report {

namespace {

class Page {
 public:
  explicit Page(const Report& report) : report_(report) {}

  std::string write() {
    head();
    fault();
    identity();
    writePictures(html_, report_);
    writeGlazing(html_, report_);
    writeMeasures(html_, report_);
    data();
    rewritten();
    findings();
    endPage(html_, report_.program,
            "Informe sin fecha: las mismas entradas dan siempre los mismos bytes.");
    return html_.take();
  }

 private:
  std::string title() const {
    if (!report_.identity) return "Edificio";
    if (!report_.identity->title.empty()) return cp1252::toUtf8(report_.identity->title);
    return "Tipología " + std::to_string(report_.identity->tipo);
  }

  void head() {
    beginPage(html_, "Informe", title());
    if (report_.identity) {
      const std::string meaning = familyTitle(report_.identity->tipo);
      html_.raw("<p class=\"entrada\">Tipología ").text(std::to_string(report_.identity->tipo));
      if (!meaning.empty()) html_.raw(": ").text(meaning);
      html_.raw(".</p>\n");
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
      addFigure(html_, "Superficie total", m2(m.floorArea, 1));
      addFigure(html_, "Fachada principal",
                "al " + looksTo(realAzimuth(kSouth, report_.sheet->giro)));
      html_.raw("</dl>\n");
      if (m.storeys != report_.identity->numeroPlantas) {
        html_.raw("<p class=\"nota\">La tipología pide NUMERO-PLANTAS = ")
            .text(std::to_string(report_.identity->numeroPlantas))
            .raw("; el modelo tiene ")
            .text(plural(m.storeys, "planta", "plantas"))
            .raw(", las de los multiplicadores de la plantilla.</p>\n");
      }
      otherBuilding();
      writeView(html_, report_);
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

  /// Says first of all that the template is of another building, where the run cannot know.
  void otherBuilding() {
    const double meant = static_cast<double>(report_.sheet->data.areaPlanta);
    const double made = report_.measures->footprint;
    const bool follows = report_.building->followsPlan();
    if (follows && std::abs(made - meant) <= 0.005 * meant) return;
    html_
        .raw(
            "<section class=\"falta\" aria-label=\"Aviso\">\n<p><strong>La plantilla no parece "
            "de esta tipología.</strong> Sus recintos suman ")
        .text(m2(made))
        .raw(" por planta y AREA-PLANTA es ")
        .text(m2(meant))
        .raw(". Las cifras son las de lo generado.");
    if (!follows) {
      html_.raw(
          " Hay recintos que conservan el contorno de la plantilla: el plano es el de la "
          "tipología, y no se dibujan ventanas, alzados ni vista.");
    }
    html_.raw("</p>\n</section>\n");
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

  void data() {
    if (report_.data.empty()) return;
    html_.raw("<section id=\"datos\" class=\"pagina\">\n<h2>5. Datos</h2>\n");
    HtmlTable table("Palabras clave de la tipología",
                    {"Palabra clave", "Valor", "Unidad", "Origen"}, 4);
    HtmlTable others("Marco, sombra y posición solar",
                     {"Orden", "Palabra clave", "Valor", "Origen"}, 4);
    for (const Datum& datum : report_.data) {
      const std::string origin =
          datum.file.empty() ? "por defecto" : datum.file + ", línea " + std::to_string(datum.line);
      if (datum.command.empty()) {
        table.row({datum.keyword, datum.value, datum.unit, origin});
      } else {
        others.row({datum.command, datum.keyword, datum.value, origin});
      }
    }
    table.write(html_);
    html_.raw(
        "<p class=\"nota\">CUBIERTA, ATICO y SOTANO: se muestra lo que se construye, diga lo "
        "que diga el fichero.</p>\n");
    nights();
    if (!others.empty()) others.write(html_);
    HtmlTable uses("Construcciones", {"Construcción", "Dónde", "Superficies", "Bruto"}, 2);
    for (const ConstructionUse& use : report_.constructions) {
      uses.row({use.name, use.where, counted(use.surfaces), m2(use.area)});
    }
    if (!uses.empty()) uses.write(html_);
    html_.raw("</section>\n");
  }

  /// The one figure of the schedules that follows from the typology.
  void nights() {
    if (!report_.building || !report_.identity || !(report_.building->nightFactor > 0)) return;
    const double factor = report_.building->nightFactor;
    const double airChanges = report_.identity->airChanges;
    html_.raw("<p class=\"nota\">Noches de verano: ")
        .text(quantity(factor * airChanges, 1, "ren/h"))
        .raw(" (factor ")
        .text(number(factor, 2))
        .raw(" × ")
        .text(shortNumber(airChanges, 4))
        .raw(").</p>\n");
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
