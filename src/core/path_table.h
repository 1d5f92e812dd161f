#pragma once

#include <string>
#include <string_view>

/// The table of working folders under fourteen fixed keys ("Exe", "Dat", "Lib", "Tmp", ...), one a
/// thread. State that nothing reads: the run driver fills four of them because that is part of a
/// run, and nothing depends on it.
class PathTable {
 public:
  /// The table, created with all folders empty on the first call.
  static PathTable& Instance();
  /// Destroys the table; the next Instance() makes a fresh one. Harmless without a table.
  static void Release();

  /// Stores `value` (shorter than 3000 bytes) under `key` and returns the stored text, owned by
  /// the table; null, with nothing changed, when `key` is not exactly one of the fourteen.
  const std::string* Set(std::string_view key, std::string_view value);
  /// The folder under `key`; the empty text for an unknown key.
  std::string Get(std::string_view key) const;

 private:
  PathTable() = default;
  static constexpr std::string_view kKeys[] = {"Per", "Img", "Lib", "Met", "Exe", "Fot", "Bin",
                                               "Pla", "Imt", "Tmp", "Res", "Doc", "Dat", "Hor"};
  std::string slots_[std::size(kKeys)];
};
