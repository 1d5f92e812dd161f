#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

#include <cstdio>
#include <utility>

#include "core/concat.h"
#include "core/report_error.h"
#include "stock/folder_lock.h"

namespace stock {

// A file that is opened without sharing is a lock there.
FolderLock::FolderLock(std::string path) : path_(std::move(path)) {
  file_ = _sopen(path_.c_str(), _O_RDWR | _O_CREAT, _SH_DENYRW, _S_IREAD | _S_IWRITE);
  if (file_ < 0) {
    ReportFailure(ErrorLog,
                  {concat("Otro proceso está trabajando en esta carpeta: ", path_), std::nullopt});
  }
}

FolderLock::~FolderLock() {
  _close(file_);
  std::remove(path_.c_str());
}

}  // namespace stock
