#include "run_and_check.h"

#include <algorithm>
#include <filesystem>

#include "app/run_generation.h"
#include "check/formats.h"
#include "core/platform.h"
#include "core/run_ended.h"
#include "support/minimal_building.h"

namespace fs = std::filesystem;

namespace {

class NoBar : public TProgressBar {
 public:
  int GetPosition() const override { return 0; }
  void SetPosition(int /*position*/) override {}
};

bool samePlace(const std::optional<Place>& a, const std::optional<Place>& b) {
  if (!a || !b) return a.has_value() == b.has_value();
  return a->file == b->file && a->line == b->line && a->column == b->column &&
         a->length == b->length && a->text == b->text;
}

}  // namespace

Inputs Inputs::ofSample(const std::string& folder, const std::string& typology) {
  const fs::path path = fs::path(SOURCE_FOLDER) / "samples" / folder;
  return {
      readFile((path / (folder + ".bdl")).string()), readFile((path / (folder + ".tbl")).string()),
      readFile((path / (typology + ".tip")).string()), readFile((path / "defectos.inp").string())};
}

Inputs Inputs::minimal() {
  return {std::string(MinimalBuilding::kTemplate), std::string(MinimalBuilding::kTable),
          std::string(MinimalBuilding::kTypology), std::string(MinimalBuilding::kDefaults)};
}

void Inputs::writeInto(const TemporaryFolder& folder) const {
  folder.write("casa.bdl", building);
  folder.write("casa.tbl", table);
  folder.write("casa.tip", typology);
  folder.write("defectos.inp", defaults);
}

std::optional<Fault> faultOfRun(const TemporaryFolder& folder) {
  return faultOf([&] {
    NoBar bar;
    RunGeneration(
        bar, {folder / "casa.bdl", folder / "casa.tip", folder / "salida.bdl", folder / "fin.txt"});
  });
}

Findings findingsOfCheck(const TemporaryFolder& folder) {
  return Checker(folder / "casa.bdl").check(folder / "casa.tip");
}

std::vector<std::string> stateOf(const TemporaryFolder& folder) {
  std::vector<std::string> state;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder.path())) {
    state.push_back(entry.path().filename().string() + " " + std::to_string(entry.file_size()) +
                    " " + std::to_string(entry.last_write_time().time_since_epoch().count()));
  }
  std::ranges::sort(state);
  return state;
}

std::vector<std::string> messagesOf(const Findings& findings, Severity severity) {
  std::vector<std::string> messages;
  for (const Finding& finding : findings) {
    if (severityOf(finding) == severity) messages.push_back(finding.message);
  }
  return messages;
}

std::string contradiction(const TemporaryFolder& folder) {
  const std::optional<Fault> fault = faultOfRun(folder);
  const std::vector<std::string> before = stateOf(folder);
  const Findings findings = findingsOfCheck(folder);
  if (stateOf(folder) != before) return "the check has written";
  const auto isError = [](const Finding& f) { return severityOf(f) == Severity::kError; };
  if (!std::ranges::is_partitioned(findings, isError)) return "an error behind a warning";
  const bool anyError = !findings.empty() && isError(findings.front());
  if (!fault) return anyError ? "the run succeeds, but: " + asGccLine(findings.front()) : "";
  if (!anyError) return "the run ends, and the check knows no error: " + fault->message;
  const Finding& first = findings.front();
  if (first.message != fault->message) {
    return "the run ends with: " + fault->message + "\nthe first error is: " + first.message;
  }
  return samePlace(first.place, fault->place) ? "" : "another place of: " + fault->message;
}
