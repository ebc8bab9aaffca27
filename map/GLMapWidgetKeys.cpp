// The map under the keyboard, and what shows that it listens.
#include "map/GLMapWidget.h"

#include <QFocusFrame>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <optional>

namespace {

constexpr float risePerKey = 1.0F;
constexpr int keysAcrossView =
    28; ///< That many presses turn as far as a drag across the view: about 5° each.

/// The way an arrow points: columns grow to the left, rows upward.
std::optional<CellPosition> stepOf(int key) {
    switch (key) {
    case Qt::Key_Left:
        return CellPosition{1, 0};
    case Qt::Key_Right:
        return CellPosition{-1, 0};
    case Qt::Key_Up:
        return CellPosition{0, 1};
    case Qt::Key_Down:
        return CellPosition{0, -1};
    default:
        return std::nullopt;
    }
}

/// Around the view: inside it, the frame would stand in the picture. Some of the toolkit's styles
/// make room for it but leave it unpainted.
class FocusFrame : public QFocusFrame {
public:
    using QFocusFrame::QFocusFrame;

protected:
    void paintEvent(QPaintEvent * /*event*/) override {
        QPainter(this).fillRect(rect(), palette().highlight());
    }
};

} // namespace

void GLMapWidget::keyPressEvent(QKeyEvent *event) {
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool extend = modifiers == Qt::ShiftModifier && !preview;
    const bool plain = modifiers == Qt::NoModifier;
    if (!(plain || extend) || !(preview ? cameraKey(event->key()) : cellKey(event->key(), extend))) {
        QOpenGLWidget::keyPressEvent(event);
    }
}

/// True if the key has a meaning in the overview.
bool GLMapWidget::cellKey(int key, bool extend) {
    if (const auto step = stepOf(key)) {
        moveSelection(*step, extend);
        return true;
    }
    if (extend || (key != Qt::Key_PageUp && key != Qt::Key_PageDown)) {
        return false;
    }
    changeHeights(key == Qt::Key_PageUp ? 1 : -1);
    return true;
}

/// True if the key has a meaning in the preview.
bool GLMapWidget::cameraKey(int key) {
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int half = std::max(viewWidth / (2 * keysAcrossView), 1) * (key == Qt::Key_Right ? 1 : -1);
        trackball.turn(viewRotation, viewWidth / 2 - half, viewWidth / 2 + half);
        break;
    }
    case Qt::Key_Up:
        raiseEye(risePerKey);
        break;
    case Qt::Key_Down:
        raiseEye(-risePerKey);
        break;
    case Qt::Key_PageUp:
        zoomBy(1);
        break;
    case Qt::Key_PageDown:
        zoomBy(-1);
        break;
    case Qt::Key_Home:
        updateTrackBallCenter();
        break;
    default:
        return false;
    }
    update();
    return true;
}

/// Selects the rectangle between two cells, and nothing else.
void GLMapWidget::select(CellPosition anchor, CellPosition corner) {
    cells->clearSelection();
    cells->selectRect(anchor.column, anchor.row, corner.column, corner.row);
    selectionAnchor = anchor;
    selectionCorner = corner;
    notches.drop();
}

/// Moves the selection by a cell, or with `extend` its end that lies opposite to its anchor. At the
/// map's edge it stays.
void GLMapWidget::moveSelection(CellPosition step, bool extend) {
    const auto isSelected = [this](CellPosition cell) {
        return !cell.isNone() && cells->cells[static_cast<std::size_t>(cell.number())].selected;
    };
    if (!isSelected(selectionAnchor) || !isSelected(selectionCorner)) {
        // Selected by something else than the user, such as the cell that is selected at the start.
        const auto bounds = cells->boundsOfSelection();
        selectionAnchor = bounds.first;
        selectionCorner = bounds.second;
    }
    if (selectionAnchor.isNone()) {
        select({0, 0}, {0, 0});
    } else {
        const auto moved = [step](CellPosition cell) {
            return CellPosition{cell.column + step.column, cell.row + step.row};
        };
        const CellPosition anchor = extend ? selectionAnchor : moved(selectionAnchor);
        const CellPosition corner = moved(selectionCorner);
        if (anchor.isOnMap() && corner.isOnMap()) {
            select(anchor, corner);
        }
    }
    update();
}

void GLMapWidget::focusInEvent(QFocusEvent *event) {
    QOpenGLWidget::focusInEvent(event);
    if (focusFrame == nullptr) {
        focusFrame = new FocusFrame(this);
    }
    focusFrame->setWidget(this);
}

void GLMapWidget::focusOutEvent(QFocusEvent *event) {
    QOpenGLWidget::focusOutEvent(event);
    if (focusFrame != nullptr) {
        focusFrame->setWidget(nullptr);
    }
}
