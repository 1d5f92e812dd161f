#include "stock/stock_run.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>

#include "core/concat.h"
#include "core/paths.h"
#include "core/report_error.h"
#include "stock/disk_fault.h"
#include "stock/dwellings.h"
#include "stock/folder_lock.h"
#include "stock/journal.h"
#include "stock/list_overview.h"
#include "stock/list_paths.h"
#include "stock/outcome.h"
#include "stock/refusal.h"
#include "stock/result_files.h"
#include "stock/results_file.h"
#include "stock/row_queue.h"
#include "stock/stale_outputs.h"
#include "stock/summary_page.h"

namespace fs = std::filesystem;

namespace stock {

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

class StockRun {
 public:
  StockRun(const StockOptions& options, const StockWatch& watch, ListOverview overview,
           const std::string& folder)
      : options_(options),
        watch_(watch),
        overview_(std::move(overview)),
        lock_(pathOf(ResultFile::kLock, folder, options.shard)),
        results_(pathOf(ResultFile::kResults, folder, options.shard), goesOn()),
        journal_(pathOf(ResultFile::kJournal, folder, options.shard), goesOn()),
        queue_(options.list, overview_, options.shard),
        folder_(folder),
        outputs_(folder, options.shard),
        dwellings_({.listName = options.list,
                    .listFolder = folderOf(options.list),
                    .plantilla = options.plantilla,
                    .keepTypologies = options.keepTypologies,
                    .usedFolder = hasOutputFolders(folder),
                    .version = options.version},
                   outputs_) {
    removeSummaryPage(folder, options.shard);
    if (!goesOn() && results_.earlierLines() > 0) watch.beginAgain(results_.earlierLines());
    end_.counts.rows = options.shard.rowsOf(overview_.rows);
    offsets_.resize(static_cast<std::size_t>(end_.counts.rows));
  }

  StockEnd run() {
    {
      std::vector<std::jthread> workers;
      startWorkers(workers);
      watchWorkers();
    }
    if (!end_.fault) end_.fault = queue_.fault();
    if (!end_.fault && outOfMemory_) end_.fault = Fault{std::string(kNoMemory), std::nullopt};
    if (end_.complete()) finish();
    end_.interrupted = isInterrupted() && !end_.complete();
    end_.seconds = secondsSince(start_);
    return end_;
  }

 private:
  bool goesOn() const { return options_.mode != StockOptions::Mode::kAnew; }
  bool isInterrupted() const { return watch_.interrupted != nullptr && watch_.interrupted->load(); }

  /// Starts as many as asked for, or half as many as the system has room for: the rest is for what
  /// they work on.
  void startWorkers(std::vector<std::jthread>& workers) {
    const auto most = static_cast<unsigned>(std::min<long>(options_.workers, end_.counts.rows));
    mostWorkers_ = most;
    running_ = most;
    try {
      while (workers.size() < most) {
        const auto index = static_cast<unsigned>(workers.size());
        workers.emplace_back([this, index] { work(index); });
      }
    } catch (const std::exception&) {
      const auto started = static_cast<unsigned>(workers.size());
      mostWorkers_ = (started + 1) / 2;
      const std::lock_guard lock(mutex_);
      running_ -= most - started;
      if (started == 0) outOfMemory_ = true;
    }
  }

  /// All rows have a result.
  void finish() {
    try {
      results_.arrange(offsets_, [this](const std::string& before, const std::string& now) {
        // What another shard writes is not known here; those who join them look after it.
        if (!options_.shard.part) removeStaleOutputs(folder_, before, now);
      });
      journal_.finish({overview_.rows, end_.counts.rows, inputsPrint()});
      offsets_ = std::vector<std::uint64_t>();  // gives its room back: the page needs about as much
      if (options_.summaryPage) writeSummaryPage(folder_, options_.shard);
    } catch (const DiskFault& fault) {
      end_.fault = Fault{fault.message, std::nullopt};
    }
  }

  /// What all shards of a list must have in common.
  std::string inputsPrint() {
    return concat(overview_.fingerprint, " ", dwellings_.printOfTemplate(), " ", options_.version);
  }

  void watchWorkers() {
    constexpr auto kTick = std::chrono::milliseconds(100);
    std::unique_lock lock(mutex_);
    while (running_ > 0) {
      workerEnded_.wait_for(lock, kTick, [&] { return running_ == 0; });
      const StockCounts counts = end_.counts;
      lock.unlock();
      watch_.progress(counts, secondsSince(start_));
      lock.lock();
    }
  }

