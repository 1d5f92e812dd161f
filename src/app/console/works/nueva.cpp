#include "app/console/works/nueva.h"

#include <charconv>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "app/console/works/new_typology.h"
#include "app/console/works/result_file.h"
#include "app/console/works/work.h"
#include "app/standard_streams.h"
#include "core/concat.h"
#include "core/paths.h"
#include "core/text_mode.h"
#include "stock/encoding.h"
#include "typology/tipo.h"

namespace {

int tipoOf(const std::string& text) {
  int tipo = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, tipo);
  if (read.ec != std::errc() || read.ptr != end || !isTipo(tipo)) {
    throw WrongWorkArguments{
        concat("no existe la tipología «", text, "»; van de 1 a ", std::to_string(kLastTipo))};
  }
  return tipo;
}

/// A file that is there may be one that somebody has filled in. What is no plain file (a pipe, a
/// device) loses nothing.
void keepOffAFile(const std::string& path) {
  std::error_code none;
  if (path.empty() || !std::filesystem::is_regular_file(filePath(path), none)) return;
  throw WrongWorkArguments{concat(kSalida.name, " sobrescribiría ", path, ", que ya existe")};
}

}  // namespace

int nueva(const WorkArguments& arguments) {
  const std::string text = newTypology(tipoOf(arguments.operands.front()));
  const std::string path = arguments.value(kSalida.name);
  keepOffAFile(path);
  // To be looked at, or to be kept: a file has the encoding that the run reads.
  if (path.empty() && standardOutputIsTerminal()) {
    writeText(path, text);
  } else {
    writeResult(path, asWrittenInTextMode(stock::toCp1252(text).value()));
  }
  return kExitDone;
}
