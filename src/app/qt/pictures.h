#pragma once

#include <QIcon>
#include <QPixmap>

/// The program's pictures, of which app/desktop/pictures has the drawings and rasters.

/// The logo for a place that is `pixels` wide: the raster of that width or, where there is none,
/// the next larger.
QPixmap logoPicture(int pixels);
QIcon programIcon();
