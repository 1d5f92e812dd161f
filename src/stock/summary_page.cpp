#include "stock/summary_page.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include "core/concat.h"
#include "core/paths.h"
#include "core/whole_file.h"
#include "report/bar_chart.h"
#include "report/html_writer.h"
#include "report/plan_drawing.h"
#include "report/words.h"
#include "stock/code_titles.h"
#include "stock/result_files.h"
#include "stock/stock_statistics.h"

namespace stock {

namespace {

using report::Bar;
using report::HtmlTable;
using report::number;
using report::quantity;

/// Pictures beside their tables where there is room for both.
constexpr const char* kStyle =
    R"css(.par{display:flex;flex-wrap:wrap;gap:0 2.5rem;align-items:flex-start}
.par figure{flex:0 1 96mm;margin:.8rem 0}.par .lienzo svg{max-width:100%}.par .tabla{flex:1 1 16rem}.par table{min-width:0}
#resultado td:nth-child(2),#rechazadas td:nth-child(2),#avisos td:nth-child(3){min-width:12rem}
@media print{table{font-size:8.5pt;line-height:1.3}th,td{padding:.3mm 3mm .3mm 0}.par{break-inside:avoid;gap:0 8mm}.par figure{flex:0 0 88mm;margin:2mm 0}.par .tabla{flex:1 1 50mm;margin:2mm 0}}
)css";

std::string counted(std::int64_t count) { return number(static_cast<double>(count), 0); }

std::string counted(std::int64_t count, std::string_view one, std::string_view many) {
  return concat(counted(count), "\u00A0", count == 1 ? one : many);
}

std::string shareOf(std::int64_t part, std::int64_t whole) {
  if (whole == 0) return "—";
  return quantity(100 * static_cast<double>(part) / static_cast<double>(whole), 1, "%");
}

double m2(std::int64_t hundredths) { return static_cast<double>(hundredths) / 100; }

/// Long IDs are those that are refused for it.
std::string shortened(const std::string& id) {
  constexpr double kRoom = 50;  // mm
  return report::cutToWidth(id, report::kSmall, kRoom);
}

/// A measure with its section.
struct Section {
  StockMeasure measure;
  const char* id;
  const char* heading;
  const char* what;  // it is, for the captions
  const char* unit;
  int decimals;
  const char* note;
};

constexpr Section kSections[] = {
    {StockMeasure::kOpenings, "huecos", "2. Huecos", "Huecos / fachadas", "%", 1,
     "Huecos / fachadas: huecos entre todas las fachadas, de calle y de patio, brutas. Para su "
     "clase, cada valor se redondea al entero."},
    {StockMeasure::kDwellingArea, "superficies", "3. Superficie por vivienda",
     "Superficie por vivienda", "m²", 1,
     "Superficie total del modelo entre sus viviendas, escalera incluida; no es la superficie "
     "útil. Cada clase incluye su límite superior."},
    {StockMeasure::kCompactness, "compacidad", "4. Compacidad", "Compacidad (V/A)", "m³/m²", 2,
     "Volumen entre fachadas, patios, cubierta y suelo, huecos incluidos. Cada clase incluye su "
     "límite superior."},
};

class SummaryPage {
 public:
  explicit SummaryPage(StockStatistics& statistics) : s_(statistics) {}

  std::string write() {
    head();
    outcome();
    for (const Section& section : kSections) measure(section);
    codes("rechazadas", "5. Rechazadas y fallidas", "Rechazadas y fallidas, por código", s_.faults,
          false);
    codes("avisos", "6. Avisos y notas", "Avisos y notas, por código", s_.notes, true);
    endPage(html_, program(),
            "Resumen sin fecha: los mismos resultados dan siempre los mismos bytes.");
    return html_.take();
  }

 private:
  std::string program() const {
    std::string versions;
    for (const std::string& version : s_.versions) {
      versions += concat(versions.empty() ? " " : ", ", version);
    }
    return concat("tip2bdl", versions, ". Resultados con la huella ", s_.fingerprint);
  }
  long withoutBuilding() const { return s_.refused + s_.failed; }

