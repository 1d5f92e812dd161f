#include "app/console/pages/english.h"

#include <algorithm>

#include "typology/tipo.h"

namespace {

constexpr EnglishOption kOptions[] = {
    {"", "--quiet", "", "shows no progress (which only a terminal gets)"},
    {"", "--help", "", "shows the help, in Spanish"},
    {"", "--version", "", "shows the version, its commit and its compiler"},
    {"", "--", "", "what follows are paths, even if they begin with \"-\""},
    {"*", "--help", "", "shows the help, in Spanish"},
    {"*", "--salida", "FILE", "writes the result to FILE", "Without it, to standard output."},
    {"plano", "--planta", "tipo", "which storey is drawn",
     "All storeys of the model are alike: tipo, the only one."},
    {"informe", "--formato", "html|json", "form of the report",
     "Without it, html: one page with nothing from outside."},
    {"comprobar", "--formato", "texto|gcc|json|sarif", "form of the findings",
     "Without it, texto on a terminal and gcc elsewhere."},
    {"comprobar", "--estricto", "", "ends with status 1 if there are warnings"},
    {"comprobar", "--salida-prevista", "FILE", "checks the path of the output as well"},
    {"comprobar", "--marca", "FILE", "checks the path of the completion marker as well"},
    {"lote", "--salida", "FOLDER", "writes the buildings and the results into FOLDER"},
    {"lote", "--plantilla", "TEMPLATE.bdl", "template of the rows that name none"},
    {"lote", "--trabajos", "N", "dwellings at a time; without it, one a core"},
    {"lote", "--fragmento", "K/N", "only the rows K, K+N, K+2N, ..."},
    {"lote", "--reanudar", "", "goes on where it stopped: what is missing or has changed"},
    {"lote", "--reintentar", "", "like --reanudar, and tries refused dwellings again"},
    {"lote", "--max-errores", "N", "ends after N dwellings that were refused or failed"},
    {"lote", "--guardar-tip", "", "keeps the typology file that is written of each row"},
    {"lote", "--informe", "", "also writes resumen.html, with percentiles and histograms"},
    {"lote", "--unir", "", "joins the results of all shards"},
    {"lote", "--esquema", "", "shows the columns of a list"},
    {"lote", "--quiet", "", "shows no progress"},
};

static_assert(kLastTipo == 23, "the texts below name the last number");
constexpr EnglishWork kWorks[] = {
    {"", "generate the thermal model of a dwelling building",
     "TEMPLATE.bdl TYPOLOGY.tip OUTPUT MARKER",
     "Generates the building of a typology: rewrites the template with the data of the typology\n"
     "file and creates at the end the marker, an empty file. The template's table of surfaces\n"
     "(same name, .tbl) and the library defectos.inp must lie beside it. Error.log is created\n"
     "beside the marker.\n"
     "\n"
     "Exit status: 0 if the building was generated, 3 after an error (the message is on standard\n"
     "error and there is no marker), 2 for a wrong command line."},
    {"nueva", "write a typology file to start from, every keyword explained", "TIPO",
     "Writes a *.tip file of the typology number TIPO, 1 to 23: every keyword with what it is,\n"
     "its unit, its values and what its absence means, and the measures of an ordinary building,\n"
     "which can be generated as it stands. The names are those of the sample templates; put\n"
     "those of your own in their places. The file is in Windows-1252; a terminal gets its own\n"
     "encoding. A file that is there already is not overwritten.\n"
     "\n"
     "Exit status: 0 if it was written, 2 for a wrong command line or a file that is there, 3 if "
     "it\n"
     "could not be written."},
    {"comprobar", "find all faults of a typology and its template",
     "[TEMPLATE.bdl] TYPOLOGY.tip [TYPOLOGY.tip ...]",
     "Tells all errors at once, each with its place, and warns of what will be read in another\n"
     "way than it is written. Writes no building. With a template its table and its library are\n"
     "checked too; without one, only the typologies. The four paths of a run may come together:\n"
     "\"#casa.bdl,casa.tip,salida.bdl,fin.txt\".\n"
     "\n"
     "Exit status: 0 without errors, 1 with warnings and --estricto, 3 with errors, 2 for a wrong\n"
     "command line."},
    {"plano", "draw the plan of a building (SVG)", "TYPOLOGY.tip",
     "Draws the plan of the typology: dwellings, stair, courtyards, bays, measures, areas and\n"
     "north. The SVG is in millimetres and, printed at 100 %, to scale.\n"
     "\n"
     "Exit status: 0 if it was drawn, 3 for an error of the typology or in writing, 2 for a wrong\n"
     "command line."},
    {"informe", "report of a building: pictures, openings and measures (HTML, JSON)",
     "TEMPLATE.bdl TYPOLOGY.tip",
     "Generates the building without writing it and tells what it is: pictures, openings asked\n"
     "for and obtained, measures, data with their origin and what was rewritten. If the building\n"
     "cannot be generated, the report shows what could be read and the error.\n"
     "\n"
     "Exit status: 0 if the building can be generated, 3 if not or if the report could not be\n"
     "written, 2 for a wrong command line."},
    {"lote", "generate all dwellings of a list, on all cores", "LIST.csv --salida FOLDER",
     "Each row of the list is a dwelling: its ID, its PLANTILLA (template) and its TIPOLOGIA\n"
     "(paths from the list), or the data of VIVIENDA in columns. The buildings go into folders of\n"
     "1000, and FOLDER/resultados.csv says what became of each row, with its measures. A refused\n"
     "dwelling does not stop the others.\n"
     "\n"
     "Exit status: 0 all well, 1 some refused or failed, 2 for a wrong command line, 3 if the\n"
     "list could not be worked on, 130 after Ctrl-C, 143 after the signal to terminate."},
};

}  // namespace

std::span<const EnglishOption> englishOptions() { return kOptions; }
std::span<const EnglishWork> englishWorks() { return kWorks; }

const EnglishOption* englishOf(std::string_view work, std::string_view option) {
  const auto rowOf = [&](std::string_view owner) {
    return std::ranges::find_if(kOptions, [&](const EnglishOption& row) {
      return row.work == owner && row.name == option;
    });
  };
  const auto* row = rowOf(work);
  if (row == std::end(kOptions) && !work.empty()) row = rowOf("*");
  return row == std::end(kOptions) ? nullptr : row;
}

const EnglishWork* englishOf(std::string_view work) {
  const auto* row = std::ranges::find(kWorks, work, &EnglishWork::name);
  return row == std::end(kWorks) ? nullptr : row;
}
