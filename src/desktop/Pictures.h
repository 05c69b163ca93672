// The pictures beside the program, as sharp as the screen wants them.
#pragma once
#include "base/Text.h"
#include <QPainterPath>
#include <QPixmap>
#include <QRectF>

// The picture at thePath, a path of the program; its @2x twin where theRatio, the pixels of the screen to one of the
// program's, is above 1. Kept for the next time; empty when it can't be read.
const QPixmap &PictureAt(const Text &thePath, double theRatio);

// The shape that the picture of that name shows inside theRect: what hover, press and focus are painted in.
QPainterPath ShapeOf(const Text &thePath, const QRectF &theRect);
