#include "app/ColorSwatch.h"

#include <QPainter>
#include <QPixmap>
#include <algorithm>

QIcon colorSwatch(const std::array<float, 3> &color) {
    constexpr int room = 4;
    const auto component = [](float value) { return std::clamp(value, 0.0F, 1.0F); };
    const QColor fill = QColor::fromRgbF(component(color[0]), component(color[1]), component(color[2]));
    QIcon icon;
    for (const int ratio : {1, 2}) {
        QPixmap picture(colorSwatchSize * ratio);
        picture.fill(Qt::transparent);
        const QRect frame = picture.rect().adjusted(0, 0, -room * ratio, 0);
        QPainter painter(&picture);
        // A grey that stands out from light and dark surroundings alike.
        painter.fillRect(frame, QColor(128, 128, 128));
        painter.fillRect(frame.adjusted(ratio, ratio, -ratio, -ratio), fill);
        painter.end();
        picture.setDevicePixelRatio(ratio);
        icon.addPixmap(picture);
    }
    return icon;
}
