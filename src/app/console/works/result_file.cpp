#include "app/console/works/result_file.h"

#include <cstdio>

#include "app/standard_streams.h"
#include "app/terminal_text.h"
#include "core/cp1252.h"
#include "core/report_error.h"
#include "core/text_mode.h"
#include "core/whole_file.h"

namespace {

void writeToStandardOutput(std::string_view bytes) {
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size();
  const bool said = std::fflush(stdout) == 0 && written;
  ReportError(ErrorLog, said, "Error al escribir en la salida estándar"_cp1252);
}

}  // namespace

void writeResult(const std::string& path, std::string_view bytes) {
  if (!path.empty()) {
    writeWholeFile(path, bytes);
    return;
  }
  letStandardOutputBeBytes();
  writeToStandardOutput(bytes);
}

void writeText(const std::string& path, std::string_view utf8) {
  if (!path.empty()) {
    writeWholeFile(path, asWrittenInTextMode(utf8));
    return;
  }
  writeToStandardOutput(forTerminal(utf8));
}
