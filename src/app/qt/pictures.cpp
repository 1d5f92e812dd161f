#include "app/qt/pictures.h"

// A resource in a static library is only linked when it is asked for.
static void ensureResources() { Q_INIT_RESOURCE(pictures); }

QPixmap logoPicture(int scale) {
  ensureResources();
  return QPixmap(QString(":/pictures/logo-%1.bmp").arg(scale));
}

QIcon programIcon() {
  ensureResources();
  return QIcon(":/pictures/icon.ico");
}
