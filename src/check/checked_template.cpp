#include "check/checked_template.h"

#include <algorithm>
#include <iterator>

#include "check/written_typology.h"
#include "generator/orientation.h"
#include "generator/window_emitter.h"

namespace {

WindowCounts countWindows(const TableFile& table) {
  WindowCounts counts;
  for (const Surface& surface : table.surfaces) {
    if (surface.kind < 1) continue;
    const int orientation = classifyOrientation(surface.azimuth, surface.tilt);
    if (orientation < 0) continue;
    const bool courtyard = looksIntoCourtyard(surface.name);
    ++(courtyard ? counts.courtyard : counts.street)[facadeIndex(orientation)];
  }
  return counts;
}

}  // namespace

bool isMisreadName(const Finding& finding) {
  return finding.code == Code::kComillasTipograficas || finding.code == Code::kComillasSinCerrar ||
         finding.code == Code::kNombreVacio || finding.code == Code::kNombreCortado;
}

CheckedTemplate::CheckedTemplate(const Template& plantilla)
    : plantilla_(plantilla),
      commands_(plantilla.building()),
      windows_(countWindows(plantilla.table())) {
  for (const TemplateCommands::Command* frame : commands_.ofType("NAME-FRAME")) {
    frames_.emplace_back(frame->name);
  }
}

void dropNamesThatWereMisread(Findings& remarks) {
  std::set<long> lines;
  for (const Finding& remark : remarks) {
    if (isMisreadName(remark) && remark.place) lines.insert(remark.place->line);
  }
  std::erase_if(remarks, [&](const Finding& remark) {
    return remark.code == Code::kNombreNoDefinido && remark.place &&
           lines.contains(remark.place->line);
  });
}

std::set<Code> remarkCodes(const CheckedTemplate& checked, const TypologyRecord& typology,
                           bool hasPlan) {
  Findings remarks = compareReadings(typology, checked.frames());
  // Which name was misread can only be told by its place.
  const bool misread = std::ranges::any_of(remarks, isMisreadName);
  Findings fit =
      fitFindings(checked, typology, hasPlan, misread ? Wanted::kFindings : Wanted::kCodes);
  std::ranges::move(fit, std::back_inserter(remarks));
  dropNamesThatWereMisread(remarks);
  std::set<Code> codes;
  for (const Finding& remark : remarks) codes.insert(remark.code);
  return codes;
}
