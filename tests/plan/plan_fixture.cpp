#include "plan/plan_fixture.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/cp1252.h"

void PrintTo(const Vertex& vertex, std::ostream* out) {
  *out << "(" << vertex.x << ", " << vertex.y << ")";
}

std::string messageOf(const PlanResult& result) {
  const auto* failure = std::get_if<PlanFailure>(&result);
  return failure != nullptr ? cp1252::toUtf8(failure->first().message) : std::string(kDrawn);
}

Plan drawn(const PlanResult& result) {
  EXPECT_EQ(kDrawn, messageOf(result));
  const auto* plan = std::get_if<Plan>(&result);
  if (plan != nullptr) return *plan;
  Plan nothing;
  nothing.outlines.resize(6);
  return nothing;
}

void expectLimits(Family family, std::span<const LimitCase> limits) {
  for (const LimitCase& limit : limits) {
    SCOPED_TRACE(limit.why);
    const auto messageFor = [&](float value) {
      PlanData data = limit.others;
      data.*limit.number = value;
      return messageOf(family(data));
    };
    const float upwards = std::nextafterf(limit.limit, INFINITY);
    const float downwards = std::nextafterf(limit.limit, -INFINITY);
    const bool above = limit.valid == Valid::kAbove;
    EXPECT_EQ(limit.message, messageFor(limit.limit)) << "the limit";
    EXPECT_EQ(limit.message, messageFor(above ? downwards : upwards)) << "just outside";
    EXPECT_EQ(limit.inside, messageFor(above ? upwards : downwards)) << "just inside";
  }
}

void expectFaults(Family family, std::span<const FaultCase> faults) {
  for (const FaultCase& fault : faults) {
    SCOPED_TRACE(fault.why);
    EXPECT_EQ(fault.message, messageOf(family(fault.data)));
  }
}

PlanData anyFamily(int tipo) {
  return {.tipo = tipo,
          .areaPlanta = 632,
          .areaPatio = 48,
          .areaEscalera = 200,
          .longitudFachada = 44,
          .profundidadPatio = 2.5F,
          .profundidadEscalera = 10};
}

void expectRoles(const Plan& plan, Role last) {
  ASSERT_EQ(6U, plan.outlines.size());
  EXPECT_EQ(Role::kBlock, plan.outlines[0].role);
  for (std::size_t i = 1; i <= 4; ++i) EXPECT_EQ(Role::kDwelling, plan.outlines[i].role) << i;
  EXPECT_EQ(last, plan.outlines[5].role);
}

std::vector<PlanKeyword> blamed(const PlanResult& result) {
  std::vector<PlanKeyword> keywords;
  if (const auto* failure = std::get_if<PlanFailure>(&result)) {
    for (const PlanFault& fault : failure->faults) keywords.push_back(fault.keywords.front());
  }
  return keywords;
}

void expectQuartersOf12By24(const Plan& plan) {
  ASSERT_EQ(6U, plan.outlines.size());
  EXPECT_EQ((Vertices{{0, 0}, {12, 0}, {12, 24}, {0, 24}}), plan.outlines[0].vertices);
  EXPECT_EQ(
      (Vertices{{0, 0}, {2, 0}, {4, 0}, {6, 0}, {6, 8}, {3, 8}, {3, 12}, {0, 12}, {0, 8}, {0, 4}}),
      plan.outlines[1].vertices);
  EXPECT_EQ(
      (Vertices{
          {6, 0}, {8, 0}, {10, 0}, {12, 0}, {12, 4}, {12, 8}, {12, 12}, {9, 12}, {9, 8}, {6, 8}}),
      plan.outlines[2].vertices);
  EXPECT_EQ((Vertices{{9, 12},
                      {12, 12},
                      {12, 16},
                      {12, 20},
                      {12, 24},
                      {10, 24},
                      {8, 24},
                      {6, 24},
                      {6, 16},
                      {9, 16}}),
            plan.outlines[3].vertices);
  EXPECT_EQ((Vertices{{0, 12},
                      {3, 12},
                      {3, 16},
                      {6, 16},
                      {6, 24},
                      {4, 24},
                      {2, 24},
                      {0, 24},
                      {0, 20},
                      {0, 16}}),
            plan.outlines[4].vertices);
  EXPECT_EQ((Vertices{{3, 8}, {6, 8}, {9, 8}, {9, 12}, {9, 16}, {6, 16}, {3, 16}, {3, 12}}),
            plan.outlines[5].vertices);
}
