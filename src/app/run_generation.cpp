#include "app/run_generation.h"

#include <string>
#include <utility>

#include "app/executable_path.h"
#include "bdl/valores_por_defecto.h"
#include "core/cp1252.h"
#include "core/fichero.h"
#include "core/global2.h"
#include "core/path_table.h"
#include "core/paths.h"
#include "core/report_error.h"
#include "generator/generation_sequence.h"
#include "generator/template.h"
#include "typology/typology_record.h"

namespace {

std::string composedPath(const std::string& folder, const std::string& name) {
  std::string path = folder + name;
  requirePathWithin(path, kComposedPathCapacity);
  return path;
}

void requireFile(const std::string& path, std::string_view message) {
  if (!fileExists(path)) ReportFailure(ErrorLog, {std::string(message), wholeFile(path)});
}

SourceText textOf(const std::string& path) { return fichero(path, "lectura").takeText(); }

/// Opens Error.log for the time of a run and makes it the thread's error log.
class ErrorLogOfRun {
 public:
  explicit ErrorLogOfRun(const std::string& path) : log_(path) { ErrorLog = &log_; }
  ~ErrorLogOfRun() { ErrorLog = nullptr; }
  ErrorLogOfRun(const ErrorLogOfRun&) = delete;
  ErrorLogOfRun& operator=(const ErrorLogOfRun&) = delete;

 private:
  Global2 log_;
};

/// The thread's tables that live as long as a run. Nothing reads them.
class SingletonsOfRun {
 public:
  SingletonsOfRun() {
    ErrorObject::Instance();
    PathTable::Instance();
  }
  ~SingletonsOfRun() {
    PathTable::Release();
    ErrorObject::Release();
  }
  SingletonsOfRun(const SingletonsOfRun&) = delete;
  SingletonsOfRun& operator=(const SingletonsOfRun&) = delete;
};

}  // namespace

int RunGeneration(TProgressBar& progressBar, const RunPaths& paths) {
  for (const std::string& path :
       {paths.dataFile, paths.typologyFile, paths.outputFile, paths.markerFile}) {
    requirePathWithin(path, kPathCapacity);
  }

  const SingletonsOfRun singletons;
  PathTable& folders = PathTable::Instance();
  folders.Set("Exe", folderOf(executablePath()));
  folders.Set("Dat", folderOf(paths.outputFile));
  folders.Set("Lib", folderOf(paths.dataFile));
  folders.Set("Tmp", folderOf(paths.markerFile));

  // From here on failures can be logged; the log of an earlier run is emptied.
  const ErrorLogOfRun errorLog(composedPath(folderOf(paths.markerFile), "Error.log"));

  std::string tablePath = paths.dataFile;
  Global2::cambiarExtension(tablePath, "tbl");
  requirePathWithin(tablePath, kPathCapacity);
  requireFile(paths.dataFile, "No existe el fichero de datos *.bdl");
  requireFile(tablePath, "No existe el fichero de datos *.tbl");
  requireFile(paths.typologyFile, "No existe el fichero de datos *.tip");
  const std::string defaultsPath = composedPath(folderOf(paths.dataFile), "defectos.inp");
  requireFile(defaultsPath, "No existe el fichero de librería defectos.inp"_cp1252);

  const ValoresPorDefecto defaults(textOf(defaultsPath));
  SourceText building = textOf(paths.dataFile);
  SourceText table = textOf(tablePath);
  // Opened, and emptied, before the table and the typology are looked at; behind the template,
  // whose place it may take.
  fichero output(paths.outputFile, "escritura");
  const Template plantilla(std::move(building), std::move(table));
  const TypologyRecord typology(textOf(paths.typologyFile));
  generate(plantilla, typology, output.lines(), progressBar);
  output.guardar();
  return 1;
}
