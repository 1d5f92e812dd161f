#include "app/qt/pictures.h"

// A resource in a static library is only linked when it is asked for.
static void ensureResources() { Q_INIT_RESOURCE(pictures); }

QPixmap logoPicture() {
  ensureResources();
  return QPixmap(":/pictures/logo.png");
}

QIcon programIcon() {
  ensureResources();
  return QIcon(":/pictures/icon.png");
}
