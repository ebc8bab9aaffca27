#include "tools/steps/Picture.h"

#include <QSet>

int countColours(const QImage &image) {
    constexpr QRgb upperSixBits = 0xFCFCFC;
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            colours.insert(image.pixel(x, y) & upperSixBits);
        }
    }
    return static_cast<int>(colours.size());
}
