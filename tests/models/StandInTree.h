#pragma once

#include "models/Md2Builder.h"

#include <QColor>
#include <QDir>
#include <QImage>

/// Makes a data tree of boards in place of characters. The body is two-coloured (the upper half of
/// the skin over the lower), the weapon a small board beside it in one colour.
class StandInTree {
public:
    static constexpr QRgb feet = 0xff202020;
    static constexpr QRgb weapon = 0xffe0e000;

    explicit StandInTree(const QDir &workingDirectory) : root_(workingDirectory) {}

    bool addCharacter(const QString &name, bool withModel = true) {
        const QString directory = root_.filePath(QStringLiteral("data/%1/").arg(name));
        return root_.mkpath(directory) &&
               (!withModel || writeFile(directory + QStringLiteral("tris.md2"), board(-14, 14, -24, 24)));
    }
    bool addSkin(const QString &character, const QString &team, QRgb head) {
        return picture(head, feet).save(path(character, team, "png"));
    }
    bool addWeapon(const QString &character, const QString &name, QRgb colour = weapon) {
        return writeFile(path(character, name, "md2"), board(17, 24, -4, 4)) &&
               picture(colour, colour).save(path(character, name, "png"));
    }

private:
    QString path(const QString &character, const QString &name, const char *suffix) const {
        return root_.filePath(QStringLiteral("data/%1/%2.%3").arg(character, name, QLatin1String(suffix)));
    }

    static QImage picture(QRgb upper, QRgb lower) {
        QImage image(1, 2, QImage::Format_RGB32);
        image.setPixel(0, 0, upper);
        image.setPixel(0, 1, lower);
        return image.scaled(64, 64);
    }

    /// Faces the way characters do. It moves a little from frame to frame.
    static QByteArray board(float left, float right, float bottom, float top) {
        Md2Builder builder;
        builder.addTriangle({0, 1, 2, 0, 0, 0});
        for (int frame = 0; frame < 41; ++frame) {
            builder.addFrame({1, (right - left) / 100, (top - bottom) / 100},
                             {0, left, bottom + 0.05F * float(frame % 20)}, "f",
                             {0, 0, 0, 0, 0, 100, 0, 0, 0, 0, 100, 0, 0, 100, 100, 0});
        }
        builder.addRun(4);
        builder.addVertex(0, 1, 0);
        builder.addVertex(1, 1, 1);
        builder.addVertex(0, 0, 2);
        builder.addVertex(1, 0, 3);
        builder.addRun(0);
        return builder.bytes();
    }

    QDir root_;
};
