#include "app/qt/progress_bar.h"

#include <QPainter>
#include <algorithm>

#include "app/qt/drawn_form.h"

ProgressBar::ProgressBar(QWidget* parent) : QProgressBar(parent) {
  setRange(0, progress_form::kBarMaximum);
  setValue(0);
  setTextVisible(false);
}

void ProgressBar::setPlace(const FormPlace& place) {
  place_ = place;
  cover(*this, place);
}

void ProgressBar::SetPosition(int position) {
  setValue(std::clamp(position, minimum(), maximum()));
}

void ProgressBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintInPixelsOfTheScreen(painter, *this);
  const QRect whole = toQt(place_);
  painter.fillRect(whole, toQt(progress_form::kBarEdge));
  const int edge = progress_form::barEdgeWidth(dpiOf(*this));
  QRect inside = whole.adjusted(edge, edge, -edge, -edge);
  painter.fillRect(inside, toQt(progress_form::kBarEmpty));
  inside.setWidth(inside.width() * value() / maximum());
  painter.fillRect(inside, toQt(progress_form::kBarFilled));
}
