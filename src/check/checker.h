#pragma once

#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>

#include "check/checked_template.h"
#include "check/finding.h"
#include "generator/run_inputs.h"
#include "generator/template.h"

/// Checks typologies, with the template that they are for or without: all that is wrong with the
/// inputs of a run at once, and what is not wrong but not what its writer meant either. Nothing is
/// written. A template is read once, however many typologies are checked with it.
///
/// The errors come first. The first of them is the message that the run of the same files would end
/// with, because that run is carried out, all but the writing; where it would come to its end there
/// are no errors. Behind them stand warnings and notes, those of the template before those of the
/// typology, in the order of their places. What has been said of a template is not said again for
/// the next typology; what stands in the way of each one's building is.
class Checker {
 public:
  /// Typologies alone.
  Checker() = default;
  /// Typologies for the template `templateFile` (*.bdl), its table and its library.
  explicit Checker(std::string templateFile) : templateFile_(std::move(templateFile)) {}

  Findings check(const std::string& typologyFile);

 private:
  /// What came of reading a template's side.
  struct TemplateReading {
    std::unique_ptr<Template> plantilla;             // null where a run would end here
    std::unique_ptr<const CheckedTemplate> checked;  // of it
    std::optional<Fault> runFault;
    std::vector<Fault> faults;  // all of them
    Findings findings;          // of the template alone
  };
  class Run;

  const TemplateReading& templateReading(const InputPaths& paths);
  void dropWhatWasSaid(Findings& findings, const std::string& typologyFile);

  std::optional<std::string> templateFile_;
  std::optional<TemplateReading> template_;
  std::set<std::string> said_;
};

/// The finding that an error of a run is.
Finding errorFinding(const Fault& fault);

/// Whether a typology of which this could be read, with these faults, has all numbers that a plan
/// is drawn from: else the plan's limits would only be consequences.
bool hasPlanNumbers(const TypologyRecord& typology, const std::vector<Fault>& faults);

/// What the four paths of a run themselves tell: two that coincide, table, library and Error.log
/// among them, a marker left over from an earlier run, a folder that is not there. Empty paths are
/// not looked at.
Findings pathFindings(const std::string& templateFile, std::span<const std::string> typologyFiles,
                      const std::string& outputFile, const std::string& markerFile);
