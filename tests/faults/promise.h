#pragma once

#include <map>
#include <string>
#include <vector>

#include "faults/run_under.h"
#include "support/temporary_folder.h"

/// The promise of a run: either the output is complete, byte for byte, and the marker exists and
/// the exit code is 0; or there is one clear message, exit code 3 and no marker, the inputs are
/// untouched, and the output is empty, absent or as it was before.

inline constexpr const char* kErrorCaption = "Se ha producido un error: ";

/// A folder with the inputs of a run: those of samples/casa-una-planta, as casa.bdl and so on.
class Workplace {
 public:
  Workplace();

  /// Changes an input.
  void writeInput(const std::string& name, const std::string& bytes);
  std::string input(const std::string& name) const { return inputs_.at(name); }

  /// The folder as it is before a run: inputs as written, an output of earlier times, no marker.
  void reset() const;

  std::vector<std::string> arguments() const {
    return {folder_ / "casa.bdl", folder_ / "casa.tip", folder_ / "salida.bdl",
            folder_ / "fin.txt"};
  }
  const TemporaryFolder& folder() const { return folder_; }

  /// What the run ought to have written; the sample's golden output.
  const std::string& expectedOutput() const { return expected_; }

  bool outputIsComplete() const;
  bool hasMarker() const { return folder_.has("fin.txt"); }
  /// Names of the inputs that a run has changed or removed, each with a blank.
  std::string touchedInputs() const;

  static constexpr const char* kOldOutput = "de antes\n";

 private:
  TemporaryFolder folder_;
  std::map<std::string, std::string> inputs_;
  std::string expected_;
};

/// The first line of what a run said, with its line end: the message.
std::string messageLine(const std::string& err);

enum class Ending { kComplete, kMessage, kBroken };

struct Verdict {
  Ending ending = Ending::kBroken;
  std::string why;  // of a broken promise
};

/// Which of its two ways the run has taken, or how it broke the promise. With `silent` the message
/// may be missing or cut: it was standard error itself that failed.
Verdict judge(const Workplace& place, const FaultedRun& run, bool silent = false);

/// Whether the tests have been asked for their long form.
bool longTests();
