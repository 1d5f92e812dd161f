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
  bar.setPlace({0, 0, 202, 15});  // an edge of one pixel around 200
  const auto colourAt = [&](int x) { return bar.grab().toImage().pixelColor(x, 7); };
  bar.SetPosition(50);
  EXPECT_EQ(QColor(160, 190, 202), colourAt(0));
  EXPECT_EQ(blue, colourAt(1));
  EXPECT_EQ(blue, colourAt(100));
  EXPECT_EQ(QColor(Qt::white), colourAt(101));
  EXPECT_EQ(QColor(Qt::white), colourAt(200));
  EXPECT_EQ(QColor(160, 190, 202), colourAt(201));
  bar.SetPosition(0);
  EXPECT_EQ(QColor(Qt::white), colourAt(1));
  bar.SetPosition(100);
  EXPECT_EQ(blue, colourAt(200));
}
