#include "check/checker.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <tuple>

#include "check/written_bytes.h"
#include "check/written_typology.h"
#include "core/concat.h"
#include "core/cp1252.h"
#include "core/output_lines.h"
#include "core/paths.h"
#include "core/report_error.h"
#include "core/run_ended.h"
#include "generator/generation_sequence.h"
#include "plan/plan_numbers.h"

namespace {

constexpr std::string_view kCommandType = "VIVIENDA";
constexpr std::string_view kNothing = "nada";

using FaultKey = std::tuple<std::string, std::string, long, long>;

FaultKey keyOf(const Fault& fault) {
  if (!fault.place) return {fault.message, {}, -1, -1};
  return {fault.message, fault.place->file, fault.place->line, fault.place->column};
}

/// The fault that ends the run, and behind it what else is wrong. Without the first there is none.
std::vector<Fault> inOrder(const std::optional<Fault>& runFault, const std::vector<Fault>& others) {
  if (!runFault) return {};
  std::vector<Fault> faults = {*runFault};
  std::set<FaultKey> known = {keyOf(*runFault)};
  for (const Fault& fault : others) {
    if (known.insert(keyOf(fault)).second) faults.push_back(fault);
  }
  return faults;
}

/// All limits of the plan that a typology breaks.
std::vector<Fault> planFaults(const TypologyRecord& typology) {
  const PlanResult result = planTipologia(planDataOf(typology));
  const auto* failure = std::get_if<PlanFailure>(&result);
  std::vector<Fault> faults;
  if (failure == nullptr) return faults;
  for (const PlanFault& fault : failure->faults) {
    faults.push_back(faultIn(typology, fault));
  }
  return faults;
}

/// The keyword that a limit of the plan blames; empty for a message of none.
std::string_view blamedBy(const std::string& message, const TypologyRecord& typology) {
  const PlanResult result = planTipologia(planDataOf(typology));
  const auto* failure = std::get_if<PlanFailure>(&result);
  if (failure == nullptr) return {};
  const auto fault = std::ranges::find(failure->faults, message, &PlanFault::message);
  return fault == failure->faults.end() ? "" : nameOf(fault->keywords.front());
}

/// Whether a typology with this fault lacks a number that a plan is drawn from.
bool leavesNoPlan(const Fault& fault) {
  const Code code = codeOfRunMessage(fault.message);
  if (code == Code::kFaltaVivienda) return true;
  if (code != Code::kFaltaDato) return false;
  const auto isOf = [&](std::string_view word) {
    return fault.message.ends_with(concat(" ", word));
  };
  return isOf(nameOf(PlanKeyword::kTipo)) ||
         std::ranges::any_of(planNumbers(), [&](const PlanNumber& number) {
           return number.ofEveryFamily && isOf(number.name);
         });
}

}  // namespace

bool hasPlanNumbers(const TypologyRecord& typology, const std::vector<Fault>& faults) {
  return typology.longitudFachada > 0 && std::ranges::none_of(faults, leavesNoPlan);
}

Finding errorFinding(const Fault& fault) {
  Finding finding{
      .code = codeOfRunMessage(fault.message), .message = fault.message, .place = fault.place};
  if (fault.place && fault.place->length > 0) {
    finding.found = fault.place->text.substr(static_cast<std::size_t>(fault.place->column - 1),
                                             fault.place->length);
    // What is nowhere in the file has the command for its place.
    const bool ofKeyword =
        finding.code == Code::kFaltaDato || finding.code == Code::kMedidaDePlanta;
    if (ofKeyword && finding.found == kCommandType) finding.found = kNothing;
  }
  return finding;
}

/// What a run of the template and one typology does, all but the writing.
class Checker::Run {
 public:
  Run(Checker& checker, const std::string& typologyFile)
      : checker_(checker), typologyFile_(typologyFile) {}

  Findings findings() {
    if (checker_.templateFile_) {
      checkWithTemplate();
    } else {
      checkAlone();
    }
    Findings findings;
    for (const Fault& fault : inOrder(runFault_, faults_)) {
      Finding finding = errorFinding(fault);
      if (finding.code == Code::kMedidaDePlanta && finding.found == kNothing && record_) {
        finding.suggestion = concat("escriba ", blamedBy(fault.message, *record_));
      }
      findings.push_back(std::move(finding));
    }
    std::ranges::stable_sort(remarks_, {}, [&](const Finding& remark) {
      const Place place = remark.place.value_or(Place{});
      return std::tuple(place.file == typologyFile_, place.file, place.line, place.column);
    });
    std::ranges::move(remarks_, std::back_inserter(findings));
    return findings;
  }

 private:
  void keep(const std::vector<Fault>& faults) {
    faults_.insert(faults_.end(), faults.begin(), faults.end());
    if (!runFault_ && !faults.empty()) runFault_ = faults.front();
  }

  void checkAlone() {
    runFault_ = faultOf([&] {
      requirePathWithin(typologyFile_, kPathCapacity);
      requireTypology(typologyFile_);
    });
    if (runFault_) return;
    readTypology();
    keep(limits());
  }

