#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

#include "core/concat.h"
#include "core/file_faults.h"
#include "core/report_error.h"
#include "stock/folder_lock.h"

namespace stock {

namespace {

/// Whether the open file is the one that has the path: whoever held the lock before may have
/// removed it in between.
bool isStillThere(int file, const std::string& path) {
  struct stat open {};
  struct stat named {};
  return fstat(file, &open) == 0 && stat(path.c_str(), &named) == 0 &&
         open.st_ino == named.st_ino && open.st_dev == named.st_dev;
}

}  // namespace

FolderLock::FolderLock(std::string path) : path_(std::move(path)) {
  constexpr mode_t kMode = 0666;
  while (true) {
    const int file = ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kMode);
    if (file < 0) {
      ReportFailure(ErrorLog, cannotOpenForWriting(path_));
    }
    if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
      ::close(file);
      ReportFailure(ErrorLog, {concat("Otro proceso está trabajando en esta carpeta: ", path_),
                               std::nullopt});
    }
    if (isStillThere(file, path_)) {
      file_ = file;
      return;
    }
    ::close(file);
  }
}

FolderLock::~FolderLock() {
  ::unlink(path_.c_str());
  ::close(static_cast<int>(file_));
}

}  // namespace stock