  void head() {
    beginPage(html_, "Resumen", "Resumen de una lista de viviendas", kStyle);
    html_.raw("<p class=\"entrada\">")
        .text(concat(counted(s_.rows(), "fila", "filas"), ": ",
                     counted(s_.correct, "correcta", "correctas"), ", ",
                     counted(s_.refused, "rechazada", "rechazadas"), " y ",
                     counted(s_.failed, "fallida", "fallidas"), "."))
        .raw("</p>\n<p>")
        .text(report::kModelOnly)
        .raw(
            " Cada fila de la lista es un edificio del modelo; un bloque tiene varias "
            "viviendas.</p>\n</header>\n<nav aria-label=\"Secciones\">\n<ul>\n"
            "<li><a href=\"#resultado\">Qué ha salido</a></li>\n"
            "<li><a href=\"#huecos\">Huecos</a></li>\n"
            "<li><a href=\"#superficies\">Superficie por vivienda</a></li>\n"
            "<li><a href=\"#compacidad\">Compacidad</a></li>\n"
            "<li><a href=\"#rechazadas\">Rechazadas y fallidas</a></li>\n"
            "<li><a href=\"#avisos\">Avisos y notas</a></li>\n</ul>\n</nav>\n<main>\n");
  }

  void outcome() {
    html_.raw("<section id=\"resultado\">\n<h2>1. Qué ha salido</h2>\n<dl class=\"cifras\">\n");
    addFigure(html_, "Filas", counted(s_.rows()));
    addFigure(html_, "Correctas", counted(s_.correct));
    addFigure(html_, "Rechazadas o fallidas", counted(withoutBuilding()));
    addFigure(html_, "Viviendas", counted(s_.dwellings));
    addFigure(html_, "Superficie total del modelo", quantity(s_.area, 0, "m²"));
    addFigure(html_, "Volumen bruto", quantity(s_.volume, 0, "m³"));
    html_.raw("</dl>\n");
    if (withoutBuilding() > 0) {
      html_.raw("<p>")
          .text(concat("Las medidas son las de las filas correctas. Las rechazadas y las fallidas ",
                       "no tienen edificio: en cada gráfico van en una barra propia, vacía."))
          .raw("</p>\n");
    }
    HtmlTable table(
        "Por tipología",
        {"Tipo", "Tipología", "Filas", "Viviendas", "Superficie total", "De la superficie"}, 2);
    TipoSums sum;
    for (const auto& [tipo, sums] : s_.byTipo) {
      sum = {sum.rows + sums.rows, sum.dwellings + sums.dwellings, sum.area + sums.area};
    }
    for (const auto& [tipo, sums] : s_.byTipo) {
      table.row({std::to_string(tipo), report::familyTitle(tipo), counted(sums.rows),
                 counted(sums.dwellings), quantity(m2(sums.area), 0, "m²"),
                 shareOf(sums.area, sum.area)});
    }
    table.total({"Total", "", counted(sum.rows), counted(sum.dwellings),
                 quantity(m2(sum.area), 0, "m²"), ""});
    if (!table.empty()) table.write(html_);
    html_.raw(
        "<p class=\"nota\">En las tablas que siguen, los percentiles llevan interpolación lineal. "
        "«Por "
        "fila», «por vivienda» y «por superficie»: cada fila, cada vivienda o cada m² cuenta una "
        "vez.</p>\n</section>\n");
  }

  void measure(const Section& section) {
    html_.raw("<section id=\"").text(section.id);
    s_.correct > 0 ? html_.raw("\" class=\"pagina\">\n<h2>") : html_.raw("\">\n<h2>");
    html_.text(section.heading).raw("</h2>\n");
    histogram(section);
    percentiles(section);
    html_.raw("</section>\n");
  }

  void histogram(const Section& section) {
    const auto classes = classesOf(section.measure);
    const std::vector<long> counts = s_.histogram(section.measure);
    std::vector<Bar> bars;
    HtmlTable table(concat(section.what, ": filas por clase"), {"Clase", "Filas", "De las filas"},
                    1);
    for (std::size_t i = 0; i < classes.size(); ++i) {
      bars.push_back({std::string(classes[i].label), counts[i]});
    }
    if (withoutBuilding() > 0) bars.push_back({"sin edificio", withoutBuilding(), true});
    for (const Bar& bar : bars) {
      table.row({bar.label, counted(bar.count), shareOf(bar.count, s_.rows())});
    }
    table.total({"Total", counted(s_.rows()), ""});
    const std::string title = concat(section.what, ": filas por clase");
    html_.raw("<div class=\"par\">\n<figure>\n<div class=\"lienzo\">\n")
        .drawing(
            barChart(title, "Una barra por clase; la tabla que sigue da los mismos números.", bars),
            concat("barras-", section.id))
        .raw("</div>\n<figcaption class=\"nota\">")
        .text(section.note)
        .raw("</figcaption>\n</figure>\n");
    table.write(html_);
    html_.raw("</div>\n");
  }

