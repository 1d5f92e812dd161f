#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "stock/list_columns.h"
#include "stock/row_typology.h"

namespace stock {

/// What has to be known of a whole list before work on it begins. Takes 8 bytes a row while it is
/// made, and none afterwards.
struct ListOverview {
  ListColumns columns;
  long rows = 0;
  std::string fingerprint;                     // of its bytes
  std::unordered_set<std::uint64_t> repeated;  // hashes of the IDs that are there more than once
};

/// Reads a list to its end, and shows each row. Whatever makes it a list that cannot be worked on
/// ends the run.
ListOverview overviewOf(
    const std::string& path, bool needsTemplate,
    const std::function<void(const ListRow&)>& show = [](const ListRow&) {});

/// Tells, row by row in the list's order, whether an ID has been there before, or one whose output
/// would be the same file. Keeps only those that are repeated at all.
class RepeatedIds {
 public:
  explicit RepeatedIds(const std::unordered_set<std::uint64_t>& hashes) : hashes_(hashes) {}
  bool seenBefore(std::string_view id);

 private:
  const std::unordered_set<std::uint64_t>& hashes_;
  std::unordered_set<std::string> seen_;
};

}  // namespace stock
