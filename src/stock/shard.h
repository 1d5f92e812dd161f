#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace stock {

/// A part of a list: the rows `number`, number + count, number + 2 count, ...
struct Shard {
  long number = 1;  // from 1
  long count = 1;
  bool part = false;  // asked for as a part, be it the only one; its files are named so

  bool has(long row) const { return (row - number) % count == 0; }
  /// How many of `rows` rows are its own.
  long rowsOf(long rows) const { return rows < number ? 0 : (rows - number) / count + 1; }
  /// "resultados", and for a part "resultados-2-de-4".
  std::string nameOf(std::string_view stem) const;
};

/// "2/4"; nothing when it is no such thing.
std::optional<Shard> parseShard(std::string_view text);

/// The shard that a Slurm array stands for, from SLURM_ARRAY_TASK_ID, _MIN, _MAX, _COUNT and _STEP;
/// `variable` gives the value of one, or null. Nothing when they are not set.
/// `problem` says why one that is set cannot be used: not all tasks of the array are there.
std::optional<Shard> shardOfArray(const std::function<const char*(const char*)>& variable,
                                  std::string& problem);

}  // namespace stock