  void checkWithTemplate() {
    InputPaths paths;
    runFault_ = faultOf([&] {
      requirePathWithin(*checker_.templateFile_, kPathCapacity);
      requirePathWithin(typologyFile_, kPathCapacity);
      paths = requireInputs(*checker_.templateFile_, typologyFile_);
    });
    if (runFault_) {
      // A run tells of the first file that is missing.
      faultOf([&] {
        requireInputs(*checker_.templateFile_, typologyFile_,
                      [&](const Fault& fault) { faults_.push_back(fault); });
      });
      if (fileExists(typologyFile_)) {
        readTypology();
        keep(limits());
      }
      return;
    }
    const TemplateReading& reading = checker_.templateReading(paths);
    runFault_ = reading.runFault;
    keep(reading.faults);
    remarks_ = reading.findings;
    if (reading.checked) frames_ = reading.checked->frames();
    readTypology();
    // The run looks at the template before it looks at the plan.
    if (reading.plantilla && record_) generate(*reading.plantilla);
    keep(limits());
    if (!reading.checked || !record_) return;
    const Findings fit = fitFindings(*reading.checked, *record_, hasPlanNumbers_);
    remarks_.insert(remarks_.end(), fit.begin(), fit.end());
    dropNamesThatWereMisread(remarks_);
  }

  void readTypology() {
    std::vector<Fault> faults;
    const std::optional<Fault> unreadable =
        faultOf([&] { record_.emplace(readText(typologyFile_), faults); });
    if (unreadable) faults.push_back(*unreadable);
    keep(faults);
    if (!record_) return;
    // Nothing is read of a command that has no close.
    hasPlanNumbers_ = hasPlanNumbers(*record_, faults);
    const Findings remarks = compareReadings(*record_, frames_);
    remarks_.insert(remarks_.end(), remarks.begin(), remarks.end());
  }

  /// The run itself; only where it ends with a fault, what else stands in its way. Of a typology
  /// that has ended it already, what would have been met behind its own faults.
  void generate(const Template& plantilla) {
    if (runFault_) {
      if (hasPlanNumbers_) keepAllButConsequences(faultsOfGenerating(plantilla, *record_));
      return;
    }
    runFault_ = faultOf([&] {
      OutputLines nobodyReads;
      ::generate(plantilla, *record_, nobodyReads);
    });
    if (runFault_) keep(faultsOfGenerating(plantilla, *record_));
  }

  /// Without those of a value that has a fault of its own.
  void keepAllButConsequences(const std::vector<Fault>& faults) {
    std::set<FaultKey> places;
    const auto placeOf = [](const Fault& fault) { return keyOf({{}, fault.place}); };
    for (const Fault& fault : faults_) places.insert(placeOf(fault));
    for (const Fault& fault : faults) {
      const bool follows =
          codeOfRunMessage(fault.message) == Code::kNoFinito && places.contains(placeOf(fault));
      if (!follows) faults_.push_back(fault);
    }
  }

  std::vector<Fault> limits() const {
    return hasPlanNumbers_ ? planFaults(*record_) : std::vector<Fault>();
  }

  Checker& checker_;
  const std::string& typologyFile_;
  std::optional<TypologyRecord> record_;  // none where the file cannot be read
  std::vector<std::string> frames_;       // that the template defines
  bool hasPlanNumbers_ = false;
  std::optional<Fault> runFault_;
  std::vector<Fault> faults_;
  Findings remarks_;
};

const Checker::TemplateReading& Checker::templateReading(const InputPaths& paths) {
  if (template_) return *template_;
  template_.emplace();
  std::optional<TemplateTexts> texts;
  template_->runFault = faultOf([&] { texts = readTemplateTexts(paths); });
  const auto addBytesOf = [&](const SourceText& text) {
    Findings bytes = bytesFindings(text);
    std::ranges::move(bytes, std::back_inserter(template_->findings));
  };
  if (texts) {
    addBytesOf(texts->building);
    addBytesOf(texts->table);
    faultOf([&] { addBytesOf(readText(paths.defaults)); });
  }
  faultOf([&] {
    const SourceText table =
        texts ? SourceText(texts->table.name(), texts->table.bytes()) : readText(paths.table);
    readTableFile(table, [&](const Fault& fault) { template_->faults.push_back(fault); });
  });
  if (!texts) return *template_;
  template_->runFault = faultOf([&] {
    template_->plantilla =
        std::make_unique<Template>(std::move(texts->building), std::move(texts->table));
  });
  if (template_->plantilla) {
    template_->checked = std::make_unique<const CheckedTemplate>(*template_->plantilla);
    Findings more = templateFindings(*template_->checked);
    std::ranges::move(more, std::back_inserter(template_->findings));
  }
  return *template_;
}

/// Leaves out what an earlier check has said of a file that is not the typology.
void Checker::dropWhatWasSaid(Findings& findings, const std::string& typologyFile) {
  // With a template that can be read, an error in it is one of this typology.
  const bool keepsErrors = template_ && template_->plantilla;
  std::erase_if(findings, [&](const Finding& finding) {
    if (!finding.place || finding.place->file == typologyFile) return false;
    if (keepsErrors && severityOf(finding) == Severity::kError) return false;
    const std::string key = concat(rowOf(finding.code).word, "\n", finding.place->file, "\n",
                                   std::to_string(finding.place->line), "\n",
                                   std::to_string(finding.place->column), "\n", finding.message);
    return !said_.insert(key).second;
  });
}

Findings Checker::check(const std::string& typologyFile) {
  Findings findings = Run(*this, typologyFile).findings();
  dropWhatWasSaid(findings, typologyFile);
  return findings;
}
