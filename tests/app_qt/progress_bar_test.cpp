#include "app/qt/progress_bar.h"

#include <gtest/gtest.h>

#include <QImage>

TEST(ProgressBar, StartsAtZeroOfHundred) {
  const ProgressBar bar(nullptr);
  EXPECT_EQ(0, bar.GetPosition());
  EXPECT_EQ(0, bar.minimum());
  EXPECT_EQ(100, bar.maximum());
  EXPECT_FALSE(bar.isTextVisible());
}

TEST(ProgressBar, PositionsBeyondTheEndsStopAtThem) {
  const struct {
    int set;
    int position;
  } cases[] = {{37, 37}, {99, 99}, {100, 100}, {101, 100}, {150, 100}, {0, 0}, {-1, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.set);
    ProgressBar bar(nullptr);
    bar.SetPosition(50);
    bar.SetPosition(c.set);
    EXPECT_EQ(c.position, bar.GetPosition());
    EXPECT_EQ(c.position, bar.value());
  }
}

TEST(ProgressBar, IsFilledWithItsBlueOnWhite) {
  const QColor blue(0, 164, 219);
  ProgressBar bar(nullptr);
  bar.resize(200, 15);
  bar.SetPosition(50);
  const QImage image = bar.grab().toImage();
  EXPECT_EQ(blue, image.pixelColor(10, 7));
  EXPECT_EQ(blue, image.pixelColor(90, 7));
  EXPECT_EQ(QColor(Qt::white), image.pixelColor(110, 7));
  EXPECT_EQ(QColor(Qt::white), image.pixelColor(190, 7));
}
