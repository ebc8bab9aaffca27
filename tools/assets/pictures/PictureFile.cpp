#include "tools/assets/pictures/PictureFile.h"

#include "tools/assets/pictures/Noise.h"

#include <QFileInfo>
#include <QImageWriter>
#include <algorithm>
#include <cmath>

namespace {

int quantised(float value, float noise) {
    return std::clamp(static_cast<int>(std::floor(value * 255.0F + 0.5F + noise)), 0, 255);
}

} // namespace

QImage toImage(const Picture &picture) {
    const int side = picture.side();
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < side; ++x) {
            const glm::vec3 color = picture.at(x, y);
            // The sum of two uniform numbers: the error's size does not depend on the value.
            const float noise = 0.5F * (hashedFraction(x, y, 911) + hashedFraction(x, y, 912) - 1.0F);
            row[x] = qRgb(quantised(color.r, noise), quantised(color.g, noise), quantised(color.b, noise));
        }
    }
    return image;
}

bool writeImage(const QDir &data, const QString &name, const QImage &image, int quality) {
    const QString path = data.filePath(name);
    if (!data.mkpath(QFileInfo(name).path())) {
        qWarning().noquote() << "cannot make the directory of" << path;
        return false;
    }
    QImageWriter writer(path);
    writer.setQuality(quality);
    if (!writer.write(image)) {
        qWarning().noquote() << "cannot write" << path << ':' << writer.errorString();
        return false;
    }
    return true;
}
