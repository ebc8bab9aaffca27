#pragma once

#include "environment/SkyTextures.h"

#include <QImage>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <vector>

constexpr int textureSide = 1024;

/// A grainy picture, so that the decoder has something to do.
inline QImage picture(int seed) {
    QImage image(textureSide, textureSide, QImage::Format_RGB32);
    auto grain = static_cast<unsigned>(seed);
    for (int y = 0; y < textureSide; ++y) {
        for (int x = 0; x < textureSide; ++x) {
            grain = grain * 1664525U + 1013904223U;
            const int value = 96 + (x * y / 4096) % 96 + static_cast<int>(grain >> 28);
            image.setPixel(x, y, qRgb(value, 255 - value, (x + seed * 40) % 256));
        }
    }
    return image;
}
/// The level's pictures as files in a folder of their own.
class Pictures {
public:
    Pictures() {
        for (const char *name : {"ground.jpg", "water.jpg", "terrain.jpg"}) {
            add(folder.filePath(QLatin1String(name)));
        }
        for (int face = 0; face < 6; ++face) {
            QString name = sky();
            cubeFaceFileName(face, name);
            add(name);
        }
        add(otherGround());
        files.pop_back();
    }

    QString sky() const { return folder.filePath(QStringLiteral("mount.jpg")); }
    QString otherGround() const { return folder.filePath(QStringLiteral("other.jpg")); }

    static constexpr std::size_t surfaces = 3; ///< The rest of the files are faces.

    std::vector<QString> files; ///< Ground, water, terrain, then the faces of the sky.

private:
    void add(const QString &name) {
        if (!picture(static_cast<int>(files.size())).save(name)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(name));
            std::exit(2);
        }
        files.push_back(name);
    }

    QTemporaryDir folder;
};
