#include "app/TeamDot.h"

#include "scene/CharacterNames.h"
#include "scene/CharacterNode.h"

#include <QPainter>
#include <QPixmap>

namespace {

// A grey that stands out from light and dark surroundings alike.
constexpr QColor edge(128, 128, 128);

QColor colorOf(int team) {
    if (team < 0 || team >= int(teamColors.size())) {
        return edge;
    }
    const auto &color = teamColors[std::size_t(team)];
    return QColor::fromRgbF(color[0], color[1], color[2]);
}

void drawDot(QPainter &painter, QPointF middle, const QColor &color, bool hollow) {
    constexpr double radius = 5;
    const auto ring = [&](double at, double width, const QColor &ink) {
        painter.setPen(QPen(ink, width));
        painter.drawEllipse(middle, at, at);
    };
    if (hollow) {
        // The edge on both sides keeps white visible on white.
        ring(radius - 1, 4, edge);
        ring(radius - 1, 2, color);
    } else {
        painter.setBrush(color);
        ring(radius, 1, edge);
    }
}

} // namespace

QIcon teamDot(const CharacterNode &player) {
    constexpr int side = 16;
    QIcon icon;
    for (const int ratio : {1, 2}) {
        QPixmap picture(side * ratio, side * ratio);
        picture.setDevicePixelRatio(ratio);
        picture.fill(Qt::transparent);
        if (player.active) {
            QPainter painter(&picture);
            painter.setRenderHint(QPainter::Antialiasing);
            drawDot(painter, QPointF(side / 2.0, side / 2.0), colorOf(player.teamIndex), !player.placed);
        }
        icon.addPixmap(picture);
    }
    return icon;
}
