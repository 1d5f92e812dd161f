#include "generator/run_inputs.h"

#include <string_view>
#include <utility>

#include "bdl/valores_por_defecto.h"
#include "core/cp1252.h"
#include "core/fichero.h"
#include "core/global2.h"
#include "core/paths.h"
#include "core/report_error.h"

namespace {

void requireFile(const std::string& path, std::string_view message, const FaultSink& faults) {
  if (!fileExists(path)) faults({std::string(message), wholeFile(path)});
}

}  // namespace

std::string composedPath(const std::string& folder, const std::string& name) {
  std::string path = folder + name;
  requirePathWithin(path, kComposedPathCapacity);
  return path;
}

SourceText readText(const std::string& path) { return fichero(path, "lectura").takeText(); }

void requireTypology(const std::string& typologyFile, const FaultSink& faults) {
  requireFile(typologyFile, "No existe el fichero de datos *.tip", faults);
}

InputPaths requireInputs(const std::string& templateFile, const std::string& typologyFile,
                         const FaultSink& faults) {
  InputPaths paths{templateFile, templateFile, typologyFile, {}};
  Global2::cambiarExtension(paths.table, "tbl");
  requirePathWithin(paths.table, kPathCapacity);
  requireFile(paths.building, "No existe el fichero de datos *.bdl", faults);
  requireFile(paths.table, "No existe el fichero de datos *.tbl", faults);
  requireTypology(typologyFile, faults);
  paths.defaults = composedPath(folderOf(templateFile), "defectos.inp");
  requireFile(paths.defaults, "No existe el fichero de librería defectos.inp"_cp1252, faults);
  return paths;
}

TemplateTexts readTemplateTexts(const InputPaths& paths) {
  const ValoresPorDefecto defaults(readText(paths.defaults));
  SourceText building = readText(paths.building);
  return {std::move(building), readText(paths.table)};
}
