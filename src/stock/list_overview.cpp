#include "stock/list_overview.h"

#include <algorithm>
#include <deque>
#include <memory>
#include <utility>

#include "stock/file_names.h"
#include "stock/hash.h"

namespace stock {

ListOverview overviewOf(const std::string& path, bool needsTemplate,
                        const std::function<void(const ListRow&)>& show) {
  RunningHash hash;
  const ListReader::Source file = ListReader::sourceOf(path);
  ListReader list(path, [&](char* buffer, std::size_t size) {
    const std::size_t got = file(buffer, size);
    hash.add({buffer, got});
    return got;
  });
  ListOverview overview;
  overview.columns = readHeader(list, needsTemplate);
  std::deque<std::uint64_t> ids;  // grows without being copied
  Record record;
  while (list.next(record)) {
    const ListRow row(overview.columns, record, path);
    show(row);
    ids.push_back(hashOf(asFileName(row.id())));
  }
  overview.rows = static_cast<long>(ids.size());
  overview.fingerprint = hash.text();
  std::ranges::sort(ids);
  for (std::size_t i = 1; i < ids.size(); ++i) {
    if (ids[i] == ids[i - 1]) overview.repeated.insert(ids[i]);
  }
  return overview;
}

bool RepeatedIds::seenBefore(std::string_view id) {
  std::string name = asFileName(id);
  if (!hashes_.contains(hashOf(name))) return false;
  return !seen_.insert(std::move(name)).second;
}

}  // namespace stock
