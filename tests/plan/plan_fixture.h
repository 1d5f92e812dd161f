#pragma once

#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "plan/plan.h"

void PrintTo(const Vertex& vertex, std::ostream* out);

using Family = PlanResult (*)(const PlanData&);

/// The message of a failed plan, decoded, or kDrawn for one that passed its checks.
std::string messageOf(const PlanResult& result);
inline constexpr std::string_view kDrawn = "(drawn)";

/// The plan of `data`; the test fails where a check does.
Plan drawn(const PlanResult& result);

/// Numbers that every family accepts.
PlanData anyFamily(int tipo);

/// Whether the outlines are a block, four dwellings and then `last`. (A house has but one.)
void expectRoles(const Plan& plan, Role last);

/// L = 12, D = 24, dF = 8, dH = 3.
void expectQuartersOf12By24(const Plan& plan);

/// A limit of one plan number. The limit itself fails, so does the nearest 32-bit real on the side
/// away from the valid one, and the nearest on the valid side gives `inside`.
enum class Valid { kAbove, kBelow };
struct LimitCase {
  const char* why;
  float PlanData::*number;
  float limit;
  Valid valid;
  PlanData others;  // a plan that the rest of the checks accept
  const char* message;
  std::string_view inside = kDrawn;
};
void expectLimits(Family family, std::span<const LimitCase> limits);

/// A plan with one fault or more, and the message that it gives.
struct FaultCase {
  const char* why;
  PlanData data;
  const char* message;
};
void expectFaults(Family family, std::span<const FaultCase> faults);

/// All the keywords that the faults of `data` blame, in order.
std::vector<PlanKeyword> blamed(const PlanResult& result);
