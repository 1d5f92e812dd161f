#pragma once

#include <mutex>
#include <optional>
#include <string>

#include "core/open_file.h"

namespace stock {

/// What a finished shard tells whoever joins the shards.
struct ShardEnd {
  long listRows = 0;
  long rows = 0;
  std::string inputs;  // fingerprint of what all shards have in common
};

/// The times of the rows, and whether all were done: what is not the same from one run to the next
/// and so has no place in the results. Times are written now and then, so that some are lost when
/// the process is killed.
class Journal {
 public:
  /// Adds to the file, or begins it anew. Throws DiskFault.
  Journal(const std::string& path, bool goOn);
  void addRow(std::string_view id, std::string_view state, double seconds);
  /// The last line of all: every row of the shard has a result. Throws DiskFault.
  void finish(const ShardEnd& end);

  /// What the last line of a journal says; nothing when its shard is not finished.
  static std::optional<ShardEnd> endOf(const std::string& path);

 private:
  void put(const std::string& line);

  std::string path_;
  std::mutex mutex_;
  OpenedFile file_;
};

}  // namespace stock
