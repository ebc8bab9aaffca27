#include "map/GLMapWidget.h"

#include "environment/BackgroundNode.h"
#include "environment/OpenGLSetup.h"
#include "map/ContextOfView.h"
#include "map/Erosion.h"
#include "map/MeshNode.h"
#include "scene/LevelDocument.h"

#include <QFocusFrame>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace {

constexpr float zoomOutPerNotch = 1.2F;
constexpr float zoomInPerNotch = 0.8333333F;
constexpr float risePerPixel = 0.1F;
constexpr float lowestEye = 1.0F;
/// Closer than that, numbers are too small to tell the camera's axes apart or to grow again.
constexpr float nearestZoom = 1e-20F;

} // namespace

GLMapWidget::GLMapWidget(QWidget *parent, const QString &name)
    : QOpenGLWidget(parent), document(std::make_unique<LevelDocument>()),
      cells(std::make_unique<CellGrid>(document->mesh)) {
    setObjectName(name);
    setFormat(glSurfaceFormat());
    setFocusPolicy(Qt::StrongFocus);
    // Depth is read back after a frame was composed, so its buffers must outlive it.
    setUpdateBehavior(QOpenGLWidget::PartialUpdate);
    cells->resize(CellGrid::cellCount);
    trackball.init(width(), height());
    setDiagonal(viewRotation, 1);
    updateTrackBallCenter();
    showCursor();
}

GLMapWidget::~GLMapWidget() {
    delete focusFrame;
    const ContextOfView scope(*this);
    document.reset();
    cells.reset();
}

void GLMapWidget::setDirty(bool reinit) {
    previewStale = true;
    reinitPending = reinit;
    update();
}

void GLMapWidget::changeWired() {
    if (document->mesh != nullptr) {
        document->mesh->wired = (document->mesh->wired + 1) % 2;
    }
    update();
}

void GLMapWidget::changePreview() {
    // The projection of the mode being left is replaced by the other mode's.
    previewStale = true;
    if (preview) {
        preview = false;
    } else {
        overviewStale = true;
        preview = true;
        reinitPending = reinitPending || !setUpDone;
    }
    turning = false;
    notches.drop();
    showCursor();
    update();
}

bool GLMapWidget::placePlayer(CharacterNode *player) {
    return cells->placeInSelected(player);
}

void GLMapWidget::updatePlayerPosition(CharacterNode *player) {
    cells->placeAtCell(player);
}

void GLMapWidget::updateTrackBallCenter() {
    const int half = dimension / 2;
    const int tenth = dimension / 10;
    center = {static_cast<double>(half), static_cast<double>(tenth), static_cast<double>(half)};
    update();
}

void GLMapWidget::resetCell() {
    cells->forgetPlayers();
}

void GLMapWidget::setRandomGeo(bool random) {
    if (document->mesh != nullptr) {
        document->mesh->setRandomGeography(random);
    }
    randomGeo = random;
    notches.drop();
    showCursor();
}

