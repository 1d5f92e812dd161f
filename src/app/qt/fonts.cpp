#include "app/qt/fonts.h"

#include <QFontMetrics>
#include <QLabel>

namespace {
constexpr int kLeastStretch = 60;  // per cent; beyond it letters are no longer readable
}

QFont formFont() {
  QFont font;
  font.setFamilies({"MS Sans Serif", "Microsoft Sans Serif", "Liberation Sans", "Nimbus Sans",
                    "DejaVu Sans Condensed", "DejaVu Sans"});
  font.setStyleHint(QFont::SansSerif);
  return font;
}

QFont stageFont() {
  QFont font;
  font.setFamilies({"Tahoma", "Noto Sans", "DejaVu Sans Condensed", "DejaVu Sans"});
  font.setStyleHint(QFont::SansSerif);
  return font;
}

void placeLabel(QLabel& label, int left, int top, int width) {
  QFont font = label.font();
  for (int stretch = QFont::Unstretched; stretch > kLeastStretch; stretch -= 2) {
    if (QFontMetrics(font).horizontalAdvance(label.text()) <= width) break;
    font.setStretch(stretch);
  }
  label.setFont(font);
  label.setGeometry(left, top, width, label.sizeHint().height());
}
