#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

#include "plan/plan_fixture.h"

// What holds for every plan of the families that cut a rectangle into dwellings and holes, shown on
// many random ones. (The four wings of kXpala double back along their edges on purpose.)

namespace {

using Random = std::mt19937;

float between(Random& random, double low, double high) {
  return static_cast<float>(low + (high - low) * (static_cast<double>(random()) / 4294967296.0));
}

struct TiledFamily {
  const char* name;
  int tipo;  // one of its numbers
  Family plan;
  PlanData (*sample)(Random&);
  std::size_t edgeCourtyards = 0;
};

/// Numbers inside the limits of every family; most give a plan.
PlanData sampleBlock(Random& random) {
  PlanData data;
  data.longitudFachada = between(random, 15, 60);
  data.areaPlanta = data.longitudFachada * between(random, 8, 60);
  data.areaPatio = between(random, 4, 0.4 * data.areaPlanta);
  data.areaEscalera = between(random, 6, 0.25 * data.areaPlanta);
  data.profundidadPatio = between(random, 2, 0.3 * data.areaPlanta / data.longitudFachada);
  data.profundidadEscalera = between(random, 2, 0.6 * data.areaPlanta / data.longitudFachada);
  return data;
}

PlanData sampleSides(Random& random) {
  PlanData data = sampleBlock(random);
  data.profundidadPatio =
      between(random, 2, 0.95 * (data.areaPlanta + data.areaPatio) / data.longitudFachada);
  return data;
}

const TiledFamily kFamilies[] = {
    {"Row", 10, planRow, sampleBlock},
    {"Courtyard", 13, planCourtyard, sampleBlock},
    {"Stairwell", 23, planStairwell, sampleBlock},
    {"CourtyardsInFacades", 14, planCourtyardsInFacades, sampleBlock, 2},
    {"CourtyardsInSides", 15, planCourtyardsInSides, sampleSides, 2},
};

double signedArea(const Outline& shape) {
  const Vertices& outline = shape.vertices;
  double twice = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Vertex& a = outline[i];
    const Vertex& b = outline[(i + 1) % outline.size()];
    twice += static_cast<double>(a.x) * b.y - static_cast<double>(b.x) * a.y;
  }
  return twice / 2;
}

bool holds(const Outline& shape, double x, double y) {
  const Vertices& outline = shape.vertices;
  bool inside = false;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Vertex& a = outline[i];
    const Vertex& b = outline[(i + 1) % outline.size()];
    if ((a.y > y) == (b.y > y)) continue;
    const double t = (y - a.y) / (static_cast<double>(b.y) - a.y);
    if (x < a.x + t * (static_cast<double>(b.x) - a.x)) inside = !inside;
  }
  return inside;
}

class TiledPlan : public testing::TestWithParam<TiledFamily> {
 protected:
  struct Case {
    PlanData data;
    Plan plan;
    float L, D;
    std::vector<Outline> pieces;  // dwellings, hole or stair, courtyards
  };

  /// Calls `check` with 400 valid plans.
  void forManyPlans(const std::function<void(const Case&)>& check) {
    Random random(45);
    int valid = 0;
    for (int round = 0; round < 8000 && valid < 400 && !HasFailure(); ++round) {
      Case c{.data = GetParam().sample(random), .plan = {}, .L = 0, .D = 0, .pieces = {}};
      c.data.tipo = GetParam().tipo;
      const PlanResult result = GetParam().plan(c.data);
      if (messageOf(result) != kDrawn) continue;
      ++valid;
      SCOPED_TRACE(testing::Message() << "plan " << valid << " of A " << c.data.areaPlanta << ", L "
                                      << c.data.longitudFachada);
      c.plan = std::get<Plan>(result);
      ASSERT_EQ(6U, c.plan.outlines.size());
      c.L = c.plan.outlines[0].vertices[2].x;
      c.D = c.plan.outlines[0].vertices[2].y;
      c.pieces.assign(c.plan.outlines.begin() + 1, c.plan.outlines.end());
      ASSERT_EQ(GetParam().edgeCourtyards, c.plan.edgeCourtyards.size());
      c.pieces.insert(c.pieces.end(), c.plan.edgeCourtyards.begin(), c.plan.edgeCourtyards.end());
      check(c);
    }
    EXPECT_TRUE(HasFailure() || valid == 400) << "too few valid plans to mean anything: " << valid;
  }

  /// Length of the dwellings' edges for which `lies` holds at both ends.
  static double wallOf(const Case& c, const std::function<bool(const Vertex&)>& lies) {
    double sum = 0;
    for (std::size_t k = 1; k <= 4; ++k) {
      const Vertices& dwelling = c.plan.outlines[k].vertices;
      for (std::size_t i = 0; i < dwelling.size(); ++i) {
        const Vertex& a = dwelling[i];
        const Vertex& b = dwelling[(i + 1) % dwelling.size()];
        if (lies(a) && lies(b)) sum += std::hypot(b.x - a.x, b.y - a.y);
      }
    }
    return sum;
  }
};

}  // namespace