void GLMapWidget::showCursor() {
    if (preview) {
        setCursor(turning ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
    } else {
        setCursor(randomGeo ? Qt::ForbiddenCursor : Qt::CrossCursor);
    }
}

void GLMapWidget::buildTerrain(TerrainMesh *mesh) {
    mesh->setSize(dimension, accuracy);
    mesh->build();
    pointsPerSide = dimension * accuracy;
    if (document->background == nullptr) {
        return;
    }
    // The lists made by initGL must fit the new size already.
    document->background->setMapSize(accuracy, dimension);
    const ContextOfView scope(*this);
    if (scope.isCurrent()) {
        document->background->initGL();
    }
}

void GLMapWidget::refreshTerrain() {
    const MeshNode *mesh = document->mesh;
    cells->setTerrain(document->mesh);
    cells->setSize(mesh != nullptr ? mesh->density : 0, mesh != nullptr ? mesh->dimension : 0);
    cells->recolourFromHeights();
    if (mesh != nullptr && document->background != nullptr) {
        const bool empty = mesh->vertices.empty();
        document->background->setMapSize(empty ? usualDensity : mesh->density,
                                         empty ? usualSide : mesh->dimension);
    }
    update();
}

void GLMapWidget::erodeTerrain() {
    MeshNode *mesh = document->mesh;
    if (mesh == nullptr || mesh->vertices.empty()) {
        return;
    }
    pointsPerSide = mesh->pointsPerSide();
    erode(*mesh, accuracy);
    cells->recolourFromHeights();
    mesh->computeNormals();
    update();
}

void GLMapWidget::replaceDocument(std::unique_ptr<LevelDocument> newDocument) {
    const ContextOfView scope(*this);
    cells->setTerrain(nullptr);
    cells->forgetPlayers();
    document = std::move(newDocument);
    setUpDone = false;
    if (scope.isCurrent()) {
        loadTile();
    }
    if (preview) {
        setDirty(true);
    }
}

/// Makes or refreshes the cell picture, which selects cell 0. Needs the view's current context.
void GLMapWidget::loadTile() {
    cells->loadTileTexture();
    tileStale = false;
    notches.drop();
}

void GLMapWidget::mousePressEvent(QMouseEvent *event) {
    const QPoint position = event->position().toPoint();
    if (!preview) {
        pickBeforeItIsReplaced();
        pendingPoint = position;
        dragging = true;
    } else {
        // The toolkit's double-click handler passes the second press on with a type of its own.
        if (event->type() == QEvent::MouseButtonDblClick) {
            recenter(position);
        } else {
            trackball.beginDrag(position.x(), 0, 0);
        }
        lastY = static_cast<float>(position.y());
        turning = true;
        showCursor();
    }
    update();
}

void GLMapWidget::mouseMoveEvent(QMouseEvent *event) {
    const QPoint position = event->position().toPoint();
    if (!preview) {
        if (dragging) {
            pickBeforeItIsReplaced();
            pendingPoint = position;
        }
    } else {
        const auto y = static_cast<float>(position.y());
        raiseEye((lastY - y) * risePerPixel);
        lastY = y;
        trackball.drag(viewRotation, position.x(), 0);
    }
    update();
}

void GLMapWidget::mouseReleaseEvent(QMouseEvent *event) {
    if (!preview) {
        pickBeforeItIsReplaced();
        dragging = false;
        anchorCell = {};
    } else {
        trackball.endDrag(event->position().toPoint().x(), 0);
        turning = event->buttons() != Qt::NoButton;
        showCursor();
    }
    update();
}

void GLMapWidget::wheelEvent(QWheelEvent *event) {
    const int delta = event->angleDelta().y();
    if (delta == 0) {
        event->ignore();
        return;
    }
    if (preview) {
        zoomBy(notches.take(delta));
    } else if (const int steps = notches.take(delta); steps != 0) {
        changeHeights(steps);
    }
}

/// Raises (steps > 0) or lowers what is selected, where the terrain's heights are stored.
void GLMapWidget::changeHeights(int steps) {
    if (randomGeo) {
        return;
    }
    cells->changeSelectedHeight(static_cast<float>(steps));
    normalsDirty = true;
    update();
    emit heightsChanged();
}

/// Brings the camera nearer (steps > 0) or moves it away.
void GLMapWidget::zoomBy(int steps) {
    for (int i = 0; i < std::abs(steps); ++i) {
        zoom = std::max(zoom * (steps < 0 ? zoomOutPerNotch : zoomInPerNotch), nearestZoom);
    }
    update();
}

void GLMapWidget::raiseEye(float by) {
    eyeHeight = std::min(std::max(eyeHeight + by, lowestEye), static_cast<float>(dimension));
}

/// Turns the pending point into a cell and selects the rectangle from where the drag began. True
/// if a cell was hit. Needs the view's current context.
bool GLMapWidget::pickPendingPoint() {
    const auto hit =
        cells->pickCell(static_cast<int>(scale(pendingPoint.x())), static_cast<int>(scale(pendingPoint.y())));
    if (!hit) {
        return false;
    }
    if (anchorCell.isNone()) {
        anchorCell = *hit;
    }
    select(anchorCell, *hit);
    pendingPoint = {};
    return true;
}

/// A quick drag may deliver press, move and release with no paint between: the point that still
/// waits is picked with what the last frame showed.
void GLMapWidget::pickBeforeItIsReplaced() {
    if (!dragging || pendingPoint.isNull()) {
        return;
    }
    const ContextOfView scope(*this);
    if (scope.isCurrent()) {
        pickPendingPoint();
    }
}

void GLMapWidget::recenter(const QPoint &position) {
    const ContextOfView scope(*this);
    if (!scope.isCurrent()) {
        return;
    }
    const auto point =
        unprojectedPoint(static_cast<int>(scale(position.x())), static_cast<int>(scale(position.y())),
                         modelview, projection, viewport);
    if (!point) {
        return;
    }
    center = *point;
    const auto side = static_cast<double>(dimension);
    // A point beyond the map comes back to its edge, at ground level.
    const auto bringBack = [this, side](double &coordinate) {
        if (coordinate > side) {
            coordinate = side;
            center.y = 0;
        } else if (coordinate < 0) {
            coordinate = 0;
            center.y = 0;
        }
    };
    bringBack(center.x);
    bringBack(center.z);
}
