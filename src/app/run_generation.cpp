#include "app/run_generation.h"

#include <optional>
#include <string>
#include <utility>

#include "app/executable_path.h"
#include "core/fichero.h"
#include "core/global2.h"
#include "core/path_table.h"
#include "core/paths.h"
#include "core/report_error.h"
#include "generator/generation_sequence.h"
#include "generator/run_inputs.h"
#include "generator/template.h"
#include "typology/typology_record.h"

namespace {

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

  const InputPaths inputs = requireInputs(paths.dataFile, paths.typologyFile);
  TemplateTexts texts = readTemplateTexts(inputs);
  std::optional<Template> plantilla;  // outlives the output, most of whose lines are its bytes
  // Opened, and emptied, before the table and the typology are looked at; behind the template,
  // whose place it may take.
  fichero output(paths.outputFile, "escritura");
  plantilla.emplace(std::move(texts.building), std::move(texts.table));
  const TypologyRecord typology(readText(inputs.typology));
  generate(*plantilla, typology, output.lines(), progressBar);
  output.save();
  return 1;
}
