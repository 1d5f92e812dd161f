#include "core/path_table.h"

#include <algorithm>
#include <iterator>

#include "core/paths.h"

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
