#pragma once

#include <mutex>
#include <optional>
#include <string>

#include "core/fault.h"
#include "stock/list_overview.h"
#include "stock/list_reader.h"
#include "stock/shard.h"

namespace stock {

/// A row handed to a worker.
struct Ticket {
  Record record;
  long number = 0;  // in the list, from 1
  bool repeated = false;
};

/// Hands out the rows of a shard, each once, in the list's order. Any number of threads.
class RowQueue {
 public:
  /// `overview`: of the list; must outlive this object. The run ends where the list cannot be
  /// opened.
  RowQueue(const std::string& path, const ListOverview& overview, const Shard& shard);

  /// False when no row is left, or the list can no longer be read.
  bool next(Ticket& ticket);
  /// Why it can no longer be read. Asked when nobody takes rows any more.
  const std::optional<Fault>& fault() const { return fault_; }

 private:
  bool read(Ticket& ticket);

  const ListOverview& overview_;
  Shard shard_;
  std::mutex mutex_;
  ListReader list_;
  RepeatedIds repeated_;
  std::optional<Fault> fault_;
  long number_ = 0;
};

}  // namespace stock
