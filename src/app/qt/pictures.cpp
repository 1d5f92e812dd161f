#include "app/qt/pictures.h"

// A resource in a static library is only linked when it is asked for.
static void ensureResources() { Q_INIT_RESOURCE(pictures); }

QPixmap logoPicture(int pixels) {
  ensureResources();
  QPixmap picture;
  for (const char* name : {"100", "150", "200"}) {
    picture.load(QString(":/pictures/logo-%1.bmp").arg(name));
    if (picture.width() >= pixels) break;
  }
  return picture;
}

QIcon programIcon() {
  ensureResources();
  return QIcon(":/pictures/icon.ico");
}
