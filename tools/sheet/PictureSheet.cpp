#include "tools/sheet/PictureSheet.h"

#include "environment/SkyTextures.h"
#include "tools/sheet/Sheet.h"

#include <QDir>
#include <array>
#include <cmath>

namespace {

constexpr double pi = 3.141592653589793;

QImage repeated(const QImage &picture) {
    // As often as a map repeats it.
    constexpr int times = 5;
    constexpr int side = 480 / times;
    const QImage small = picture.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QImage result(times * side, times * side, QImage::Format_RGB32);
    QPainter painter(&result);
    for (int i = 0; i < times * times; ++i) {
        painter.drawImage(i % times * side, i / times * side, small);
    }
    return result;
}

struct Direction {
    double x;
    double y;
    double z;
};

/// The colour of a cube map toward a direction, by the rules of cube maps; rows of the pictures
/// are bottom-up for OpenGL, top-down in the files.
QRgb cubeColor(const std::array<QImage, 6> &faces, const Direction &d) {
    const double ax = std::abs(d.x);
    const double ay = std::abs(d.y);
    const double az = std::abs(d.z);
    std::size_t face = 0; // negx, posx, negy, posy, negz, posz
    double s = 0;
    double t = 0;
    double major = 1;
    if (ax >= ay && ax >= az) {
        face = d.x > 0 ? 1 : 0;
        major = ax;
        s = d.x > 0 ? -d.z : d.z;
        t = -d.y;
    } else if (ay >= az) {
        face = d.y > 0 ? 3 : 2;
        major = ay;
        s = d.x;
        t = d.y > 0 ? d.z : -d.z;
    } else {
        face = d.z > 0 ? 5 : 4;
        major = az;
        s = d.z > 0 ? d.x : -d.x;
        t = -d.y;
    }
    const QImage &image = faces[face];
    if (image.isNull()) {
        return qRgb(255, 0, 255);
    }
    const auto texel = [major](double coordinate, int size) {
        return std::clamp(static_cast<int>((coordinate / major + 1) / 2 * size), 0, size - 1);
    };
    return image.pixel(texel(s, image.width()), image.height() - 1 - texel(t, image.height()));
}

QImage panorama(const std::array<QImage, 6> &faces) {
    QImage result(1440, 420, QImage::Format_RGB32);
    for (int y = 0; y < result.height(); ++y) {
        const double elevation = pi / 2 - y * pi / 720;
        for (int x = 0; x < result.width(); ++x) {
            const double azimuth = 2 * pi * x / result.width();
            const Direction d{std::cos(elevation) * std::cos(azimuth), std::sin(elevation),
                              std::cos(elevation) * std::sin(azimuth)};
            // The sky shows what the cube map holds in the opposite direction.
            result.setPixel(x, y, cubeColor(faces, {-d.x, -d.y, -d.z}));
        }
    }
    return result;
}

} // namespace

bool saveTextureSheet(const QString &fileName) {
    Sheet sheet({480, 480}, 4);
    const QDir textures(QStringLiteral("data/textures"));
    for (const QString &name : textures.entryList(QDir::Files, QDir::Name)) {
        const QImage picture(textures.filePath(name));
        const bool alone = picture.width() < 512;
        sheet.add(alone ? picture : repeated(picture), name);
    }
    return sheet.save(fileName);
}

bool saveSkySheet(const QString &fileName) {
    Sheet sheet({1440, 420}, 1);
    const QDir skies(QStringLiteral("data/CubeMap"));
    for (const QString &name : skies.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        std::array<QImage, 6> faces;
        for (int face = 0; face < 6; ++face) {
            QString path = skies.filePath(name + QStringLiteral("/mount.jpg"));
            cubeFaceFileName(face, path);
            faces[static_cast<std::size_t>(face)] = QImage(path);
        }
        sheet.add(panorama(faces), name);
    }
    return sheet.save(fileName);
}
