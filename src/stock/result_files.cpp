#include "stock/result_files.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "core/concat.h"
#include "core/paths.h"
#include "stock/file_names.h"

namespace fs = std::filesystem;

namespace stock {

namespace {

struct FileName {
  ResultFile file;
  std::string_view stem;
  std::string_view extension;
};

constexpr std::array<FileName, 4> kFiles = {{{ResultFile::kResults, "resultados", ".csv"},
                                             {ResultFile::kJournal, "diario", ".csv"},
                                             {ResultFile::kPage, "resumen", ".html"},
                                             {ResultFile::kLock, ".lote", ""}}};

const FileName& rowOf(ResultFile file) { return *std::ranges::find(kFiles, file, &FileName::file); }

}  // namespace

std::string pathOf(ResultFile file, const std::string& folder, const Shard& shard) {
  const FileName& name = rowOf(file);
  return concat(folder, shard.nameOf(name.stem), name.extension);
}

std::optional<Shard> shardOf(ResultFile file, std::string_view name) {
  constexpr std::string_view kOf = "-de-";
  const FileName& row = rowOf(file);
  if (!name.starts_with(row.stem) || !name.ends_with(row.extension)) return std::nullopt;
  if (name.size() < row.stem.size() + row.extension.size()) return std::nullopt;
  name.remove_prefix(row.stem.size());
  name.remove_suffix(row.extension.size());
  if (name.empty()) return Shard{};
  const std::size_t at = name.find(kOf);
  if (!name.starts_with('-') || at == std::string_view::npos) return std::nullopt;
  return parseShard(concat(name.substr(1, at - 1), "/", name.substr(at + kOf.size())));
}

bool isResultFile(std::string_view name) {
  const std::string same = asFileName(name);
  std::string_view known = same;
  if (known.ends_with(kUnfinished)) known.remove_suffix(kUnfinished.size());
  return std::ranges::any_of(
      kFiles, [&](const FileName& row) { return shardOf(row.file, known).has_value(); });
}

bool isOutputFolder(std::string_view name) {
  constexpr std::size_t kDigits = 6;  // at least
  return name.size() >= kDigits && name.find_first_not_of("0123456789") == std::string_view::npos;
}

bool hasOutputFolders(const std::string& folder) {
  std::error_code failed;
  for (fs::directory_iterator entry(filePath(folder), failed), end; !failed && entry != end;
       entry.increment(failed)) {
    if (isOutputFolder(nameOf(entry->path().filename()))) return true;
  }
  return false;
}

}  // namespace stock
