#include "check/checked_template.h"

#include "check/written_typology.h"
#include "generator/orientation.h"

namespace {

WindowCounts countWindows(const TableFile& table) {
  WindowCounts counts;
  for (const Surface& surface : table.surfaces) {
    if (surface.kind < 1) continue;
    const int orientation = classifyOrientation(surface.azimuth, surface.tilt);
    if (orientation < 0) continue;
    const bool courtyard = surface.name.find("Med") != std::string_view::npos;
    ++(courtyard ? counts.courtyard : counts.street)[facadeIndex(orientation)];
  }
  return counts;
}

}  // namespace

CheckedTemplate::CheckedTemplate(const Template& plantilla)
    : plantilla_(plantilla),
      commands_(plantilla.building()),
      windows_(countWindows(plantilla.table())) {
  for (const TemplateCommands::Command* frame : commands_.ofType("NAME-FRAME")) {
    frames_.emplace_back(frame->name);
  }
}

std::set<Code> remarkCodes(const CheckedTemplate& checked, const TypologyRecord& typology) {
  std::set<Code> codes;
  for (const Finding& remark : compareReadings(typology, checked.frames())) {
    codes.insert(remark.code);
  }
  for (const Finding& remark : fitFindings(checked, typology, Places::kLeftOut)) {
    codes.insert(remark.code);
  }
  return codes;
}
