#include "app/qt/progress_bar.h"

#include <QPalette>
#include <algorithm>

ProgressBar::ProgressBar(QWidget* parent) : QProgressBar(parent) {
  setRange(0, 100);
  setValue(0);
  setTextVisible(false);

  QPalette colours = palette();
  colours.setColor(QPalette::Highlight, QColor(0, 164, 219));
  colours.setColor(QPalette::Base, Qt::white);
  setPalette(colours);
  // Styles draw bars as they like; a style sheet settles it.
  setStyleSheet(
      "QProgressBar { background-color: rgb(255, 255, 255); border: 1px solid rgb(160, 190, 202); }"
      "QProgressBar::chunk { background-color: rgb(0, 164, 219); }");
}

void ProgressBar::SetPosition(int position) {
  setValue(std::clamp(position, minimum(), maximum()));
}
