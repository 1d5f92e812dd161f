#include <windows.h>

#include <utility>

#include "core/concat.h"
#include "core/file_faults.h"
#include "core/report_error.h"
#include "core/wide_text.h"
#include "stock/folder_lock.h"

namespace stock {

/// A file that is open without sharing is a lock there, and the system removes it when it is
/// closed, however the process ends.
FolderLock::FolderLock(std::string path) : path_(std::move(path)) {
  const HANDLE file =
      CreateFileW(toWide(path_).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                  FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (file != INVALID_HANDLE_VALUE) {
    file_ = reinterpret_cast<std::intptr_t>(file);
    return;
  }
  if (GetLastError() == ERROR_SHARING_VIOLATION) {
    ReportFailure(ErrorLog,
                  {concat("Otro proceso está trabajando en esta carpeta: ", path_), std::nullopt});
  }
  ReportFailure(ErrorLog, cannotOpenForWriting(path_));
}

FolderLock::~FolderLock() { CloseHandle(reinterpret_cast<HANDLE>(file_)); }

}  // namespace stock
