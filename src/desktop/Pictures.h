// The pictures that are shipped beside the program.
#pragma once
#include "base/Text.h"
#include <QPixmap>

// The picture at thePath, a path of the program. theRatio is the number of physical pixels to a pixel of the program;
// above 1 the file's "@2x" version is used. Loaded pictures are kept. Empty when the file cannot be read.
const QPixmap &PictureAt(const Text &thePath, double theRatio);
