#include "stock/row_queue.h"

#include "core/run_ended.h"

namespace stock {

RowQueue::RowQueue(const std::string& path, const ListOverview& overview, const Shard& shard)
    : overview_(overview),
      shard_(shard),
      list_(ListReader::open(path)),
      repeated_(overview.repeated) {
  Record header;
  list_.next(header);
}

bool RowQueue::next(Ticket& ticket) {
  const std::lock_guard lock(mutex_);
  if (fault_) return false;
  bool found = false;
  fault_ = faultOf([&] { found = read(ticket); });
  return found && !fault_;
}

bool RowQueue::read(Ticket& ticket) {
  while (number_ < overview_.rows && list_.next(ticket.record)) {
    ticket.number = ++number_;
    const ListRow row(overview_.columns, ticket.record, list_.name());
    ticket.repeated = repeated_.seenBefore(row.id());
    if (shard_.has(ticket.number)) return true;
  }
  return false;
}

}  // namespace stock
