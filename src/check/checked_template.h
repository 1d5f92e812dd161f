#pragma once

#include <set>
#include <string>
#include <vector>

#include "check/finding.h"
#include "check/template_commands.h"
#include "generator/template.h"
#include "plan/plan.h"
#include "typology/facade.h"
#include "typology/typology_record.h"

/// The windows of a template's table on each façade, street and courtyard.
struct WindowCounts {
  PerFacade<int> street{};
  PerFacade<int> courtyard{};
};

/// A template with what checks ask of it, found out once for all its typologies. Never changes; any
/// number of threads may share one. `plantilla` must outlive it.
class CheckedTemplate {
 public:
  explicit CheckedTemplate(const Template& plantilla);

  const Template& plantilla() const { return plantilla_; }
  const TemplateCommands& commands() const { return commands_; }
  const WindowCounts& windows() const { return windows_; }
  /// Names of the frames that it defines, in double quotes.
  const std::vector<std::string>& frames() const { return frames_; }

 private:
  const Template& plantilla_;
  TemplateCommands commands_;
  WindowCounts windows_;
  std::vector<std::string> frames_;
};

/// Warnings and notes about a template and its table, whatever the typology.
Findings templateFindings(const CheckedTemplate& checked);

/// Warnings and notes about what only a template and a typology together show: names that are
/// defined nowhere, façades without windows, plans and storeys of another building, glazing that
/// will differ from what was asked. Without `hasPlan`, numbers are missing that a plan needs, and
/// nothing is said of it.
Findings fitFindings(const CheckedTemplate& checked, const TypologyRecord& typology, bool hasPlan,
                     Wanted wanted = Wanted::kFindings);
/// Its two parts: what the names of a typology show, and what its numbers do.
Findings nameFindings(const CheckedTemplate& checked, const TypologyRecord& typology,
                      Wanted wanted);
Findings planFindings(const CheckedTemplate& checked, const TypologyRecord& typology,
                      const Plan& plan, Wanted wanted);

/// Whether a finding is that a name is not read as it is written.
bool isMisreadName(const Finding& finding);
/// Of a name that was not read as it is written, what is said of the name read is no news.
void dropNamesThatWereMisread(Findings& remarks);

/// The codes of all that a check has to say of a typology with this template besides errors: how
/// the file is written, and how the two fit. `hasPlan`: see fitFindings.
std::set<Code> remarkCodes(const CheckedTemplate& checked, const TypologyRecord& typology,
                           bool hasPlan = true);
