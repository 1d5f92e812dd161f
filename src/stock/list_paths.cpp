#include "stock/list_paths.h"

#include <system_error>

#include "core/concat.h"
#include "core/paths.h"
#include "core/report_error.h"
#include "stock/result_files.h"

namespace fs = std::filesystem;

namespace stock {

namespace {

/// Empty where there is none.
fs::path canonicalFolder(const std::string& folder) {
  std::error_code missing;
  fs::path there = fs::canonical(filePath(folder), missing);
  if (missing) there.clear();
  return there;
}

}  // namespace

std::string pathInList(const std::string& listFolder, std::string_view path) {
  const bool absolute =
      path.starts_with('/') || path.starts_with('\\') || (path.size() > 1 && path[1] == ':');
  return absolute ? std::string(path) : listFolder + std::string(path);
}

InputsApart::InputsApart(const std::string& results) : results_(canonicalFolder(results)) {}

void InputsApart::require(const std::string& path, const std::optional<Place>& place) {
  if (results_.empty()) return;
  const std::string folder = folderOf(path);
  const Kind kind = kindOf(folder);
  if (kind == Kind::kOther) return;
  if (kind == Kind::kResults && !isResultFile(path.substr(folder.size()))) return;
  ReportFailure(ErrorLog,
                {concat("El fichero está donde se escriben los resultados y se perdería: ", path,
                        ". Cámbielo de carpeta, o elija otra con --salida"),
                 place ? place : wholeFile(path)});
}

InputsApart::Kind InputsApart::kindOf(const std::string& folder) {
  const auto known = folders_.find(folder);
  if (known != folders_.end()) return known->second;
  Kind kind = Kind::kOther;
  const fs::path there = canonicalFolder(folder.empty() ? "." : folder);
  std::error_code missing;
  if (fs::equivalent(there, results_, missing)) {
    kind = Kind::kResults;
  } else if (isOutputFolder(nameOf(there.filename())) &&
             fs::equivalent(there.parent_path(), results_, missing)) {
    kind = Kind::kOutputs;
  }
  // A list may name as many folders as it has rows.
  constexpr std::size_t kMost = 1024;
  if (folders_.size() >= kMost) folders_.clear();
  folders_.emplace(folder, kind);
  return kind;
}

}  // namespace stock
