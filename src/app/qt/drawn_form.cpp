#include "app/qt/drawn_form.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr int kFrameworksDpi = 96;
constexpr int kLeastStretch = 60;  // per cent; beyond it letters are no longer readable

}  // namespace

QString toQt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QColor toQt(Colour colour) { return {colour.red, colour.green, colour.blue}; }

QRect toQt(const FormPlace& place) { return {place.left, place.top, place.width, place.height}; }

QFont toQt(const FormFont& design, int designDpi) {
  QStringList families;
  for (const std::string_view family : design.families) {
    if (!family.empty()) families.append(toQt(family));
  }
  QFont font;
  font.setFamilies(families);
  font.setStyleHint(QFont::SansSerif);
  if (design.pixels > 0) font.setPixelSize(toPixels(design.pixels, designDpi, kFrameworksDpi));
  return font;
}

QFont fitted(QFont font, const QString& text, int width) {
  for (int stretch = QFont::Unstretched; stretch > kLeastStretch; stretch -= 2) {
    if (QFontMetrics(font).horizontalAdvance(text) <= width) break;
    font.setStretch(stretch);
  }
  return font;
}

int dpiOf(const QWidget& widget) { return qRound(kFrameworksDpi * widget.devicePixelRatioF()); }

void cover(QWidget& widget, const FormPlace& place) {
  const qreal ratio = widget.devicePixelRatioF();
  const QPoint topLeft(static_cast<int>(std::floor(place.left / ratio)),
                       static_cast<int>(std::floor(place.top / ratio)));
  const QPoint end(static_cast<int>(std::ceil((place.left + place.width) / ratio)),
                   static_cast<int>(std::ceil((place.top + place.height) / ratio)));
  widget.setGeometry(QRect(topLeft, end - QPoint(1, 1)));
}

void paintInPixelsOfTheScreen(QPainter& painter, const QWidget& widget) {
  const qreal ratio = widget.devicePixelRatioF();
  const QPoint origin = widget.mapTo(widget.window(), QPoint(0, 0));
  painter.scale(1 / ratio, 1 / ratio);
  painter.translate(-origin.x() * ratio, -origin.y() * ratio);
}

void PlacedLabel::setPlace(const FormPlace& place) {
  Placed::setPlace(place);
  setFont(fitted(font(), text(), width()));
}

void PlacedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintInPixelsOfTheScreen(painter, *this);
  QFont inPixels = font();
  inPixels.setPixelSize(qRound(fontInfo().pixelSize() * devicePixelRatioF()));
  painter.setFont(fitted(inPixels, text(), place().width));
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(place().left, place().top + painter.fontMetrics().ascent(), text());
}

void PlacedPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintInPixelsOfTheScreen(painter, *this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(toQt(place()), pixmap());
}
