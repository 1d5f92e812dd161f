#include "app/run_generation.h"

#include <memory>
#include <string>

#include "app/executable_path.h"
#include "bdl/valores_por_defecto.h"
#include "core/cp1252.h"
#include "core/global2.h"
#include "core/path_table.h"
#include "core/paths.h"
#include "core/report_error.h"
#include "generator/generation_sequence.h"
#include "generator/generator_context.h"

namespace {

std::string composedPath(const std::string& folder, const std::string& name) {
  std::string path = folder + name;
  requirePathWithin(path, kComposedPathCapacity);
  return path;
}

/// Opens Error.log for the time of a run and makes it the process's error log.
class ErrorLogOfRun {
 public:
  explicit ErrorLogOfRun(const std::string& path) : log_(path) { ErrorLog = &log_; }
  ~ErrorLogOfRun() { ErrorLog = nullptr; }
  ErrorLogOfRun(const ErrorLogOfRun&) = delete;
  ErrorLogOfRun& operator=(const ErrorLogOfRun&) = delete;

 private:
  Global2 log_;
};

/// The process-wide tables that live as long as a run.
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
  ReportError(ErrorLog, fileExists(paths.dataFile), "No existe el fichero de datos *.bdl");
  ReportError(ErrorLog, fileExists(tablePath), "No existe el fichero de datos *.tbl");
  ReportError(ErrorLog, fileExists(paths.typologyFile), "No existe el fichero de datos *.tip");
  const std::string defaultsPath = composedPath(folderOf(paths.dataFile), "defectos.inp");
  ReportError(ErrorLog, fileExists(defaultsPath),
              "No existe el fichero de librería defectos.inp"_cp1252);

  auto defaults = std::make_unique<ValoresPorDefecto>(defaultsPath);
  {
    GeneratorContext context(paths.dataFile, tablePath, paths.outputFile);
    prepare(context, paths.typologyFile);
    generate(context, progressBar);
    defaults.reset();
  }
  return 1;
}
