#include "faults/promise.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace fs = std::filesystem;

namespace {

const fs::path kSample = fs::path(SOURCE_FOLDER) / "samples" / "casa-una-planta";
const fs::path kGolden =
    fs::path(SOURCE_FOLDER) / "tests" / "golden" / "casa-una-planta" / "tipo-01.bdl";

/// One line, with the caption and something behind it; where the message has a place, that in a
/// second line, two blanks in.
bool isOneMessage(const std::string& err) {
  const std::string caption = kErrorCaption;
  const std::string message = messageLine(err);
  const std::string place = err.substr(message.size());
  return message.starts_with(caption) && message.size() > caption.size() + 1 &&
         message.ends_with('\n') &&
         (place.empty() || (place.starts_with("  ") && place.ends_with('\n') &&
                            std::count(place.begin(), place.end(), '\n') == 1));
}

}  // namespace

std::string messageLine(const std::string& err) { return err.substr(0, err.find('\n') + 1); }

Workplace::Workplace() {
  inputs_["casa.bdl"] = readFile(kSample / "casa-una-planta.bdl");
  inputs_["casa.tbl"] = readFile(kSample / "casa-una-planta.tbl");
  inputs_["casa.tip"] = readFile(kSample / "tipo-01.tip");
  inputs_["defectos.inp"] = readFile(kSample / "defectos.inp");
  expected_ = readFile(kGolden);
  for (const auto& [name, bytes] : inputs_) folder_.write(name, bytes);
  reset();
}

void Workplace::writeInput(const std::string& name, const std::string& bytes) {
  inputs_[name] = bytes;
  folder_.write(name, bytes);
}

void Workplace::reset() const {
  fs::remove(folder_ / "fin.txt");
  fs::remove(folder_ / "Error.log");
  folder_.write("salida.bdl", kOldOutput);
}

bool Workplace::outputIsComplete() const {
  return folder_.has("salida.bdl") && folder_.read("salida.bdl") == expected_;
}

std::string Workplace::touchedInputs() const {
  std::string touched;
  for (const auto& [name, bytes] : inputs_) {
    if (!folder_.has(name) || folder_.read(name) != bytes) touched += name + " ";
  }
  return touched;
}

Verdict judge(const Workplace& place, const FaultedRun& run, bool silent) {
  std::ostringstream broken;
  if (run.timedOut) broken << "it hung; ";
  if (run.signal != 0 && !run.timedOut) broken << "killed by signal " << run.signal << "; ";
  const std::string touched = place.touchedInputs();
  if (!touched.empty()) broken << "touched the input " << touched << "; ";
  if (!run.out.empty()) broken << "said on standard output: " << run.out << "; ";

  const bool complete = run.status == 0;
  if (complete) {
    if (!place.outputIsComplete()) broken << "exit code 0 and the output is not complete; ";
    if (!place.hasMarker()) broken << "exit code 0 and no marker; ";
    if (!run.err.empty()) broken << "exit code 0 and it said: " << run.err << "; ";
  } else {
    if (run.signal == 0 && run.status != 3) broken << "exit code " << run.status << "; ";
    if (place.hasMarker()) broken << "a marker after an error; ";
    const std::string output =
        place.folder().has("salida.bdl") ? place.folder().read("salida.bdl") : std::string();
    // A marker that cannot be made comes too late for the output, which is whole then. (Where no
    // memory is left, or the framework fails in between, the message cannot say so.)
    const std::string noMarker =
        "Error al abrir fichero de escritura: " + place.folder() / "fin.txt\n";
    const bool whole = output == place.expectedOutput() &&
                       (run.err.ends_with(noMarker) || run.err.ends_with("memoria suficiente\n") ||
                        run.err.find("Error inesperado") != std::string::npos);
    if (!output.empty() && output != Workplace::kOldOutput && !whole) {
      broken << "half an output after an error (" << output.size() << " bytes); ";
    }
    if (!silent && !isOneMessage(run.err)) {
      broken << "not one clear message: \"" << run.err << "\"; ";
    }
  }
  if (!broken.str().empty()) return {Ending::kBroken, broken.str()};
  return {complete ? Ending::kComplete : Ending::kMessage, ""};
}

bool longTests() { return std::getenv("TIP2BDL_LONG_TESTS") != nullptr; }
