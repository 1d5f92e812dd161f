#pragma once

#include <string>
#include <string_view>

#include "core/one_a_thread.h"

/// The table of working folders under fourteen fixed keys ("Exe", "Dat", "Lib", "Tmp", ...), all
/// empty at first. State that nothing reads: the run driver fills four of them because that is part
/// of a run, and nothing depends on it.
class PathTable : public OneAThread<PathTable> {
 public:
  /// Stores `value` (shorter than 3000 bytes) under `key` and returns the stored text, owned by
  /// the table; null, with nothing changed, when `key` is not exactly one of the fourteen.
  const std::string* Set(std::string_view key, std::string_view value);
  /// The folder under `key`; the empty text for an unknown key.
  std::string Get(std::string_view key) const;

 private:
  friend OneAThread<PathTable>;
  PathTable() = default;
  static constexpr std::string_view kKeys[] = {"Per", "Img", "Lib", "Met", "Exe", "Fot", "Bin",
                                               "Pla", "Imt", "Tmp", "Res", "Doc", "Dat", "Hor"};
  std::string slots_[std::size(kKeys)];
};
