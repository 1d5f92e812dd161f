#include "core/path_table.h"

#include <algorithm>
#include <iterator>

#include "core/paths.h"

namespace {
constinit thread_local PathTable* thePathTable = nullptr;
}

PathTable& PathTable::Instance() {
  if (thePathTable == nullptr) thePathTable = new PathTable;
  return *thePathTable;
}

void PathTable::Release() {
  delete thePathTable;
  thePathTable = nullptr;
}

const std::string* PathTable::Set(std::string_view key, std::string_view value) {
  const auto* found = std::find(std::begin(kKeys), std::end(kKeys), key);
  if (found == std::end(kKeys)) return nullptr;
  requirePathWithin(value, kPathCapacity);
  std::string& slot = slots_[found - std::begin(kKeys)];
  slot = value;
  return &slot;
}

std::string PathTable::Get(std::string_view key) const {
  const auto* found = std::find(std::begin(kKeys), std::end(kKeys), key);
  return found == std::end(kKeys) ? std::string() : slots_[found - std::begin(kKeys)];
}