  /// One thread's life. What goes wrong with a row is its outcome; what goes wrong here ends all.
  void work(unsigned index) {
    try {
      Ticket ticket;
      DwellingRoom room;
      while (!stop_ && !isInterrupted() && index < mostWorkers_ && queue_.next(ticket)) {
        workOn(ticket, room);
      }
    } catch (const DiskFault& fault) {
      stopFor(fault.message);
    } catch (const std::exception&) {
      outOfMemory_ = true;  // even the words for it would need some
      stop_ = true;
    }
    const std::lock_guard lock(mutex_);
    --running_;
    workerEnded_.notify_all();
  }

  void stopFor(const std::string& message) {
    const std::lock_guard lock(mutex_);
    if (!end_.fault) end_.fault = Fault{message, std::nullopt};
    stop_ = true;
  }

  void workOn(const Ticket& ticket, DwellingRoom& room) {
    const auto start = Clock::now();
    const ListRow row(overview_.columns, ticket.record, options_.list);
    Outcome outcome;
    outcome.id = row.id();
    std::optional<PreparedDwelling> prepared;
    const std::optional<State> before = carryOut(row, ticket, room, prepared, outcome);
    if (before) {
      count(*before, {}, {}, true);
      return;
    }
    if (outcome.state != State::kCorrecta) removeOutputOf(row, ticket);
    keep(ticket, results_.append(resultsRow(outcome, options_.version)));
    journal_.addRow(outcome.id, wordOf(outcome.state), secondsSince(start));
    count(outcome.state, outcome.code, outcome.notes, false);
  }

  /// A row that is not correct leaves no output, not even an earlier one.
  void removeOutputOf(const ListRow& row, const Ticket& ticket) {
    if (ticket.repeated || !isGoodId(row.id())) return;
    outputs_.remove(Outputs::nameOf(row.id(), ticket.number));
  }

  /// Fills the outcome; or gives the state of a row that was done before.
  std::optional<State> carryOut(const ListRow& row, const Ticket& ticket, DwellingRoom& room,
                                std::optional<PreparedDwelling>& prepared, Outcome& outcome) {
    try {
      prepared = dwellings_.prepare(row, ticket.number, ticket.repeated);
      if (const auto known = doneBefore(row, *prepared)) {
        keep(ticket, known->offset);
        return known->cells[kResultState] == wordOf(State::kCorrecta) ? State::kCorrecta
                                                                      : State::kRechazada;
      }
      dwellings_.make(row, *prepared, room, outcome);
      outcome.state = State::kCorrecta;
    } catch (const Refusal& refusal) {
      outcome.state = State::kRechazada;
      outcome.code = refusal.code;
      outcome.message = refusal.message;
      outcome.place = refusal.place ? refusal.place : row.place();
      if (!prepared) {
        outcome.fingerprint = dwellings_.printOf(outcome);
        if (const auto known = refusedBefore(row, outcome.fingerprint)) {
          removeOutputOf(row, ticket);
          keep(ticket, known->offset);
          return State::kRechazada;
        }
      }
    } catch (const DiskFault& fault) {
      fail(outcome, "disco", fault.message);
    } catch (const std::bad_alloc&) {
      room = DwellingRoom();  // what it remembers may be half of something
      fail(outcome, "memoria", std::string(kNoMemory));
    } catch (const std::exception& error) {
      room = DwellingRoom();
      fail(outcome, "inesperado", concat(kUnexpected, error.what()));
    }
    return std::nullopt;
  }

  static void fail(Outcome& outcome, const char* code, std::string message) {
    outcome.state = State::kFallida;
    outcome.code = code;
    outcome.message = std::move(message);
    outcome.output.clear();
    outcome.measures.reset();
    outcome.fingerprint.clear();
  }

  /// What a results file says of the row counts when nothing has changed since, and what it says is
  /// there is there.
  std::optional<ResultsFile::Known> doneBefore(const ListRow& row,
                                               const PreparedDwelling& prepared) {
    if (!goesOn()) return std::nullopt;
    auto known = results_.find(row.id());
    if (!known) return std::nullopt;
    const auto& cells = known->cells;
    const std::string& print = cells[fingerprintColumn()];
    if (cells[kResultState] == wordOf(State::kCorrecta)) {
      const bool kept = options_.keepTypologies && !prepared.ownFile;
      const bool there = print == prepared.fingerprint && cells[kResultOutput] == prepared.output &&
                         outputs_.has(prepared.output) &&
                         (!kept || outputs_.has(Outputs::typologyOf(prepared.output)));
      return there ? known : std::nullopt;
    }
    const bool counts = cells[kResultState] == wordOf(State::kRechazada) &&
                        options_.mode == StockOptions::Mode::kResume &&
                        print == prepared.refusedPrint;
    return counts ? known : std::nullopt;
  }

