#pragma once

#include <QIcon>
#include <QPixmap>

/// The program's pictures. They are drawn in pictures/*.svg; the program carries the rasters beside
/// them (rsvg-convert -w 984 logo.svg -o logo.png, -w 256 icon.svg -o icon.png).
QPixmap logoPicture();  // three times the size at which the progress form shows it
QIcon programIcon();
