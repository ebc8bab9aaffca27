#pragma once

#include "map/GLMapWidget.h"
#include "map/MeshNode.h"
#include "scene/CharSetNode.h"
#include "scene/LevelDocument.h"

#include <QImage>
#include <QWheelEvent>
#include <QtTest>

/// Drives a shown map view as a user does, and looks at its pixels. Positions are logical pixels.
class ViewDriver {
public:
    explicit ViewDriver(GLMapWidget &driven) : view(driven) {}

    /// Gives the view a complete level of the size, shows it and waits for its first frame.
    bool show(int width, int height, int dimension = 40, int density = 2) {
        view.document->complete();
        view.dimension = dimension;
        view.accuracy = density;
        view.buildTerrain(view.document->mesh);
        view.refreshTerrain();
        view.updateTrackBallCenter();
        view.resize(width, height);
        view.show();
        return QTest::qWaitForWindowExposed(&view) && paint();
    }

    /// Paints now, whatever was asked for.
    bool paint() { return !view.grabFramebuffer().isNull(); }

    QImage picture() { return view.grabFramebuffer(); }

    QColor pixel(QPoint position) {
        const QImage image = picture();
        return image.pixelColor(qRound(position.x() * view.devicePixelRatioF()),
                                qRound(position.y() * view.devicePixelRatioF()));
    }

    /// Where a cell's centre is shown.
    QPoint cellAt(int column, int row) const {
        const double side = std::min(view.width(), view.height());
        const double x = 0.95 - 0.1 * column;
        const double y = -0.95 + 0.1 * row;
        return {qRound(view.width() / 2.0 + x * side / 2), qRound(view.height() / 2.0 - y * side / 2)};
    }

    void drag(QPoint from, QPoint to) {
        QTest::mousePress(&view, Qt::LeftButton, {}, from);
        paint();
        QTest::mouseMove(&view, to);
        sendMove(to);
        paint();
        QTest::mouseRelease(&view, Qt::LeftButton, {}, to);
        paint();
    }

    /// A move with the button held; unlike the test library's own, it arrives at once.
    void sendMove(QPoint to) {
        QMouseEvent move(QEvent::MouseMove, QPointF(to), view.mapToGlobal(QPointF(to)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&view, &move);
    }

    /// Turns the wheel; 120 units are one notch away from the user.
    bool wheel(int units, int sideways = 0) {
        const QPointF middle(view.width() / 2.0, view.height() / 2.0);
        QWheelEvent event(middle, view.mapToGlobal(middle), {}, {sideways, units}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &event);
        return event.isAccepted();
    }

    std::vector<int> selectedCells() const {
        std::vector<int> numbers;
        for (const MapCell &cell : view.cells->cells) {
            if (cell.selected) {
                numbers.push_back(cell.index);
            }
        }
        return numbers;
    }

    MapCell &cell(int column, int row) {
        const int index = column + 20 * row;
        return view.cells->cells.at(static_cast<std::size_t>(index));
    }

    CharacterNode &player(std::size_t number) { return *view.document->charSet->characters.at(number); }

    float height(int row, int column) const {
        const MeshNode &mesh = *view.document->mesh;
        const int point = row * mesh.pointsPerSide() + column;
        return mesh.vertices.at(static_cast<std::size_t>(point)).position.y;
    }

private:
    GLMapWidget &view;
};

/// The colour a float triple is shown in, as far as eight bits go.
inline bool shows(const QColor &seen, float red, float green, float blue) {
    const auto near = [](int value, float wanted) {
        return std::abs(value - qRound(std::clamp(wanted, 0.0F, 1.0F) * 255)) <= 1;
    };
    return near(seen.red(), red) && near(seen.green(), green) && near(seen.blue(), blue);
}
