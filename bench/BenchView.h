#pragma once

#include "map/GLMapWidget.h"
#include "map/MeshNode.h"
#include "scene/LevelDocument.h"

#include <QCoreApplication>
#include <QWindow>

/// A map view in preview, in a window of its own, whose frames are drawn on demand.
class BenchView : public GLMapWidget {
public:
    explicit BenchView(int side) {
        resize(side, side);
        changePreview();
        show();
        // Context, frame buffer and size are there when the window was shown and painted.
        while (!windowHandle()->isExposed() || viewWidth == 0) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    /// Shows a level that has a terrain, from the camera's first place.
    void showLevel(std::unique_ptr<LevelDocument> level) {
        dimension = level->mesh->dimension;
        accuracy = level->mesh->density;
        replaceDocument(std::move(level));
        refreshTerrain();
        updateTrackBallCenter();
    }

    /// Draws one frame and waits until it is finished.
    void drawFrame() {
        makeCurrent();
        paintGL();
        glFinish();
    }
};
