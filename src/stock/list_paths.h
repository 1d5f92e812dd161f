#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "core/fault.h"

namespace stock {

/// Where a path that a list names leads: paths of a list are relative to its folder, which ends in
/// a separator or is empty.
std::string pathInList(const std::string& listFolder, std::string_view path);

/// Keeps what a work reads apart from what it writes: an output would take the place of an input,
/// and a refused row would remove it.
class InputsApart {
 public:
  /// `results`: the folder, which need not be there yet.
  explicit InputsApart(const std::string& results);

  /// Ends the run where a file has the place of a result, before anything is written. `place`:
  /// where it is named.
  void require(const std::string& path, const std::optional<Place>& place);

 private:
  /// What may stand in a folder.
  enum class Kind { kOther, kResults, kOutputs };
  Kind kindOf(const std::string& folder);

  std::filesystem::path results_;        // empty: not there yet
  std::map<std::string, Kind> folders_;  // looked at before
};

}  // namespace stock
