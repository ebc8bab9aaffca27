#include "map/GLMapWidget.h"

#include "environment/BackgroundNode.h"
#include "environment/OpenGLSetup.h"
#include "map/Erosion.h"
#include "map/MeshNode.h"
#include "scene/LevelDocument.h"

#include <QMouseEvent>
#include <QOpenGLContext>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace {

constexpr int wheelUnitsPerNotch = 120;
constexpr float zoomOutPerNotch = 1.2F;
constexpr float zoomInPerNotch = 0.8333333F;
constexpr float risePerPixel = 0.1F;
constexpr float lowestEye = 1.0F;
/// Closer than that, numbers are too small to tell the camera's axes apart or to grow again.
constexpr float nearestZoom = 1e-20F;

/// Makes a view's OpenGL context current for work outside a paint, and lets go of it again. A
/// view that was never shown has none; the work is then skipped.
class ContextOfView {
public:
    explicit ContextOfView(QOpenGLWidget &newView) : view(newView) {
        if (view.context() != nullptr) {
            view.makeCurrent();
        }
    }
    ContextOfView(const ContextOfView &) = delete;
    ContextOfView &operator=(const ContextOfView &) = delete;
    ~ContextOfView() {
        if (view.context() != nullptr) {
            view.doneCurrent();
        }
    }

    bool isCurrent() const {
        return view.context() != nullptr && QOpenGLContext::currentContext() == view.context();
    }

private:
    QOpenGLWidget &view;
};

} // namespace

GLMapWidget::GLMapWidget(QWidget *parent, const QString &name)
    : QOpenGLWidget(parent), document(std::make_unique<LevelDocument>()),
      cells(std::make_unique<CellGrid>(document->mesh)) {
    setObjectName(name);
    setFormat(glSurfaceFormat());
    // Depth is read back after a frame was composed, so its buffers must outlive it.
    setUpdateBehavior(QOpenGLWidget::PartialUpdate);
    cells->resize(CellGrid::cellCount);
    trackball.init(width(), height());
    setDiagonal(viewRotation, 1);
    updateTrackBallCenter();
}

GLMapWidget::~GLMapWidget() {
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
    update();
}

void GLMapWidget::placePlayer(CharacterNode *player) {
    cells->placeInSelected(player);
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
    if (preview) {
        setDirty(true);
    }
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
        eyeHeight += (lastY - y) * risePerPixel;
        eyeHeight = std::min(std::max(eyeHeight, lowestEye), static_cast<float>(dimension));
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
    }
    update();
}

void GLMapWidget::wheelEvent(QWheelEvent *event) {
    const int delta = event->angleDelta().y();
    if (delta == 0) {
        event->ignore();
        return;
    }
    const int steps = delta / wheelUnitsPerNotch;
    if (preview) {
        for (int i = 0; i < std::abs(steps); ++i) {
            zoom = std::max(zoom * (steps < 0 ? zoomOutPerNotch : zoomInPerNotch), nearestZoom);
        }
        update();
    } else if (!randomGeo) {
        cells->changeSelectedHeight(static_cast<float>(steps));
        normalsDirty = true;
        update();
        emit heightsChanged();
    }
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
    cells->clearSelection();
    cells->selectRect(anchorCell.column, anchorCell.row, hit->column, hit->row);
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
