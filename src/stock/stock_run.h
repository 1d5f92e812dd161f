#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/fault.h"
#include "stock/shard.h"

namespace stock {

/// What a work on a list is given.
struct StockOptions {
  enum class Mode {
    kAnew,    // all rows
    kResume,  // those that have no result, failed, or whose inputs changed
    kRetry    // and those that were refused
  };

  std::string list;                      // path
  std::string folder;                    // of the results
  std::optional<std::string> plantilla;  // of the rows that name none
  unsigned workers = 1;
  Shard shard;
  Mode mode = Mode::kAnew;
  long maxFaults = 0;  // ends after so many refused or failed rows; 0: never
  bool keepTypologies = false;
  bool summaryPage = false;  // made when all is done
  std::string version;       // of the program
};

/// What has been done so far, of the shard's rows.
struct StockCounts {
  long rows = 0;     // of the shard
  long skipped = 0;  // done before
  long correct = 0;  // those that were skipped among them
  long refused = 0;  // likewise
  long failed = 0;
  long done() const { return correct + refused + failed; }
};

/// How it ended.
struct StockEnd {
  StockCounts counts;
  std::map<std::string, long> faultsByCode;
  std::map<std::string, long> notesByCode;
  double seconds = 0;
  bool tooManyFaults = false;
  bool interrupted = false;
  std::optional<Fault> fault;  // why the work could not go on: a full disk, a list that has changed
  bool complete() const { return counts.done() == counts.rows; }
};

/// Who looks on while it goes.
struct StockWatch {
  /// Told once, before anything is written.
  std::function<void(const std::vector<Fault>& warnings)> begin = [](const auto&) {};
  /// Told when all rows are worked on though the folder has results of so many.
  std::function<void(long rows)> beginAgain = [](long) {};
  /// Told several times a second, in the caller's thread.
  std::function<void(const StockCounts&, double seconds)> progress = [](const auto&, double) {};
  /// Set to stop: what is begun is finished.
  const std::atomic<bool>* interrupted = nullptr;
};

/// Works on all rows of a list, or of a shard of it. Ends the run where the list cannot be worked
/// on, another process is at it, or the results cannot be written.
StockEnd runStock(const StockOptions& options, const StockWatch& watch = {});

/// Joins the results of all shards in a folder, and makes their summary page if asked to. Ends the
/// run, with what is missing, where they are not all there with their outputs, or were not made of
/// the same.
struct JoinedShards {
  long shards = 0;
  long rows = 0;
};
JoinedShards joinShards(const std::string& folder, bool summaryPage = false);

/// A path of a folder that ends in "/"; the folder is made where it is missing.
std::string folderForResults(const std::string& folder);

}  // namespace stock
