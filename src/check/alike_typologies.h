#pragma once

#include <set>

#include "check/checked_template.h"
#include "check/written_typology.h"
#include "plan/plan.h"
#include "typology/typology_record.h"

/// Typologies of one template whose texts differ in nothing but the digits of numbers in VIVIENDA;
/// those that are asked about have finite ones. What there is to say of their names, and of how
/// they are written, is found out for the first of them. One thread.
class AlikeTypologies {
 public:
  /// `first`: one of them, which a run accepts. `checked` must outlive this object.
  AlikeTypologies(const CheckedTemplate& checked, const TypologyRecord& first);

  /// Whether nothing but the values tells one of them from another. Where it is false, ask no more.
  bool differInValues() const { return differInValues_; }
  /// See remarkCodes. `plan`: that of its numbers, null where they have none.
  std::set<Code> remarkCodesOf(const TypologyRecord& alike, const Plan* plan);

 private:
  const CheckedTemplate* checked_;
  AlikeReadings readings_;
  std::set<Code> ofAll_;
  bool differInValues_;
};
