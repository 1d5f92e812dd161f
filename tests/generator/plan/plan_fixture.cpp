#include "generator/plan/plan_fixture.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/cp1252.h"

bool operator==(const Vertex& a, const Vertex& b) { return a.x == b.x && a.y == b.y; }

void PrintTo(const Vertex& vertex, std::ostream* out) {
  *out << "(" << vertex.x << ", " << vertex.y << ")";
}

std::string messageOf(const PlanResult& result) {
  const auto* failure = std::get_if<PlanFailure>(&result);
  return failure != nullptr ? cp1252::toUtf8(failure->message) : std::string(kDrawn);
}

Plan drawn(const PlanResult& result) {
  EXPECT_EQ(kDrawn, messageOf(result));
  const auto* plan = std::get_if<Plan>(&result);
  return plan != nullptr ? *plan : Plan{.outlines = std::vector<Outline>(6)};
}

void expectLimits(Family family, std::span<const Limit> limits) {
  for (const Limit& limit : limits) {
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

void expectFaults(Family family, std::span<const Fault> faults) {
  for (const Fault& fault : faults) {
    SCOPED_TRACE(fault.why);
    EXPECT_EQ(fault.message, messageOf(family(fault.data)));
  }
}
