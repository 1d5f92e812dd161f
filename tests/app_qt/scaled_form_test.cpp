#include <gtest/gtest.h>

#include <QFrame>
#include <QImage>
#include <QPainter>
#include <QPixmap>

#include "app/desktop/forms.h"
#include "app/qt/drawn_form.h"
#include "app/qt/principal.h"
#include "app/qt/progress_bar.h"

// The progress form on a screen of another scale (the variable TEST_SCALE), pixel by pixel.

using namespace progress_form;

namespace {

/// What the form shows, in pixels of the screen.
QImage painted(QWidget& form) {
  const QSizeF pixels = QSizeF(form.size()) * form.devicePixelRatioF();
  QImage image(qRound(pixels.width()), qRound(pixels.height()), QImage::Format_RGB32);
  image.fill(Qt::magenta);
  image.setDevicePixelRatio(form.devicePixelRatioF());
  form.render(&image);
  image.setDevicePixelRatio(1);
  return image;
}

/// The rectangle of that colour, which holds no other; null where there is none.
QRect rectangleOf(const QImage& image, const QColor& colour, const QRect& part) {
  QRect found;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) {
      if (image.pixelColor(x, y) == colour) found |= QRect(x, y, 1, 1);
    }
  }
  return found;
}

}  // namespace

TEST(ScaledForm, EverythingStandsOnThePixelsOfTheScreen) {
  TPrincipal form(nullptr, "", "", "", "");
  const int dpi = dpiOf(form);
  ASSERT_NE(96, dpi) << "no scale of its own";
  form.pbBarra->SetPosition(100);
  const QImage image = painted(form);
  const QRect all = image.rect();
  if (dpi == kDpi) {
    EXPECT_EQ(QSize(kClient.width, kClient.height), image.size());
  }

  EXPECT_TRUE(rectangleOf(image, Qt::magenta, all).isNull()) << "left unpainted";
  for (const QPoint corner : {all.topLeft(), all.topRight(), all.bottomLeft(), all.bottomRight()}) {
    EXPECT_EQ(QColor(Qt::white), image.pixelColor(corner));
  }

  const QRect bar = toQt(at(kBar, kDpi, dpi));
  const QRect below(0, bar.top() - 4, all.width(), all.height() - bar.top() + 4);
  EXPECT_EQ(bar, rectangleOf(image, toQt(kBarEdge), below));
  const int edge = std::max(1, dpi / 96);
  EXPECT_EQ(bar.adjusted(edge, edge, -edge, -edge), rectangleOf(image, toQt(kBarFilled), below));

  const PlacedLabel* const labels[] = {form.Label1, form.Label2, form.Label3, form.Label4};
  for (std::size_t i = 0; i < std::size(labels); ++i) {
    SCOPED_TRACE(labels[i]->text().toStdString());
    const FormPlace place = stagePlace(i, dpi);
    EXPECT_EQ(place, labels[i]->place());
    const QRect text = rectangleOf(image, Qt::black, toQt(place));
    EXPECT_FALSE(text.isNull()) << "nothing in its place";
    EXPECT_EQ(text,
              rectangleOf(image, Qt::black, QRect(0, place.top - 4, all.width(), place.height + 8)))
        << "beyond its place";
  }
}

TEST(ScaledForm, TheLogoIsItsRasterOfThatScale) {
  TPrincipal form(nullptr, "", "", "", "");
  const int dpi = dpiOf(form);
  const FormPlace place = at(kLogo, kDpi, dpi);
  if (dpi != 144 && dpi != 192) {
    EXPECT_GT(form.Image1->pixmap().width(), place.width) << "shrunk rather than grown";
    return;
  }
  EXPECT_EQ(QSize(place.width, place.height), form.Image1->pixmap().size());
  EXPECT_EQ(form.Image1->pixmap().toImage().convertToFormat(QImage::Format_RGB32),
            painted(form).copy(toQt(place)));
}
