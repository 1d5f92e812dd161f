#include "stock/row_forms.h"

#include <utility>

#include "stock/hash.h"

namespace stock {

RowForm::RowForm(std::shared_ptr<const SharedTemplate> plantilla,
                 std::shared_ptr<const SharedText> texts, const TypologyRecord& read)
    : plantilla_(std::move(plantilla)),
      texts_(std::move(texts)),
      first_(read),
      alike_(*plantilla_->checked, first_) {}

bool RowForm::isOf(const std::shared_ptr<const SharedTemplate>& plantilla,
                   const std::shared_ptr<const SharedText>& texts) const {
  return plantilla_ == plantilla && texts_ == texts;
}

std::optional<TypologyRecord> RowForm::read(const ListRow& row, SourceText tip) const {
  std::optional<TypologyRecord> typology(std::in_place, first_, std::move(tip));
  if (!setNumbers(row, *typology)) typology.reset();
  return typology;
}

RowForm* RowForms::find(const RowTypology& typology,
                        const std::shared_ptr<const SharedTemplate>& plantilla,
                        const std::shared_ptr<const SharedText>& texts) {
  const auto found = forms_.find(typology.form);
  if (found == forms_.end() || !found->second.isOf(plantilla, texts)) return nullptr;
  return &found->second;
}

void RowForms::add(const RowTypology& typology, RowForm form) {
  const std::size_t size = typology.bytes.size();
  if (!form.tellsOfOthers() || size > kMostBytes) return;
  if (forms_.size() >= kMost || bytes_ + size > kMostBytes) {
    forms_.clear();
    bytes_ = 0;
  }
  bytes_ += size;
  forms_.insert_or_assign(typology.form, std::move(form));
}

bool RowForms::metBefore(const RowTypology& typology) {
  constexpr std::size_t kMostMet = 4096;
  if (met_.size() >= kMostMet) met_.clear();
  return !met_.insert(hashOf(typology.form)).second;
}

}  // namespace stock
