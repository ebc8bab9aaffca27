#include "tools/assets/pictures/Birds.h"
QImage parrotPicture() {
    return QImage(256, 256, QImage::Format_RGB32);
}
QImage brownEaglePicture() {
    return QImage(256, 256, QImage::Format_RGB32);
}
QImage whiteHeadedEaglePicture() {
    return QImage(256, 256, QImage::Format_RGB32);
}
