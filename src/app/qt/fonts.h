#pragma once

#include <QFont>

class QLabel;

/// Fonts of the forms. Each names the font that the forms are drawn for and, behind it, those that
/// stand in for it where it is not installed.
QFont formFont();   // "MS Sans Serif", in the desktop's size
QFont stageFont();  // "Tahoma", for the captions of the progress form

/// Sets `label` in its font at (left, top), no wider than `width`: letters that would need more, as
/// those of a stand-in may, are condensed, so that a caption is never cut off.
void placeLabel(QLabel& label, int left, int top, int width);
