#include "generator/orientation.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

enum { kNorte = 0, kEste = 2, kSureste = 3, kSur = 4, kSuroeste = 5, kOeste = 6 };

float below(float value) { return std::nextafterf(value, -1000); }
float above(float value) { return std::nextafterf(value, 1000); }

}  // namespace

TEST(ClassifyOrientation, SectorsOfAWallHaveTheseBounds) {
  const struct {
    const char* why;
    float azimuth;
    int expected;
  } cases[] = {
      {"due north", 0, kNorte},
      {"45 is north: NORESTE never comes", 45, kNorte},
      {"just below 60", below(60), kNorte},
      {"60 is east", 60, kEste},
      {"just above 60", above(60), kEste},
      {"due east", 90, kEste},
      {"just below 111", below(111), kEste},
      {"111 is south-east", 111, kSureste},
      {"just above 111", above(111), kSureste},
      {"just below 162", below(162), kSureste},
      {"162 is south", 162, kSur},
      {"just above 162", above(162), kSur},
      {"due south", 180, kSur},
      {"just below 198", below(198), kSur},
      {"198 is still south", 198, kSur},
      {"just above 198", above(198), kSuroeste},
      {"198.5", 198.5F, kSuroeste},
      {"just below 249", below(249), kSuroeste},
      {"249 is still south-west", 249, kSuroeste},
      {"just above 249", above(249), kOeste},
      {"due west", 270, kOeste},
      {"just below 300", below(300), kOeste},
      {"300 is still west", 300, kOeste},
      {"just above 300", above(300), kNorte},
      {"315 is north: NOROESTE never comes", 315, kNorte},
      {"360", 360, kNorte},
      {"more than a turn", 450, kNorte},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.expected, classifyOrientation(c.azimuth, 90));
  }
}

TEST(ClassifyOrientation, NegativeAzimuthTurnsByAWholeTurnOnce) {
  const struct {
    const char* why;
    float azimuth;
    int expected;
  } cases[] = {
      {"-90 is 270", -90, kOeste},
      {"-180 is 180", -180, kSur},
      {"-0 is not below 0", -0.0F, kNorte},
      {"just below 0 becomes 360", below(0), kNorte},
      {"-60 is 300, still west", -60, kOeste},
      {"just above -60 becomes 300 in 32-bit reals", above(-60), kOeste},
      {"-59.9 is 300.1", -59.9F, kNorte},
      {"-450 becomes -90, and that is north", -450, kNorte},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.expected, classifyOrientation(c.azimuth, 90));
  }
}

TEST(ClassifyOrientation, TiltTellsRoofsAndFloorsFromWalls) {
  const struct {
    const char* why;
    float tilt;
    int expected;
  } cases[] = {
      {"0 is a roof", 0, kFacesUp},
      {"just below 60", below(60), kFacesUp},
      {"60 is a wall", 60, kSur},
      {"just above 60", above(60), kSur},
      {"just below 150", below(150), kSur},
      {"150 is a wall", 150, kSur},
      {"just above 150", above(150), kFacesDown},
      {"180 is a floor", 180, kFacesDown},
      {"just below 210", below(210), kFacesDown},
      {"210 is a wall", 210, kSur},
      {"just above 210", above(210), kSur},
      {"just below 300", below(300), kSur},
      {"300 is a wall", 300, kSur},
      {"just above 300", above(300), kFacesUp},
      {"360 is a roof", 360, kFacesUp},
      {"-90 is 270, a wall", -90, kSur},
      {"-180 is 180, a floor", -180, kFacesDown},
      {"-10 is 350, a roof", -10, kFacesUp},
      {"-60 is 300, a wall", -60, kSur},
      {"just above -60 becomes 300 in 32-bit reals", above(-60), kSur},
      {"-0 is not below 0", -0.0F, kFacesUp},
      {"just below 0 becomes 360", below(0), kFacesUp},
      {"-400 becomes -40, a roof", -400, kFacesUp},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.expected, classifyOrientation(180, c.tilt));
  }
}

TEST(ClassifyOrientation, RoofsAndFloorsAreSoWhateverTheirAzimuth) {
  for (int azimuth = -360; azimuth <= 360; azimuth += 15) {
    SCOPED_TRACE(azimuth);
    EXPECT_EQ(kFacesDown, classifyOrientation(static_cast<float>(azimuth), 180));
    EXPECT_EQ(kFacesUp, classifyOrientation(static_cast<float>(azimuth), 0));
  }
}

TEST(ClassifyOrientation, IsTheIndexOfItsName) {
  EXPECT_EQ("NORTE", kOrientationNames[kNorte]);
  EXPECT_EQ("NORESTE", kOrientationNames[1]);
  EXPECT_EQ("ESTE", kOrientationNames[kEste]);
  EXPECT_EQ("SURESTE", kOrientationNames[kSureste]);
  EXPECT_EQ("SUR", kOrientationNames[kSur]);
  EXPECT_EQ("SUROESTE", kOrientationNames[kSuroeste]);
  EXPECT_EQ("OESTE", kOrientationNames[kOeste]);
  EXPECT_EQ("NOROESTE", kOrientationNames[7]);
}

TEST(FacadeIndex, GivesEveryClassItsFacade) {
  const struct {
    int orientationClass;
    int position;
  } cases[] = {{-2, 3}, {-1, 3}, {0, 2}, {1, 3}, {2, 1}, {3, 0}, {4, 0}, {5, 0}, {6, 3}, {7, 3}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.orientationClass);
    EXPECT_EQ(c.position, static_cast<int>(facadeIndex(c.orientationClass)));
  }
}
