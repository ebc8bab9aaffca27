#pragma once

#include "tools/assets/pictures/Field.h"

#include <QDir>
#include <QImage>

/// The picture in 24 bits. Values between two steps are spread over neighbours by a fixed pattern of
/// noise, so that soft gradients show no bands.
QImage toImage(const Picture &picture);

/// Writes the image as `name` ("textures/grass1.jpg") below `data`, making directories as needed.
/// `quality` is that of a JPEG file, 0 to 100. False where the file cannot be written.
bool writeImage(const QDir &data, const QString &name, const QImage &image, int quality);