  /// The same of a row that was refused on its own account, with this fingerprint: of several rows
  /// with one ID each has its line.
  std::optional<ResultsFile::Known> refusedBefore(const ListRow& row, const std::string& print) {
    if (options_.mode != StockOptions::Mode::kResume) return std::nullopt;
    return results_.find(row.id(), [&](const std::vector<std::string>& cells) {
      return cells[kResultState] == wordOf(State::kRechazada) &&
             cells[fingerprintColumn()] == print;
    });
  }

  /// Where the result of a row stands. Each row has a place of its own.
  void keep(const Ticket& ticket, std::uint64_t offset) {
    offsets_.at(static_cast<std::size_t>((ticket.number - options_.shard.number) /
                                         options_.shard.count)) = offset;
  }

  void count(State state, const std::string& code, const std::string& notes, bool skipped) {
    const std::lock_guard lock(mutex_);
    StockCounts& counts = end_.counts;
    if (state == State::kCorrecta) ++counts.correct;
    if (state == State::kRechazada) ++counts.refused;
    if (state == State::kFallida) ++counts.failed;
    if (!code.empty()) ++end_.faultsByCode[code];
    std::string_view left = notes;
    while (!left.empty()) {
      const std::size_t end = std::min(left.find(' '), left.size());
      ++end_.notesByCode[std::string(left.substr(0, end))];
      left.remove_prefix(std::min(end + 1, left.size()));
    }
    if (skipped) {
      ++counts.skipped;
      return;
    }
    if (state != State::kCorrecta && ++newFaults_ == options_.maxFaults) {
      end_.tooManyFaults = true;
      stop_ = true;
    }
  }

  const StockOptions& options_;
  const StockWatch& watch_;
  ListOverview overview_;
  FolderLock lock_;
  ResultsFile results_;
  Journal journal_;
  RowQueue queue_;
  std::string folder_;
  Outputs outputs_;
  Dwellings dwellings_;
  std::vector<std::uint64_t> offsets_;  // of the shard's rows, in the list's order
  const Clock::time_point start_ = Clock::now();

  std::atomic<bool> stop_ = false;
  std::atomic<bool> outOfMemory_ = false;
  std::atomic<unsigned> mostWorkers_ = 0;
  std::mutex mutex_;  // of what follows
  std::condition_variable workerEnded_;
  unsigned running_ = 0;
  StockEnd end_;
  long newFaults_ = 0;
};

}  // namespace

std::string folderForResults(const std::string& folder) {
  const bool ended = folder.ends_with('/') || folder.ends_with('\\');
  std::string path = ended ? folder : folder + "/";
  std::error_code failed;
  fs::create_directories(filePath(path), failed);
  if (!fs::is_directory(filePath(path), failed)) {
    ReportFailure(ErrorLog, {concat("No se ha podido crear la carpeta: ", folder), std::nullopt});
  }
  return path;
}

StockEnd runStock(const StockOptions& options, const StockWatch& watch) {
  try {
    // The list first: one that cannot be worked on leaves nothing behind.
    InputsApart inputs(options.folder);
    inputs.require(options.list, std::nullopt);
    if (options.plantilla) inputs.require(*options.plantilla, std::nullopt);
    const std::string listFolder = folderOf(options.list);
    ListOverview overview = overviewOf(options.list, !options.plantilla, [&](const ListRow& row) {
      const ListColumns& columns = row.columns();
      for (const int column : {columns.plantilla, columns.tipologia, columns.textos}) {
        const std::string_view named = row.text(column);
        if (named.empty()) continue;
        inputs.require(pathInList(listFolder, named), row.placeOf(column));
      }
    });
    watch.begin(overview.columns.warnings);
    return StockRun(options, watch, std::move(overview), folderForResults(options.folder)).run();
  } catch (const DiskFault& fault) {
    ReportFailure(ErrorLog, {fault.message, std::nullopt});
  }
}

}  // namespace stock
