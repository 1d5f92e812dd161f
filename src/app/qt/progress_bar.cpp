#include "app/qt/progress_bar.h"

#include <QPainter>

#include "app/qt/drawn_form.h"

ProgressBar::ProgressBar(QWidget* parent) : Placed(parent) {
  setRange(0, kMaximum);
  setValue(0);
  setTextVisible(false);
}

void ProgressBar::SetPosition(int position) { setValue(bounded(position)); }

void ProgressBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintInPixelsOfTheScreen(painter, *this);
  const QRect whole = toQt(place());
  painter.fillRect(whole, toQt(progress_form::kBarEdge));
  const int edge = progress_form::barEdgeWidth(dpiOf(*this));
  QRect inside = whole.adjusted(edge, edge, -edge, -edge);
  painter.fillRect(inside, toQt(progress_form::kBarEmpty));
  inside.setWidth(inside.width() * value() / maximum());
  painter.fillRect(inside, toQt(progress_form::kBarFilled));
}
