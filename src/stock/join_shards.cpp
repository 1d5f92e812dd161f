#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "core/concat.h"
#include "core/paths.h"
#include "core/report_error.h"
#include "stock/journal.h"
#include "stock/outcome.h"
#include "stock/results_file.h"
#include "stock/stock_run.h"
#include "stock/summary_page.h"

namespace fs = std::filesystem;

namespace stock {

namespace {

constexpr std::string_view kStem = "resultados-";

[[noreturn]] void refuse(std::string message) {
  ReportFailure(ErrorLog, {std::move(message), std::nullopt});
}

/// The shard whose results a file holds, by its name.
std::optional<Shard> shardOfName(std::string name) {
  constexpr std::string_view kOf = "-de-";
  constexpr std::string_view kExtension = ".csv";
  if (!name.starts_with(kStem) || !name.ends_with(kExtension)) return std::nullopt;
  name = name.substr(kStem.size(), name.size() - kStem.size() - kExtension.size());
  const std::size_t at = name.find(kOf);
  if (at == std::string::npos) return std::nullopt;
  return parseShard(name.replace(at, kOf.size(), "/"));
}

std::vector<Shard> shardsIn(const std::string& folder) {
  std::vector<Shard> shards;
  std::error_code failed;
  for (fs::directory_iterator entry(filePath(folder), failed), end; !failed && entry != end;
       entry.increment(failed)) {
    if (const auto shard = shardOfName(nameOf(entry->path().filename()))) shards.push_back(*shard);
  }
  std::ranges::sort(shards, {}, &Shard::number);
  return shards;
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += concat(text.empty() ? "" : ", ", word);
  return text;
}

/// Hands out the lines of a file behind its heading. The file is open only while a block of it is
/// read: there may be more shards than a process may have files open.
class ShardLines {
 public:
  explicit ShardLines(std::string path) : path_(std::move(path)) { next(); }

  /// The next line with its line end; nothing where none is left or the file cannot be read.
  std::optional<std::string> next() {
    std::size_t end = block_.find('\n', at_);
    while (end == std::string::npos) {
      if (!readBlock()) return std::nullopt;
      end = block_.find('\n', at_);
    }
    std::string line = block_.substr(at_, end + 1 - at_);
    at_ = end + 1;
    return line;
  }

 private:
  bool readBlock() {
    constexpr std::size_t kBlock = std::size_t{1} << 14;
    block_.erase(0, at_);
    at_ = 0;
    const std::size_t kept = block_.size();
    block_.resize(kept + kBlock);
    std::ifstream in(filePath(path_), std::ios::binary);
    in.seekg(read_);
    in.read(block_.data() + kept, static_cast<std::streamsize>(kBlock));
    block_.resize(kept + static_cast<std::size_t>(in.gcount()));
    read_ += in.gcount();
    return in.gcount() > 0;
  }

  std::string path_;
  std::streamoff read_ = 0;  // bytes
  std::string block_;
  std::size_t at_ = 0;
};

/// Makes sure that all shards are there, whole, and of one list.
ShardEnd requireAll(const std::string& folder, const std::vector<Shard>& shards) {
  const long count = shards.front().count;
  std::vector<std::string> missing, unfinished;
  std::optional<ShardEnd> list;
  for (const Shard& shard : shards) {
    if (shard.count != count) {
      refuse(concat("Hay resultados de repartos distintos: en ", std::to_string(count), " y en ",
                    std::to_string(shard.count), " partes"));
    }
  }
  for (long number = 1; number <= count; ++number) {
    const Shard shard{number, count, true};
    const std::string results = folder + shard.nameOf("resultados") + ".csv";
    const std::string word = concat(std::to_string(number), "/", std::to_string(count));
    if (!std::ranges::count(shards, number, &Shard::number)) {
      missing.push_back(word);
      continue;
    }
    const auto end = Journal::endOf(folder + shard.nameOf("diario") + ".csv");
    const bool whole = end && end->rows == shard.rowsOf(end->listRows) &&
                       ResultsFile::countRows(results) == end->rows;
    if (!whole) {
      unfinished.push_back(word);
      continue;
    }
    if (!list) list = end;
    if (list->listFingerprint != end->listFingerprint) {
      refuse(concat("La parte ", word, " es de otra lista, o la lista ha cambiado"));
    }
  }
  std::string problem;
  if (!missing.empty()) problem += concat("Faltan los resultados de las partes ", joined(missing));
  if (!unfinished.empty()) {
    problem +=
        concat(problem.empty() ? "" : ". ", "No están acabadas las partes ", joined(unfinished));
  }
  if (!problem.empty()) {
    refuse(concat(problem, ". Ejecute cada una con --fragmento K/", std::to_string(count),
                  " --reanudar"));
  }
  return *list;
}

}  // namespace

JoinedShards joinShards(const std::string& folderName, bool summaryPage) {
  const std::vector<Shard> shards = shardsIn(folderName);
  if (shards.empty()) refuse(concat("No hay resultados de partes en la carpeta ", folderName));
  const std::string folder = folderForResults(folderName);
  const ShardEnd list = requireAll(folder, shards);
  removeSummaryPage(folder);
  std::vector<ShardLines> files;
  files.reserve(shards.size());
  for (const Shard& shard : shards) {
    files.emplace_back(folder + shard.nameOf("resultados") + ".csv");
  }
  const std::string path = folder + "resultados.csv";
  const std::string beside = path + ".parcial";
  std::ofstream out(filePath(beside), std::ios::binary);
  out << resultsHeading();
  for (long row = 0; row < list.listRows; ++row) {
    // As rows are dealt out to shards.
    const auto line = files[static_cast<std::size_t>(row) % files.size()].next();
    if (!line) refuse("Los resultados de una parte han cambiado mientras se unían");
    out << *line;
  }
  out.close();
  std::error_code failed;
  if (out) fs::rename(filePath(beside), filePath(path), failed);
  if (!out || failed) {
    std::error_code ignored;
    fs::remove(filePath(beside), ignored);
    refuse(concat("Error al escribir fichero: ", path));
  }
  if (summaryPage) writeSummaryPage(folder);
  return {static_cast<long>(shards.size()), list.listRows};
}

}  // namespace stock
