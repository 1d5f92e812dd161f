#pragma once

#include <span>
#include <string_view>

#include "core/fault.h"
#include "plan/plan.h"
#include "typology/typology_record.h"

/// A plan number that is measured: its keyword, and where a typology and the data of a plan hold
/// it.
struct PlanNumber {
  PlanKeyword keyword;
  bool ofEveryFamily;
  std::string_view name;
  float TypologyRecord::*inTypology;
  float PlanData::*inPlan;
};

/// All but TIPO.
std::span<const PlanNumber> planNumbers();

/// The keyword of VIVIENDA that a plan number is the value of.
std::string_view nameOf(PlanKeyword keyword);

/// The plan numbers of a typology.
PlanData planDataOf(const TypologyRecord& typology);

/// A limit that they break as the fault of a run, at the keyword to blame.
Fault faultIn(const TypologyRecord& typology, const PlanFault& broken);
