#pragma once

#include <QImage>

/// Birds in flight from the side, 256 x 256, looking right on a plain ground.

QImage parrotPicture();
QImage brownEaglePicture();
QImage whiteHeadedEaglePicture();
