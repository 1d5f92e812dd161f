#include "app/completion_marker.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "core/file_faults.h"
#include "core/open_file.h"
#include "core/paths.h"
#include "core/report_error.h"

void createCompletionMarker(const std::string& path) {
  std::FILE* marker = openFile(path, "w");
  if (marker != nullptr && std::fclose(marker) == 0) return;
  // A marker that is there although its creation failed would still be believed.
  std::error_code ignored;
  if (marker != nullptr && std::filesystem::is_regular_file(filePath(path), ignored)) {
    std::filesystem::remove(filePath(path), ignored);
  }
  ReportFailure(ErrorLog, cannotOpenForWriting(path));
}
