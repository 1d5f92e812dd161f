#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "check/alike_typologies.h"
#include "stock/row_typology.h"
#include "stock/shared_inputs.h"
#include "typology/typology_record.h"

namespace stock {

/// What rows have in common that say the same but for the digits of their numbers, as most rows of
/// a list do: which names were read, and what there is to say of how they are written.
class RowForm {
 public:
  /// `read`: what a run read of the typology of the first such row.
  RowForm(std::shared_ptr<const SharedTemplate> plantilla, std::shared_ptr<const SharedText> texts,
          const TypologyRecord& read);

  /// Whether it is a form for rows with these inputs.
  bool isOf(const std::shared_ptr<const SharedTemplate>& plantilla,
            const std::shared_ptr<const SharedText>& texts) const;
  /// What a run reads of another such row, whose typology is `tip`; nothing where it might refuse
  /// one of the numbers.
  std::optional<TypologyRecord> read(const ListRow& row, SourceText tip) const;
  /// See ::remarkCodes, and AlikeTypologies for `plan`.
  NoteCodes remarkCodesOf(const TypologyRecord& typology, const Plan* plan) {
    return alike_.remarkCodesOf(typology, plan);
  }
  bool tellsOfOthers() const { return alike_.differInValues(); }

 private:
  std::shared_ptr<const SharedTemplate> plantilla_;
  std::shared_ptr<const SharedText> texts_;
  TypologyRecord first_;
  AlikeTypologies alike_;
};

/// The forms of the rows that a worker has met lately.
class RowForms {
 public:
  /// Forms that are kept, and bytes of the typologies that they were found in, of which each takes
  /// some ten times as many; above it all are forgotten.
  static constexpr std::size_t kMost = 128;
  static constexpr std::size_t kMostBytes = std::size_t{1} << 20;

  /// That of a row; null where none is known.
  RowForm* find(const RowTypology& typology, const std::shared_ptr<const SharedTemplate>& plantilla,
                const std::shared_ptr<const SharedText>& texts);
  /// Whether another row of that form has been met, so that finding out about it may be worth it.
  bool metBefore(const RowTypology& typology);
  /// Keeps that of a row which a run has read, where it tells anything of others.
  void add(const RowTypology& typology, RowForm form);

 private:
  std::unordered_map<std::string, RowForm> forms_;
  std::size_t bytes_ = 0;
  std::unordered_set<std::uint64_t> met_;  // hashes; one that two forms share costs a little time
};

}  // namespace stock
