// What the map tells about the place that the pointer rests on.
#include "map/GLMapWidget.h"

#include "map/ContextOfView.h"
#include "map/MapHints.h"
#include "map/MeshNode.h"
#include "scene/LevelDocument.h"

#include <QHelpEvent>
#include <QToolTip>
#include <algorithm>

bool GLMapWidget::event(QEvent *event) {
    if (event->type() != QEvent::ToolTip) {
        return QOpenGLWidget::event(event);
    }
    const auto *const help = static_cast<QHelpEvent *>(event);
    const Hint hint = hintAt(help->pos());
    // It goes when the pointer leaves the place it tells about.
    QToolTip::showText(help->globalPos(), hint.text, this, hint.place);
    event->setAccepted(!hint.text.isEmpty());
    return true;
}

GLMapWidget::Hint GLMapWidget::hintAt(const QPoint &position) {
    const ContextOfView scope(*this);
    if (!scope.isCurrent()) {
        return {};
    }
    const auto x = static_cast<int>(scale(position.x()));
    const auto y = static_cast<int>(scale(position.y()));
    if (!preview) {
        const auto cell = cells->pickCell(x, y);
        return cell ? Hint{cellHint(*cells, *cell), placeOf(*cell)} : Hint{};
    }
    const auto point = unprojectedPoint(x, y, modelview, projection, viewport);
    if (!point || document->mesh == nullptr) {
        return {};
    }
    constexpr int reach = 3;
    return {placeHint(*document->mesh, point->x, point->z),
            QRect(position, QSize(1, 1)).adjusted(-reach, -reach, reach, reach)};
}

/// Where the overview shows a cell.
QRect GLMapWidget::placeOf(CellPosition cell) const {
    const double side = static_cast<double>(std::min(width(), height())) / CellGrid::cellsPerSide;
    constexpr int half = CellGrid::cellsPerSide / 2;
    const QPointF corner(width() / 2.0 + (half - 1 - cell.column) * side,
                         height() / 2.0 + (half - 1 - cell.row) * side);
    return QRectF(corner, QSizeF(side, side)).toAlignedRect();
}
