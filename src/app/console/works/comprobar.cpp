#include "app/console/works/comprobar.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/command_line.h"
#include "app/console/works/result_file.h"
#include "app/console/works/work.h"
#include "app/standard_streams.h"
#include "check/checker.h"
#include "check/formats.h"
#include "core/report_error.h"
#include "core/run_ended.h"

namespace {

/// The only argument where the four paths come as one; null where they do not.
const std::string* callersForm(const WorkArguments& arguments) {
  const std::vector<std::string>& files = arguments.operands;
  const bool one = files.size() == 1 && files.front().find('#') != std::string::npos;
  return one ? &files.front() : nullptr;
}

/// The files to check, and the paths that a run of them would write.
struct Request {
  std::optional<std::string> plantilla;  // none: the typologies alone
  std::vector<std::string> typologies;
  std::string output;
  std::string marker;
};

bool isTemplateName(std::string_view file) {
  constexpr std::string_view kExtension = ".bdl";
  if (file.size() < kExtension.size()) return false;
  std::string end(file.substr(file.size() - kExtension.size()));
  for (char& c : end) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return end == kExtension;
}

Request requestOf(const WorkArguments& arguments) {
  std::vector<std::string> files = arguments.operands;
  if (const std::string* const form = callersForm(arguments)) {
    const RunPaths paths = splitCommandLine(*form);
    return {paths.dataFile, {paths.typologyFile}, paths.outputFile, paths.markerFile};
  }
  Request request;
  request.output = arguments.value("--salida-prevista");
  request.marker = arguments.value("--marca");
  if (isTemplateName(files.front())) {
    request.plantilla = files.front();
    files.erase(files.begin());
  }
  request.typologies = std::move(files);
  return request;
}

Findings findingsOf(const Request& request) {
  Findings findings;
  Checker checker = request.plantilla ? Checker(*request.plantilla) : Checker();
  for (const std::string& typology : request.typologies) {
    Findings more = checker.check(typology);
    std::move(more.begin(), more.end(), std::back_inserter(findings));
  }
  Findings ofPaths = pathFindings(request.plantilla.value_or(""), request.typologies,
                                  request.output, request.marker);
  std::move(ofPaths.begin(), ofPaths.end(), std::back_inserter(findings));
  return findings;
}

std::string asPeopleRead(const Findings& findings, bool colours) {
  std::string text;
  for (const Finding& finding : findings) text += asText(finding, colours) + "\n";
  return text + countLine(findings) + "\n";
}

std::string asLines(const Findings& findings) {
  std::string text;
  for (const Finding& finding : findings) text += asGccLine(finding);
  return text;
}

int exitStatus(const Findings& findings, bool strict) {
  bool warnings = false;
  for (const Finding& finding : findings) {
    if (severityOf(finding) == Severity::kError) return kExitError;
    warnings = warnings || severityOf(finding) == Severity::kWarning;
  }
  return strict && warnings ? kExitFaultsFound : kExitDone;
}

}  // namespace

int comprobar(const WorkArguments& arguments) {
  Request request;
  const std::optional<Fault> wrongForm = faultOf([&] { request = requestOf(arguments); });
  if (!wrongForm && request.typologies.empty()) throw WrongWorkArguments{"falta la tipología"};
  const std::string file = arguments.value(kSalida.name);
  const bool onTerminal = file.empty() && standardOutputIsTerminal();
  const std::string format = arguments.value("--formato", onTerminal ? "texto" : "gcc");
  const Findings findings = wrongForm ? Findings{errorFinding(*wrongForm)} : findingsOf(request);
  if (format == "json") {
    writeResult(file, asJson(findings));
  } else if (format == "sarif") {
    writeResult(file, asSarif(findings));
  } else if (format == "texto") {
    writeText(file, asPeopleRead(findings, onTerminal));
  } else {
    writeText(file, asLines(findings));
  }
  return exitStatus(findings, arguments.has("--estricto"));
}
