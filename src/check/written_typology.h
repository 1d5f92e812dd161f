#pragma once

#include <memory>
#include <set>
#include <span>
#include <string>

#include "check/finding.h"
#include "plan/plan.h"
#include "typology/typology_record.h"

/// The second reading of a typology file. A run reads it by search: the first occurrence of a
/// keyword counts, wherever it stands. A person reads lines. Wherever the two readings differ, a
/// finding says so: what is written, what the run takes, how to mend it.
///
/// `record` is what the run's reading gave (of a file with errors: what could be read). No error is
/// found here, only warnings and notes, in the order of their places. Never ends a run.
///
/// `framesOfTemplate`: names, in double quotes, of the frames that the template defines, where one
/// is known. A frame of such a name that the typology lacks is let be: what there is to say of it
/// is said of the two files together.
Findings compareReadings(const TypologyRecord& record,
                         std::span<const std::string> framesOfTemplate = {});

/// The same of typologies that are written alike: no two of their texts differ in anything but the
/// digits of numbers in VIVIENDA. How they are written is looked at once. One thread.
class AlikeReadings {
 public:
  /// `first`: one of them.
  AlikeReadings(const TypologyRecord& first, std::span<const std::string> framesOfTemplate);
  AlikeReadings(AlikeReadings&&) noexcept;
  AlikeReadings& operator=(AlikeReadings&&) noexcept;
  ~AlikeReadings();

  /// Whether a run finds each keyword of VIVIENDA where it is written, and no other: the values of
  /// one such text are read as those of any other.
  bool areAsWritten() const;
  /// What the way they are written shows. Percentages are those of the first.
  const Findings& ofWriting() const;
  /// What the values of one of them show, percentages apart. `plan`: that of its numbers, null
  /// where they have none.
  std::set<Code> ofValues(const TypologyRecord& alike, const Plan* plan);

 private:
  struct First;
  std::unique_ptr<First> first_;
};
