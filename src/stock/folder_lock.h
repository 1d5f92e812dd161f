#pragma once

#include <cstdint>
#include <string>

namespace stock {

/// Keeps a second process, and a second lock in the same process, out of a folder while it lives.
/// It goes with the process however that ends; the lock's file goes with the object.
class FolderLock {
 public:
  /// `path`: the lock's own file. One that is held already, or cannot be made, ends the run.
  explicit FolderLock(std::string path);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  std::string path_;
  std::intptr_t file_ = -1;  // as the system names open files
};

}  // namespace stock
