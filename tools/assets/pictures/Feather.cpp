#include "tools/assets/pictures/Feather.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QtMath>

namespace {

/// The vane along +x from the origin.
QPainterPath vane(const Feather &feather) {
    const double l = feather.length;
    const double w = 0.5 * feather.width;
    const double b = feather.bend * l;
    QPainterPath path;
    path.moveTo(0, -0.3 * w);
    path.cubicTo(0.3 * l, -1.15 * w, 0.75 * l, -1.1 * w + 0.6 * b, l, b);
    path.cubicTo(0.93 * l, 0.85 * w + 0.9 * b, 0.45 * l, 1.25 * w + 0.3 * b, 0, 0.3 * w);
    path.closeSubpath();
    return path;
}

void paintBarbs(QPainter &painter, const Feather &feather) {
    const QColor dark = mixed(feather.tip, Qt::black, 0.55);
    QColor line = dark;
    line.setAlpha(38);
    painter.setPen(QPen(line, 1.6));
    for (double x = 0.04 * feather.length; x < feather.length; x += 7) {
        const double share = x / feather.length;
        const QPointF shaft(x, feather.bend * feather.length * share * share);
        for (const int side : {-1, 1}) {
            painter.drawLine(shaft, shaft + QPointF(0.8 * feather.width, side * 0.75 * feather.width));
        }
    }
    QColor shaftColor = dark;
    shaftColor.setAlpha(120);
    QPainterPath shaft;
    shaft.moveTo(0, 0);
    shaft.quadTo(0.6 * feather.length, 0.15 * feather.bend * feather.length, feather.length,
                 feather.bend * feather.length);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(shaftColor, 2.4));
    painter.drawPath(shaft);
}

} // namespace

QColor mixed(const QColor &first, const QColor &second, double share) {
    const auto between = [share](int a, int b) { return qBound(0, qRound(a + share * (b - a)), 255); };
    return {between(first.red(), second.red()), between(first.green(), second.green()),
            between(first.blue(), second.blue())};
}

void paintFeather(QPainter &painter, const Feather &feather) {
    painter.save();
    painter.translate(feather.root);
    painter.rotate(qRadiansToDegrees(feather.angle));
    const QPainterPath path = vane(feather);
    QLinearGradient along(0, 0, feather.length, 0);
    along.setColorAt(0, feather.base);
    along.setColorAt(0.55, mixed(feather.base, feather.tip, 0.6));
    along.setColorAt(1, feather.tip);
    painter.setPen(Qt::NoPen);
    painter.setBrush(along);
    painter.drawPath(path);
    painter.setClipPath(path, Qt::IntersectClip);
    // The trailing half lies under the next feather.
    QLinearGradient over(0, -0.6 * feather.width, 0, 0.6 * feather.width);
    over.setColorAt(0, QColor(255, 255, 255, 46));
    over.setColorAt(0.45, QColor(0, 0, 0, 0));
    over.setColorAt(1, QColor(0, 0, 0, 86));
    painter.fillPath(path, over);
    const bool large = feather.length > 60;
    if (large) {
        paintBarbs(painter, feather);
    }
    QColor rim = mixed(feather.tip, Qt::black, 0.6);
    rim.setAlpha(large ? 110 : 55);
    painter.setPen(QPen(rim, large ? 4 : 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
    painter.restore();
}
