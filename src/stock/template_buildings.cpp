#include "stock/template_buildings.h"

#include "report/generated_building.h"

namespace stock {

void TemplateBuildings::generate(const TypologyRecord& typology) {
  form_ = forms_.generate(typology, pieces_, lines_);
}

report::GeneratedBuilding TemplateBuildings::read(const TypologyRecord& typology,
                                                  const Plan& plan) {
  if (form_ == nullptr) {
    return report::readBuilding(lines_, typology.textoTipologia(), *shared_->original, plan,
                                report::Names::kLeftOut);
  }
  if (!readers_.contains(form_)) {
    std::erase_if(readers_, [&](const auto& reader) { return !forms_.keeps(*reader.first); });
  }
  return readers_.try_emplace(form_, form_, *shared_->original).first->second.read(pieces_, plan);
}

BuildingMeasures TemplateBuildings::measuresOf(const TypologyRecord& typology) {
  const Plan& plan = *forms_.plan();  // a building that was generated has one
  const report::GeneratedBuilding building = read(typology, plan);
  return {typology.tipo, report::measure(building, plan,
                                         {typology.porcentajeFachada, typology.porcentajePatio,
                                          static_cast<double>(typology.orientacion)})};
}

void TemplateBuildings::copyTo(std::string& text) const {
  if (form_ == nullptr) {
    lines_.copyTo(text);
  } else {
    form_->copyTo(pieces_, text);
  }
}

}  // namespace stock
