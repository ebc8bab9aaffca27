#pragma once

#include <QColor>
#include <QPainter>
#include <QPointF>

/// One feather, in the painter's coordinates.
struct Feather {
    QPointF root;
    double angle = 0; ///< Of the shaft, in radians, clockwise from the right (y is down).
    double length = 100;
    double width = 30;
    double bend = 0; ///< How far the tip leaves the straight shaft, as a share of the length.
    QColor base;     ///< At the root.
    QColor tip;
};

/// Paints the vane with its barbs, its shaft and a darker rim, so that each feather of a fan stands out.
void paintFeather(QPainter &painter, const Feather &feather);

/// The colour between two, 0 the first to 1 the second.
QColor mixed(const QColor &first, const QColor &second, double share);
