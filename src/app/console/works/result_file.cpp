#include "app/console/works/result_file.h"

#include <cstdio>

#include "core/cp1252.h"
#include "core/report_error.h"
#include "core/whole_file.h"

void writeResult(const std::string& path, std::string_view bytes) {
  if (!path.empty()) {
    writeWholeFile(path, bytes);
    return;
  }
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size();
  const bool said = std::fflush(stdout) == 0 && written;
  ReportError(ErrorLog, said, "Error al escribir en la salida estándar"_cp1252);
}
