#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/numbers.h"
#include "generator/window_emitter.h"

// sizeWindow: a window's place and size in its bay. Bays are 3 m high.

namespace {

struct SizeCase {
  const char* why;
  float percentage, bayArea, templateHeight;
  WindowSize size;
};

void expectSizes(std::initializer_list<SizeCase> cases) {
  for (const SizeCase& c : cases) {
    SCOPED_TRACE(c.why);
    const WindowSize size = sizeWindow(c.percentage, c.bayArea, c.templateHeight);
    EXPECT_EQ(c.size.x, size.x);
    EXPECT_EQ(c.size.y, size.y);
    EXPECT_EQ(c.size.width, size.width);
    EXPECT_EQ(c.size.height, size.height);
  }
}

}  // namespace

TEST(SizeWindow, IsOnePointTwoHighInTheMiddleOfItsBay) {
  const WindowSize size = sizeWindow(30, 12, 0);
  EXPECT_EQ("0.500000", formatReal(size.x));
  EXPECT_EQ("0.900000", formatReal(size.y));
  EXPECT_EQ("3.000000", formatReal(size.width));
  EXPECT_EQ("1.200000", formatReal(size.height));
}

TEST(SizeWindow, TemplateHeightBelowAStoreyIsNoMatter) {
  for (const float height : {-1.0F, 0.5F, 1.2F, 2.9F, std::nextafterf(3, 0)}) {
    SCOPED_TRACE(height);
    EXPECT_EQ(1.2F, sizeWindow(30, 12, height).height);
    EXPECT_EQ(sizeWindow(30, 12, 0).width, sizeWindow(30, 12, height).width);
  }
}

TEST(SizeWindow, TemplateHeightOfAStoreyAndMoreGivesAStorey) {
  // 50 % of 12 m2, 3 m high: 2 m wide, in the middle of 4 m.
  for (const float height :
       {3.0F, std::nextafterf(3, 4), 3.5F, 4.0F, 100.0F, std::numeric_limits<float>::infinity()}) {
    SCOPED_TRACE(height);
    expectSizes({{"half of the bay", 50, 12, height, {1, 0, 2, 3}}});
  }
}

TEST(SizeWindow, WiderThanItsBayIsCutToTheBayAndGrowsInHeight) {
  expectSizes({
      {"50 % of 12 m2 on 4 m: 1.5 m high", 50, 12, 0, {0, 0.75F, 4, 1.5F}},
      {"75 %: 2.25 m", 75, 12, 0, {0, 0.375F, 4, 2.25F}},
      {"the whole bay", 100, 12, 0, {0, 0, 4, 3}},
  });
}

TEST(SizeWindow, NeverGrowsBeyondTheStorey) {
  expectSizes({
      {"more than the bay", 150, 12, 0, {0, 0, 4, 3}},
      {"from a tall template", 150, 12, 3.5F, {0, 0, 4, 3}},
      {"beyond any number", std::numeric_limits<float>::infinity(), 12, 0, {0, 0, 4, 3}},
  });
}

TEST(SizeWindow, IsComputedIn32BitReals) {
  // Each differs in its six decimals from the same formulas in double.
  expectSizes({
      {"1.966666 wide, not 1.966667",
       14,
       0x1.0db6dcp+4F,
       0,
       {0x1.d3813ap+0F, 0x1.ccccccp-1F, 0x1.f77774p+0F, 0x1.333334p+0F}},
      {"2.671428 wide, not 2.671429",
       17,
       0x1.2db6dcp+4F,
       0,
       {0x1.cea0eep+0F, 0x1.ccccccp-1F, 0x1.55f15ep+1F, 0x1.333334p+0F}},
      {"cut: 4.619048 wide, not 4.619047",
       41,
       0x1.bb6db6p+3F,
       0,
       {0, 0x1.c51ebap-1F, 0x1.279e7ap+2F, 0x1.3ae146p+0F}},
      {"tall: 1.741428 wide, not 1.741429",
       69,
       0x1.e4924ap+2F,
       3.5F,
       {0x1.909444p-2F, 0, 0x1.bdce42p+0F, 3}},
  });
}

TEST(SizeWindow, MultipliesPercentageByAreaBeforeTheHundredth) {
  // 26 x 0.01 first would give 4.519048.
  EXPECT_EQ("4.519047", formatReal(sizeWindow(26, 0x1.4db6dcp+4F, 0).width));
}

TEST(SizeWindow, OfNoAreaHasNoWidth) {
  expectSizes({{"0 % from a tall template", 0, 12, 3, {2, 0, 0, 3}}});
  EXPECT_EQ("-0.000000", formatReal(sizeWindow(-0.0F, 12, 3).width));
}

TEST(SizeWindow, OfATinyNegativeAreaShowsItsSign) {
  EXPECT_EQ("-0.000000", formatReal(sizeWindow(-0.000001F, 12, 3).width));
}
