#include <filesystem>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "check/checker.h"
#include "core/concat.h"
#include "core/cp1252.h"
#include "core/global2.h"
#include "core/paths.h"

namespace fs = std::filesystem;

namespace {

struct NamedPath {
  std::string_view role;  // as a sentence names it
  std::string path;
};

bool folderIsMissing(const std::string& path) {
  const std::string folder = folderOf(path);
  std::error_code unknown;
  return !folder.empty() && !fs::is_directory(filePath(folder), unknown);
}

/// What a run reads, and may lose.
std::vector<NamedPath> inputsOf(const std::string& templateFile,
                                std::span<const std::string> typologyFiles) {
  std::vector<NamedPath> inputs;
  if (!templateFile.empty()) {
    inputs.push_back({"la plantilla", templateFile});
    std::string table = templateFile;
    Global2::cambiarExtension(table, "tbl");
    inputs.push_back({"la tabla", std::move(table)});
    inputs.push_back({"la librería"_cp1252, folderOf(templateFile) + "defectos.inp"});
  }
  for (const std::string& file : typologyFiles) inputs.push_back({"la tipología"_cp1252, file});
  return inputs;
}

}  // namespace

Findings pathFindings(const std::string& templateFile, std::span<const std::string> typologyFiles,
                      const std::string& outputFile, const std::string& markerFile) {
  Findings findings;
  const NamedPath output = {"la salida", outputFile};
  const NamedPath marker = {"la marca", markerFile};
  std::vector<NamedPath> earlier = inputsOf(templateFile, typologyFiles);
  std::vector<NamedPath> written = {output, marker};
  // Emptied at the start of a run, in the marker's folder.
  if (!markerFile.empty()) written.push_back({"Error.log", folderOf(markerFile) + "Error.log"});
  for (const NamedPath& later : written) {
    if (later.path.empty()) continue;
    for (const NamedPath& one : earlier) {
      if (one.path.empty() || !sameFile(later.path, one.path)) continue;
      findings.push_back({.code = Code::kRutasIguales,
                          .message = concat("La ruta de ", later.role, " es la de ", one.role,
                                            ", que se perderá"_cp1252),
                          .place = wholeFile(later.path),
                          .suggestion = concat("dé otro nombre a "_cp1252, later.role)});
    }
    earlier.push_back(later);
  }
  for (const NamedPath& path : {output, marker}) {
    if (path.path.empty() || !folderIsMissing(path.path)) continue;
    findings.push_back({.code = Code::kFaltaCarpeta,
                        .message = concat("No existe la carpeta de ", path.role,
                                          ": la ejecución se detendrá"_cp1252),
                        .place = wholeFile(path.path),
                        .suggestion = concat("cree la carpeta ", folderOf(path.path))});
  }
  if (!markerFile.empty() && fileExists(markerFile)) {
    findings.push_back({.code = Code::kMarcaAnterior,
                        .message = std::string("Ya existe la marca de fin, de una ejecución "
                                               "anterior: no dirá si esta acaba bien"_cp1252),
                        .place = wholeFile(markerFile),
                        .suggestion = "borre la marca antes de ejecutar"});
  }
  return findings;
}
