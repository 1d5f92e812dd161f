#include "app/console/works/nueva.h"

#include <charconv>
#include <optional>
#include <string>

#include "app/console/standard_streams.h"
#include "app/console/terminal_text.h"
#include "app/console/works/new_typology.h"
#include "app/console/works/result_file.h"
#include "app/console/works/work.h"
#include "core/concat.h"
#include "core/text_mode.h"
#include "stock/encoding.h"
#include "typology/tipo.h"

namespace {

int tipoOf(const std::string& text) {
  int tipo = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, tipo);
  if (read.ec != std::errc() || read.ptr != end || tipo < 1 || tipo > kLastTipo) {
    throw WrongWorkArguments{
        concat("no existe la tipología «", text, "»; van de 1 a ", std::to_string(kLastTipo))};
  }
  return tipo;
}

}  // namespace

int nueva(const WorkArguments& arguments) {
  const std::string text = newTypology(tipoOf(arguments.operands.front()));
  const std::string path = arguments.value(kSalida.name);
  // To be looked at, or to be kept: a file has the encoding that the run reads.
  const bool toBeLookedAt = path.empty() && standardOutputIsTerminal();
  writeResult(
      path, asWrittenInTextMode(toBeLookedAt ? forTerminal(text) : stock::toCp1252(text).value()));
  return kExitDone;
}
