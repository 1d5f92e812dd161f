#include "plan/checks.h"

#include <algorithm>

void PlanChecks::operator()(std::string_view message, bool holds, std::vector<PlanKeyword> reads) {
  add(message, {holds, std::move(reads)});
}

void PlanChecks::operator()(std::string_view message, const Limit& one, const Limit& two) {
  if (!add(message, one)) add(message, two);
}

/// Whether `limit` is broken and says something new.
bool PlanChecks::add(std::string_view message, const Limit& limit) {
  if (limit.holds || !isNew(limit.reads)) return false;
  faults_.push_back({std::string(message), limit.reads});
  return true;
}

/// Whether no keyword of `reads` has been blamed for an earlier fault.
bool PlanChecks::isNew(const std::vector<PlanKeyword>& reads) const {
  return std::ranges::none_of(faults_, [&](const PlanFault& fault) {
    return std::ranges::find(reads, fault.keywords.front()) != reads.end();
  });
}
