#pragma once

#include <memory>
#include <optional>
#include <string>

#include "check/checked_template.h"
#include "core/fault.h"
#include "generator/template.h"
#include "report/original_building.h"
#include "stock/note_codes.h"

namespace stock {

/// A template with its table and library, read once; or what a run says of them.
struct SharedTemplate {
  std::optional<Fault> missing;                              // asked for before the typology
  std::optional<Fault> missingLibrary;                       // and behind it
  std::optional<Fault> fault;                                // of reading them
  std::unique_ptr<const Template> plantilla;                 // null with any of these
  std::unique_ptr<const report::OriginalBuilding> original;  // of it
  std::unique_ptr<const CheckedTemplate> checked;            // likewise
  NoteCodes notes;                                           // about it, whatever the typology
  std::string fingerprint;
};

/// A file of texts, or a typology of its own.
struct SharedText {
  std::optional<Fault> fault;
  std::string bytes;
  std::string fingerprint;
};

}  // namespace stock
