#include "app/desktop/forms.h"

#include <gtest/gtest.h>

#include <ostream>

void PrintTo(const FormPlace& place, std::ostream* out) {
  *out << "(" << place.left << ", " << place.top << ") " << place.width << " x " << place.height;
}

namespace {

constexpr int kScreens[] = {96, 120, 144, 168, 192, 240, 288};

/// Everything on the progress form, from top to bottom.
std::vector<FormPlace> progressFormAt(int dpi) {
  std::vector<FormPlace> places = {at(progress_form::kLogo, progress_form::kDpi, dpi)};
  for (std::size_t i = 0; i < std::size(progress_form::kStages); ++i) {
    places.push_back(progress_form::stagePlace(i, dpi));
  }
  places.push_back(at(progress_form::kBar, progress_form::kDpi, dpi));
  return places;
}

}  // namespace

TEST(Forms, PixelsOfTheDesignBecomeTheNearestOnTheScreen) {
  const struct {
    int design, designDpi, dpi, pixels;
  } rows[] = {{545, 144, 144, 545}, {545, 144, 96, 363}, {434, 144, 96, 289}, {434, 144, 192, 579},
              {23, 144, 96, 15},    {18, 144, 120, 15},  {532, 96, 144, 798}, {0, 144, 96, 0}};
  for (const auto& row : rows) {
    EXPECT_EQ(row.pixels, toPixels(row.design, row.designDpi, row.dpi))
        << row.design << " at " << row.dpi;
  }
}

TEST(Forms, TheProgressFormIsAsDrawnAtItsOwnScale) {
  const std::vector<FormPlace> drawn = {{23, 21, 492, 159}, {69, 200, 446, 28}, {69, 246, 446, 28},
                                        {69, 292, 446, 28}, {69, 338, 446, 28}, {23, 385, 492, 23}};
  EXPECT_EQ(drawn, progressFormAt(144));
}

TEST(Forms, TheStagesStandAtEqualDistancesOnEveryScreen) {
  for (const int dpi : kScreens) {
    SCOPED_TRACE(dpi);
    const int pitch = progress_form::stagePlace(1, dpi).top - progress_form::stagePlace(0, dpi).top;
    for (std::size_t i = 1; i < std::size(progress_form::kStages); ++i) {
      EXPECT_EQ(pitch,
                progress_form::stagePlace(i, dpi).top - progress_form::stagePlace(i - 1, dpi).top);
    }
  }
}

TEST(Forms, NothingOnTheProgressFormOverlapsOrLeavesIt) {
  for (const int dpi : kScreens) {
    SCOPED_TRACE(dpi);
    const int width = toPixels(progress_form::kClient.width, progress_form::kDpi, dpi);
    const int height = toPixels(progress_form::kClient.height, progress_form::kDpi, dpi);
    int bottom = 0;
    for (const FormPlace& place : progressFormAt(dpi)) {
      EXPECT_LE(bottom, place.top);
      EXPECT_LE(place.left + place.width, width);
      bottom = place.top + place.height;
    }
    EXPECT_LE(bottom, height);
  }
}

TEST(Forms, TheLogosRasterIsTheScreensOwnOrTheNextLarger) {
  const struct {
    int dpi, scale;
  } rows[] = {{48, 100},  {95, 100},  {96, 100},  {97, 150},  {120, 150}, {144, 150},
              {145, 200}, {168, 200}, {192, 200}, {193, 200}, {960, 200}};
  for (const auto& row : rows) EXPECT_EQ(row.scale, progress_form::logoScale(row.dpi)) << row.dpi;
}

TEST(Forms, TheInputFormsButtonsStandBesideEachOtherUnderItsEdit) {
  using namespace input_form;
  EXPECT_EQ(kLabelPlace.top, kEditPlace.top);
  EXPECT_EQ(kLabelPlace.height, kEditPlace.height) << "the label is centred on its edit";
  EXPECT_LT(kLabelPlace.left + kLabelPlace.width, kEditPlace.left);
  EXPECT_LT(kEditPlace.top + kEditPlace.height, kCalculatePlace.top);
  EXPECT_EQ(kCalculatePlace.top, kClosePlace.top);
  EXPECT_LT(kCalculatePlace.left + kCalculatePlace.width, kClosePlace.left);
  EXPECT_LE(kClosePlace.left + kClosePlace.width, kClient.width);
  EXPECT_LE(kClosePlace.top + kClosePlace.height, kClient.height);
}
