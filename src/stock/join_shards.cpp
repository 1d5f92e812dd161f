#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "core/concat.h"
#include "core/counted.h"
#include "core/file_faults.h"
#include "core/paths.h"
#include "core/report_error.h"
#include "core/run_ended.h"
#include "stock/folder_lock.h"
#include "stock/journal.h"
#include "stock/outcome.h"
#include "stock/outputs.h"
#include "stock/result_files.h"
#include "stock/results_file.h"
#include "stock/stale_outputs.h"
#include "stock/stock_run.h"
#include "stock/summary_page.h"

namespace fs = std::filesystem;

namespace stock {

namespace {

[[noreturn]] void refuse(std::string message) {
  ReportFailure(ErrorLog, {std::move(message), std::nullopt});
}

std::vector<Shard> shardsIn(const std::string& folder) {
  std::vector<Shard> shards;
  std::error_code failed;
  for (fs::directory_iterator entry(filePath(folder), failed), end; !failed && entry != end;
       entry.increment(failed)) {
    const auto shard = shardOf(ResultFile::kResults, nameOf(entry->path().filename()));
    if (shard && shard->part) shards.push_back(*shard);
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
                    counted(shard.count, "parte", "partes"),
                    ". Quite los resultados-K-de-N.csv del que no valga"));
    }
  }
  for (long number = 1; number <= count; ++number) {
    const Shard shard{number, count, true};
    const std::string results = pathOf(ResultFile::kResults, folder, shard);
    const std::string word = concat(std::to_string(number), "/", std::to_string(count));
    if (!std::ranges::count(shards, number, &Shard::number)) {
      missing.push_back(word);
      continue;
    }
    const auto end = Journal::endOf(pathOf(ResultFile::kJournal, folder, shard));
    const bool whole = end && end->rows == shard.rowsOf(end->listRows) &&
                       ResultsFile::countRows(results) == end->rows;
    if (!whole) {
      unfinished.push_back(word);
      continue;
    }
    if (!list) list = end;
    if (list->inputs != end->inputs) {
      refuse(concat("La parte ", word,
                    " no se hizo con lo mismo que las anteriores: la lista, la --plantilla o la "
                    "versión del programa es otra. Repítala con --reanudar"));
    }
  }
  std::string problem;
  if (!missing.empty()) {
    problem = concat("Faltan los resultados de ",
                     numbered(missing.size(), "la parte ", "las partes "), joined(missing));
  }
  if (!unfinished.empty()) {
    problem += concat(
        problem.empty() ? "" : ". ",
        numbered(unfinished.size(), "No está acabada la parte ", "No están acabadas las partes "),
        joined(unfinished));
  }
  if (problem.empty()) return *list;
  const bool single = missing.size() + unfinished.size() == 1;
  refuse(concat(problem, single ? ". Ejecútela" : ". Ejecute cada una", " con --fragmento ",
                single ? joined(missing) + joined(unfinished) : concat("K/", std::to_string(count)),
                " --reanudar"));
}

/// An output that a line of results names and that is not there; empty when nothing is wrong.
std::string missingOutput(const Outputs& outputs, const std::string& line) {
  const auto cells = cellsOf(std::string_view(line).substr(0, line.find('\r')));
  if (!cells || (*cells)[kResultOutput].empty()) return {};
  const std::string& output = (*cells)[kResultOutput];
  return outputs.has(output) ? std::string() : output;
}

/// Writes the results of all shards in the list's order.
void writeJoined(const std::string& folder, const std::vector<Shard>& shards, long rows,
                 const std::string& path) {
  const Outputs outputs(folder, {});
  std::vector<ShardLines> files;
  files.reserve(shards.size());
  for (const Shard& shard : shards) {
    files.emplace_back(pathOf(ResultFile::kResults, folder, shard));
  }
  std::ofstream out(filePath(path), std::ios::binary);
  out << resultsHeading();
  for (long row = 0; row < rows; ++row) {
    // As rows are dealt out to shards.
    const std::size_t shard = static_cast<std::size_t>(row) % files.size();
    const auto line = files[shard].next();
    if (!line) refuse("Los resultados de una parte han cambiado mientras se unían");
    if (const std::string missing = missingOutput(outputs, *line); !missing.empty()) {
      const std::string part = concat(std::to_string(shard + 1), "/", std::to_string(files.size()));
      refuse(concat("Falta la salida ", missing, " de la parte ", part,
                    ". Ejecútela con --fragmento ", part, " --reanudar"));
    }
    out << *line;
  }
  out.close();
  if (!out) refuse(cannotWrite(path).message);
}

}  // namespace

JoinedShards joinShards(const std::string& folderName, bool summaryPage) {
  const std::vector<Shard> shards = shardsIn(folderName);
  if (shards.empty()) refuse(concat("No hay resultados de partes en la carpeta ", folderName));
  const std::string folder = folderForResults(folderName);
  const FolderLock lock(pathOf(ResultFile::kLock, folder));
  const ShardEnd list = requireAll(folder, shards);
  removeSummaryPage(folder);
  const std::string path = pathOf(ResultFile::kResults, folder);
  const std::string beside = path + std::string(kUnfinished);
  std::error_code failed;
  if (const auto fault = faultOf([&] { writeJoined(folder, shards, list.listRows, beside); })) {
    fs::remove(filePath(beside), failed);
    ReportFailure(ErrorLog, *fault);
  }
  removeStaleOutputs(folder, path, beside);
  fs::rename(filePath(beside), filePath(path), failed);
  if (failed) refuse(cannotWrite(path).message);
  if (summaryPage) writeSummaryPage(folder);
  return {static_cast<long>(shards.size()), list.listRows};
}

}  // namespace stock
