#pragma once

#include <QColor>
#include <QFont>
#include <QLabel>
#include <QRect>
#include <QString>
#include <string_view>

#include "app/desktop/forms.h"

/// From the description of the forms (app/desktop/forms.h) to the framework's types.

QString toQt(std::string_view utf8);
QColor toQt(Colour colour);
QRect toQt(const FormPlace& place);
/// A font of a form that is designed for `designDpi`.
QFont toQt(const FormFont& font, int designDpi);
/// `font` with its letters condensed as far as `text` needs to be at most `width` wide: those of a
/// stand-in may be wider, and a caption is never to be cut off.
QFont fitted(QFont font, const QString& text, int width);

/// The framework counts 96 dots to the inch and scales them for the screen by a ratio, often not a
/// whole one, so that its pixels do not meet the screen's. What has a place in the screen's pixels
/// is a widget that covers it and paints in them.

/// The dots to the inch that the form's design is to be turned into: 96 at 100 %, 144 at 150 %.
int dpiOf(const QWidget& widget);

/// Lets `widget`, a child of the window's client area or of what fills it, cover `place`, which is
/// in pixels of the screen.
void cover(QWidget& widget, const FormPlace& place);

class QPainter;
/// From here on `painter`, which paints `widget`, counts pixels of the screen from the top left of
/// the window's client area.
void paintInPixelsOfTheScreen(QPainter& painter, const QWidget& widget);

/// A widget of the framework's at a place in pixels of the screen.
template <typename Widget>
class Placed : public Widget {
 public:
  using Widget::Widget;
  void setPlace(const FormPlace& place) {
    place_ = place;
    cover(*this, place);
  }
  const FormPlace& place() const { return place_; }

 private:
  FormPlace place_ = {};
};

/// A label of one line, in its own font, fitted, and colour.
class PlacedLabel : public Placed<QLabel> {
 public:
  using Placed::Placed;
  void setPlace(const FormPlace& place);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A picture, stretched to its place.
class PlacedPicture : public Placed<QLabel> {
 public:
  using Placed::Placed;

 protected:
  void paintEvent(QPaintEvent* event) override;
};
