#pragma once

#include "map/CellGrid.h"
#include "map/Picking.h"
#include "map/WheelNotches.h"
#include "map/math/Matrix4.h"
#include "map/math/Trackball.h"

#include <QOpenGLWidget>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <array>
#include <memory>

class CharacterNode;
class LevelDocument;
class QFocusFrame;
class TerrainMesh;

/// The map view: owns the level being edited and shows it as an overview of 20 × 20 cells, where
/// it is shaped, or as a lit three-dimensional preview. Widget positions are logical pixels.
class GLMapWidget : public QOpenGLWidget {
    Q_OBJECT

public:
    explicit GLMapWidget(QWidget *parent = nullptr, const QString &name = {});
    ~GLMapWidget() override;

    int dimension = 60; ///< Map side in map units.
    int accuracy = 4;   ///< Grid points per map unit, and the number of erosion passes.
    int pointsPerSide = 240;
    std::unique_ptr<LevelDocument> document; ///< Never null; replaced by replaceDocument.
    bool overviewStale = false; ///< The orthographic projection must be set before the next overview paint.
    bool previewStale = false;  ///< The same of the perspective projection and the preview.
    bool reinitPending = false; ///< The next preview paint that sets the projection runs the whole set-up.
    bool normalsDirty = false;  ///< Heights were edited in the overview; stays set.
    bool preview = false;       ///< The mode: overview or preview.
    bool dragging = false;      ///< A mouse button is held in the overview.
    int viewWidth = 0;
    int viewHeight = 0;
    float zoom = 1.0F; ///< Camera distance factor.
    Matrix4 viewRotation;
    Trackball trackball;
    QPoint pendingPoint;     ///< Last overview position still to be turned into a cell; (0, 0) is none.
    CellPosition anchorCell; ///< Where the current overview drag began.
    std::unique_ptr<CellGrid> cells;
    bool randomGeo = false; ///< The terrain's flag of random geography: no height editing.

    float eyeHeight = 20.0F;              ///< Camera height, 1 to dimension.
    float lastY = 0;                      ///< Mouse y of the previous press or move in the preview.
    Point3 center;                        ///< The point the camera looks at and turns about.
    std::array<GLdouble, 16> modelview{}; ///< With projection and viewport: of the last preview frame.
    std::array<GLdouble, 16> projection{};
    std::array<GLint, 4> viewport{}; ///< In device pixels.

    /// Makes the document's terrain a flat one of the view's size.
    void buildTerrain(TerrainMesh *mesh);

    /// Binds cells and environment to the document's terrain, after either changed.
    void refreshTerrain();

    /// Smooths the whole terrain.
    void erodeTerrain();

    /// Destroys the document (with the view's context current) and takes the new one. The cells
    /// forget terrain and players in the same step; refreshTerrain binds them again.
    void replaceDocument(std::unique_ptr<LevelDocument> newDocument);

public slots:
    void setDirty(bool reinit);
    void changeWired();
    void changePreview();
    bool placePlayer(CharacterNode *player); ///< False where no selected cell is vacant.
    void updatePlayerPosition(CharacterNode *player);
    void updateTrackBallCenter();
    void resetCell();
    void setRandomGeo(bool random);
    bool getRandomGeo() const { return randomGeo; }

signals:
    /// The user raised or lowered the selected cells.
    void heightsChanged();

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool event(QEvent *event) override;

private:
    /// The size that stands in where there is no terrain.
    static constexpr int usualSide = 60;
    static constexpr int usualDensity = 4;

    double aspect() const;
    double scale(int logical) const;
    int mapSide() const;

    void setViewport();
    void paintOverview();
    void paintPreview();
    void setOverviewProjection();
    void setPreviewProjection();
    void setUpPreview();
    void setLightAndFog();
    void lookAtCenter();
    void setCulling() const;
    void makeOpaque() const;

    bool pickPendingPoint();
    void pickBeforeItIsReplaced();
    void recenter(const QPoint &position);
    void loadTile();
    void showCursor();

    void changeHeights(int steps);
    void zoomBy(int steps);
    void raiseEye(float by);

    bool cellKey(int key, bool extend);
    bool cameraKey(int key);
    void select(CellPosition anchor, CellPosition corner);
    void moveSelection(CellPosition step, bool extend);

    /// Text about the part of the view that it belongs to; empty where there is nothing to tell.
    struct Hint {
        QString text;
        QRect place;
    };
    Hint hintAt(const QPoint &position);
    QRect placeOf(CellPosition cell) const;

    bool setUpDone = false; ///< The three-dimensional set-up ran for this context and document.
    qreal paintedRatio = 0; ///< Device pixels per logical pixel at the last paint.
    bool tileStale = true;  ///< The tile must be read before the next overview paint.
    bool turning = false;   ///< A mouse button is held in the preview.
    WheelNotches notches;
    CellPosition selectionAnchor; ///< With the corner: what the user selected last, by mouse or key.
    CellPosition selectionCorner;
    QPointer<QFocusFrame> focusFrame; ///< A sibling, once the view had the focus.
};
