#pragma once

#include <map>
#include <memory>
#include <string>

#include "core/output_lines.h"
#include "generator/building_forms.h"
#include "report/form_reader.h"
#include "stock/outcome.h"
#include "stock/shared_inputs.h"

namespace stock {

/// The buildings that one worker makes of a template, one after the other. What they have in common
/// is found out once.
class TemplateBuildings {
 public:
  explicit TemplateBuildings(std::shared_ptr<const SharedTemplate> shared)
      : shared_(std::move(shared)), forms_(*shared_->plantilla) {}

  /// Generates the building of a typology, or ends the run.
  void generate(const TypologyRecord& typology);

  // Of the building generated last.
  BuildingMeasures measuresOf(const TypologyRecord& typology);
  /// Also of one that was refused for something else; null where its numbers have none.
  const Plan* plan() const { return forms_.plan(); }
  void copyTo(std::string& text) const;

 private:
  report::GeneratedBuilding read(const TypologyRecord& typology, const Plan& plan);

  std::shared_ptr<const SharedTemplate> shared_;
  BuildingForms forms_;
  std::map<std::shared_ptr<const BuildingForm>, report::FormReader> readers_;
  // The building: the pieces of its form, or all its lines where it has none.
  std::shared_ptr<const BuildingForm> form_;
  WrittenPieces pieces_;
  OutputLines lines_;
};

}  // namespace stock
