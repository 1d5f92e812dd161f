#include "core/report_error.h"

#include "core/concat.h"
#include "core/cp1252.h"
#include "core/global2.h"
#include "core/platform.h"

Global2* ErrorLog = nullptr;

void ReportFailure(Global2* log, std::string_view message) {
  Application->MessageBox(message, kErrorCaption);
  if (log != nullptr) {
    if (log->tipoEdificio == "OBJETO") log->escribir(message);
    log->cerrar();
  }
  Application->Terminate(kExitError);
}

std::string errorInFile(std::string_view name, long line, std::string_view what) {
  std::string where(name);
  if (line > 0) where += concat(", línea "_cp1252, std::to_string(line));
  return concat("Error en el fichero ", where, ": ", what);
}

namespace {
ErrorObject* theErrorObject = nullptr;
}

ErrorObject& ErrorObject::Instance() {
  if (theErrorObject == nullptr) theErrorObject = new ErrorObject;
  return *theErrorObject;
}

void ErrorObject::Release() {
  delete theErrorObject;
  theErrorObject = nullptr;
}