  void percentiles(const Section& section) {
    HtmlTable table(concat(section.what, ", ", section.unit),
                    {"De qué", "n", "Mín.", "P5", "P25", "Mediana", "P75", "P95", "Máx.", "Media"},
                    1);
    const auto row = [&](const std::string& name, RowWeight weight, std::optional<int> tipo) {
      const Percentiles p = s_.percentiles(section.measure, weight, tipo);
      if (p.weight == 0) return;
      std::vector<std::string> cells = {
          name, weight == RowWeight::kArea ? quantity(m2(p.weight), 0, "m²") : counted(p.weight)};
      for (const double value : {p.min, p.p5, p.p25, p.median, p.p75, p.p95, p.max, p.mean}) {
        cells.push_back(number(value, section.decimals));
      }
      table.row(std::move(cells));
    };
    row("Todas, por fila", RowWeight::kRow, std::nullopt);
    row("Todas, por vivienda", RowWeight::kDwelling, std::nullopt);
    row("Todas, por superficie", RowWeight::kArea, std::nullopt);
    for (const auto& [tipo, sums] : s_.byTipo) {
      row(concat("Tipo ", std::to_string(tipo), ", por fila"), RowWeight::kRow, tipo);
    }
    if (table.empty()) {
      html_.raw("<p>No hay filas correctas.</p>\n");
      return;
    }
    table.write(html_);
  }

  void codes(const char* id, const char* heading, const char* caption,
             const std::map<std::string, CodeCount>& counts, bool gravity) {
    html_.raw("<section id=\"").text(id).raw("\">\n<h2>").text(heading).raw("</h2>\n");
    if (counts.empty()) {
      html_.raw("<p>Ninguna fila.</p>\n</section>\n");
      return;
    }
    std::vector<std::pair<std::string, CodeCount>> rows(counts.begin(), counts.end());
    std::ranges::stable_sort(rows, std::ranges::greater(),
                             [](const auto& row) { return row.second.rows; });
    constexpr std::size_t kMostBars = 12;
    std::vector<Bar> bars;
    std::vector<std::string> heads = {"Código", "Qué es", "Primera fila", "Filas", "De las filas"};
    if (gravity) heads.insert(heads.begin() + 1, "Grado");
    HtmlTable table(caption, std::move(heads), gravity ? 4 : 3);
    for (const auto& [code, count] : rows) {
      if (bars.size() < kMostBars) bars.push_back({code, count.rows});
      std::vector<std::string> cells = {code, std::string(titleOfCode(code)),
                                        shortened(count.firstId), counted(count.rows),
                                        shareOf(count.rows, s_.rows())};
      if (gravity) cells.insert(cells.begin() + 1, std::string(gravityOfCode(code)));
      table.row(std::move(cells));
    }
    html_.raw("<figure>\n<div class=\"lienzo\">\n")
        .drawing(barChart(caption, "Una barra por código; la tabla que sigue los da todos.", bars),
                 concat("barras-", id))
        .raw("</div>\n");
    if (rows.size() > kMostBars) {
      html_.raw("<figcaption class=\"nota\">Los ")
          .text(std::to_string(kMostBars))
          .raw(" códigos más frecuentes.</figcaption>\n");
    }
    html_.raw("</figure>\n");
    table.write(html_);
    html_.raw("</section>\n");
  }

  StockStatistics& s_;
  report::HtmlWriter html_;
};

}  // namespace

std::string summaryPage(StockStatistics& statistics) { return SummaryPage(statistics).write(); }

void writeSummaryPage(const std::string& folder, const Shard& shard) {
  StockStatistics statistics(pathOf(ResultFile::kResults, folder, shard));
  writeWholeFile(pathOf(ResultFile::kPage, folder, shard), summaryPage(statistics));
}

void removeSummaryPage(const std::string& folder, const Shard& shard) {
  std::error_code ignored;
  std::filesystem::remove(filePath(pathOf(ResultFile::kPage, folder, shard)), ignored);
}

}  // namespace stock