TEST_P(TiledPlan, OutlinesRunCounterClockwise) {
  forManyPlans([](const Case& c) {
    for (const Outline& outline : c.plan.outlines) EXPECT_GT(signedArea(outline), 0);
    for (const Outline& outline : c.plan.edgeCourtyards) EXPECT_GT(signedArea(outline), 0);
  });
}

TEST_P(TiledPlan, PiecesAddUpToTheBlock) {
  forManyPlans([](const Case& c) {
    double sum = 0;
    for (const Outline& piece : c.pieces) sum += signedArea(piece);
    const double block = static_cast<double>(c.L) * c.D;
    EXPECT_NEAR(block, sum, 1e-5 * block);
  });
}

TEST_P(TiledPlan, EveryPointLiesInExactlyOnePiece) {
  Random points(46);
  forManyPlans([&](const Case& c) {
    for (int i = 0; i < 50; ++i) {
      const double x = between(points, 0.001, c.L - 0.001);
      const double y = between(points, 0.001, c.D - 0.001);
      const auto owners =
          std::ranges::count_if(c.pieces, [&](const Outline& piece) { return holds(piece, x, y); });
      EXPECT_EQ(1, owners) << x << ", " << y;
    }
  });
}

TEST_P(TiledPlan, EdgeCourtyardsShareTheCourtyardAreaAndTouchTheEdge) {
  forManyPlans([](const Case& c) {
    for (const Outline& yard : c.plan.edgeCourtyards) {
      EXPECT_EQ(Role::kCourtyard, yard.role);
      EXPECT_NEAR(c.data.areaPatio / 2, signedArea(yard), 1e-4 * c.data.areaPatio);
      EXPECT_TRUE(std::ranges::any_of(yard.vertices, [&](const Vertex& v) {
        return v.x == 0 || v.x == c.L || v.y == 0 || v.y == c.D;
      }));
    }
  });
}

TEST_P(TiledPlan, BlockIsAsLargeAsTheTypologySays) {
  // The stated area is that of the dwellings and the stair; a courtyard comes on top.
  const bool addsCourtyard = GetParam().plan != planRow && GetParam().plan != planStairwell;
  forManyPlans([&](const Case& c) {
    const double stated = static_cast<double>(c.data.areaPlanta) +
                          (addsCourtyard ? static_cast<double>(c.data.areaPatio) : 0.0);
    EXPECT_NEAR(stated, static_cast<double>(c.L) * c.D, 1e-5 * stated);
  });
}

TEST_P(TiledPlan, FacadeAreasAreThoseOfItsStreetWallsOnThreeStoreys) {
  const bool endsInStair = GetParam().plan == planRow;
  forManyPlans([&](const Case& c) {
    const double front = wallOf(c, [](const Vertex& v) { return v.y == 0; });
    const double back = wallOf(c, [&](const Vertex& v) { return v.y == c.D; });
    const double left = wallOf(c, [](const Vertex& v) { return v.x == 0; });
    const double right = endsInStair ? c.D : wallOf(c, [&](const Vertex& v) { return v.x == c.L; });
    const auto& areas = c.plan.superficieFachada;
    EXPECT_NEAR(9 * front, areas[kSouth], 1e-4 * c.L);
    EXPECT_NEAR(9 * right, areas[kEast], 1e-4 * c.D);
    EXPECT_NEAR(9 * back, areas[kNorth], 1e-4 * c.L);
    EXPECT_NEAR(9 * left, areas[kWest], 1e-4 * c.D);
  });
}

TEST_P(TiledPlan, CourtyardAreasAreThoseOfTheWallsAroundTheCourtyards) {
  // The hole of a courtyard block, the stair of a row, two courtyards; a stair-well has no windows.
  const Family plan = GetParam().plan;
  forManyPlans([&](const Case& c) {
    std::vector<Vertices> yards;
    for (const Outline& piece : c.pieces) {
      if (piece.role == Role::kCourtyard) yards.push_back(piece.vertices);
    }
    double along = 0;   // of the walls that face front or back
    double across = 0;  // of those that face a side
    for (const Vertices& yard : yards) {
      for (std::size_t i = 0; i < yard.size(); ++i) {
        const Vertex& a = yard[i];
        const Vertex& b = yard[(i + 1) % yard.size()];
        // An edge on the street is the courtyard's open side.
        const bool open =
            (a.x == b.x && (a.x == 0 || a.x == c.L)) || (a.y == b.y && (a.y == 0 || a.y == c.D));
        if (open) continue;
        along += std::abs(b.x - a.x);
        across += std::abs(b.y - a.y);
      }
    }
    if (plan == planRow) along = 2.0 * (c.L - c.plan.outlines[5].vertices[0].x);
    const auto& areas = c.plan.superficiePatio;
    EXPECT_NEAR(9 * along / 2, areas[kSouth], 1e-4 * c.L);
    EXPECT_NEAR(9 * across / 2, areas[kEast], 1e-4 * c.D);
    EXPECT_EQ(areas[kSouth], areas[kNorth]);
    EXPECT_EQ(areas[kEast], areas[kWest]);
  });
}

INSTANTIATE_TEST_SUITE_P(Families, TiledPlan, testing::ValuesIn(kFamilies),
                         [](const auto& family) { return std::string(family.param.name); });
