#pragma once

#include <QIcon>
#include <QPixmap>

/// The program's pictures, of which app/desktop/pictures has the drawings and rasters.

/// The logo's raster of a scale (see progress_form::logoScale).
QPixmap logoPicture(int scale);
QIcon programIcon();
