#pragma once

#include <string>
#include <string_view>

#include "stock/shard.h"

namespace stock {

/// The buildings that a work on a list writes, each with its typology beside it where that is kept.
/// Named from the folder of the results: "000000/ID.bdl", 1000 rows a folder. Any number of threads
/// may use one, and works on different shards may share a folder.
class Outputs {
 public:
  /// `folder` ends in "/".
  Outputs(std::string folder, const Shard& shard);

  /// `number`: of the row in the list, from 1.
  static std::string nameOf(std::string_view id, long number);
  static std::string typologyOf(std::string_view output);

  /// Writes a file beside its place, in the system's text mode or as it is, and renames it.
  /// Throws DiskFault.
  void putText(const std::string& name, std::string_view bytes) const { put(name, bytes, "w"); }
  void putBytes(const std::string& name, std::string_view bytes) const { put(name, bytes, "wb"); }

  /// Whether a file is there. One without a byte is what a machine that lost its power leaves.
  bool has(const std::string& name) const;

  /// Makes sure that nothing stands where an output and its typology would.
  void remove(const std::string& output) const;
  void removeTypologyOf(const std::string& output) const;

 private:
  void put(const std::string& name, std::string_view bytes, const char* mode) const;
  void removeFile(const std::string& name) const;

  std::string folder_;
  std::string unfinished_;  // behind the name of a file that is being written
};

}  // namespace stock
