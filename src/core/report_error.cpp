#include "core/report_error.h"

#include "core/concat.h"
#include "core/cp1252.h"
#include "core/global2.h"
#include "core/platform.h"

constinit thread_local Global2* ErrorLog = nullptr;

void ReportFailure(Global2* log, const Fault& fault) {
  Application->ShowFault(fault);
  if (log != nullptr) {
    if (log->tipoEdificio == "OBJETO") log->escribir(fault.message);
    log->cerrar();
  }
  Application->Terminate(kExitError);
}

void ReportFailure(Global2* log, std::string_view message) {
  ReportFailure(log, Fault{std::string(message), {}});
}

std::string errorInFile(std::string_view name, long line, std::string_view what) {
  std::string where(name);
  if (line > 0) where += concat(", línea "_cp1252, std::to_string(line));
  return concat("Error en el fichero ", where, ": ", what);
}
