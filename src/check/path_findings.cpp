#include <array>
#include <filesystem>
#include <system_error>

#include "check/checker.h"
#include "core/concat.h"
#include "core/cp1252.h"
#include "core/paths.h"

namespace fs = std::filesystem;

namespace {

struct NamedPath {
  std::string_view role;  // as a sentence names it
  const std::string& path;
};

/// Whether two paths name one file, there already or not yet.
bool sameFile(const std::string& first, const std::string& second) {
  const fs::path a = filePath(first);
  const fs::path b = filePath(second);
  std::error_code unknown;
  if (fs::equivalent(a, b, unknown) && !unknown) return true;
  const fs::path left = fs::absolute(a, unknown).lexically_normal();
  return !unknown && left == fs::absolute(b, unknown).lexically_normal() && !unknown;
}

bool folderIsMissing(const std::string& path) {
  const std::string folder = folderOf(path);
  std::error_code unknown;
  return !folder.empty() && !fs::is_directory(filePath(folder), unknown);
}

}  // namespace

Findings pathFindings(const std::string& templateFile, const std::string& typologyFile,
                      const std::string& outputFile, const std::string& markerFile) {
  Findings findings;
  const std::array<NamedPath, 4> paths = {{{"la plantilla", templateFile},
                                           {"la tipología"_cp1252, typologyFile},
                                           {"la salida", outputFile},
                                           {"la marca", markerFile}}};
  constexpr std::size_t kOutput = 2;
  constexpr std::size_t kMarker = 3;
  for (std::size_t later = kOutput; later < paths.size(); ++later) {
    for (std::size_t earlier = 0; earlier < later; ++earlier) {
      // A template may be its own output.
      if (later == kOutput && earlier == 0) continue;
      if (paths[later].path.empty() || paths[earlier].path.empty()) continue;
      if (!sameFile(paths[later].path, paths[earlier].path)) continue;
      findings.push_back({.code = Code::kRutasIguales,
                          .message = concat("La ruta de ", paths[later].role, " es la de ",
                                            paths[earlier].role, ", que se perderá"_cp1252),
                          .place = wholeFile(paths[later].path),
                          .suggestion = concat("dé otro nombre a "_cp1252, paths[later].role)});
    }
  }
  for (const std::size_t written : {kOutput, kMarker}) {
    if (paths[written].path.empty() || !folderIsMissing(paths[written].path)) continue;
    findings.push_back({.code = Code::kFaltaCarpeta,
                        .message = concat("No existe la carpeta de ", paths[written].role),
                        .place = wholeFile(paths[written].path),
                        .suggestion = concat("cree la carpeta ", folderOf(paths[written].path))});
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
