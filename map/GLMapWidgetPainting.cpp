#include "environment/BackgroundNode.h"
#include "environment/GLErrors.h"
#include "environment/TextureUpload.h"
#include "map/GLMapWidget.h"
#include "map/MeshNode.h"
#include "scene/LevelDocument.h"

#include <GL/glu.h>
#include <cmath>

namespace {

constexpr double fieldOfView = 60;
constexpr double nearPlane = 1;
constexpr double farPlanePerSide = 3;
constexpr float farthestZoom = 1.6F;
constexpr float fogDensity = 0.015F;

} // namespace

void GLMapWidget::initializeGL() {
    // A new context: nothing of the three-dimensional set-up is in it yet.
    setUpDone = false;
    overviewStale = true;
    previewStale = true;
    tileStale = true;
    if (preview) {
        reinitPending = true;
    } else {
        loadTile();
    }
}

void GLMapWidget::resizeGL(int width, int height) {
    viewWidth = width;
    viewHeight = height;
    overviewStale = true;
    previewStale = true;
    trackball.resize(width, height);
}

void GLMapWidget::paintGL() {
    if (paintedRatio != devicePixelRatioF()) {
        paintedRatio = devicePixelRatioF();
        overviewStale = true;
        previewStale = true;
    }
    const GLErrorPaintScope insideAPaint;
    // A view that is painted without ever having been shown was not told its size.
    if (viewWidth != width() || viewHeight != height()) {
        resizeGL(width(), height());
    }
    setViewport();
    if (preview) {
        paintPreview();
    } else {
        paintOverview();
    }
    makeOpaque();
}

/// A logical length as device pixels, as the toolkit sizes the frame buffer.
double GLMapWidget::scale(int logical) const {
    return std::round(logical * devicePixelRatioF());
}

double GLMapWidget::aspect() const {
    return viewWidth > 0 && viewHeight > 0 ? static_cast<double>(viewWidth) / viewHeight : 1.0;
}

int GLMapWidget::mapSide() const {
    return document->mesh != nullptr && !document->mesh->vertices.empty() ? document->mesh->dimension
                                                                          : usualSide;
}

/// The toolkit's own viewport is cut off where the frame buffer is rounded.
void GLMapWidget::setViewport() {
    glViewport(0, 0, static_cast<GLsizei>(scale(viewWidth)), static_cast<GLsizei>(scale(viewHeight)));
}

/// Compositors take the frame's alpha at its word; the picture is meant to be solid.
void GLMapWidget::makeOpaque() const {
    std::array<GLfloat, 4> clearColor{};
    glGetFloatv(GL_COLOR_CLEAR_VALUE, clearColor.data());
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_TRUE);
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glClearColor(clearColor[0], clearColor[1], clearColor[2], clearColor[3]);
}

void GLMapWidget::setOverviewProjection() {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    const double a = aspect();
    if (a < 1) {
        glOrtho(-1, 1, -1 / a, 1 / a, -1, 1);
    } else {
        glOrtho(-a, a, -1, 1, -1, 1);
    }
    glMatrixMode(GL_MODELVIEW);
    overviewStale = false;
    glDisable(GL_LIGHTING);
}

void GLMapWidget::paintOverview() {
    if (tileStale) {
        loadTile();
    }
    if (overviewStale) {
        setOverviewProjection();
    }
    glLoadIdentity();
    glClearColor(0, 0, 0, 0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT | GL_ACCUM_BUFFER_BIT);
    glPushMatrix();
    cells->drawOverview();
    if (dragging && !pendingPoint.isNull() && pickPendingPoint()) {
        // This frame was drawn before the selection changed.
        update();
    }
    glPopMatrix();
    glDisable(GL_TEXTURE_2D);
}

void GLMapWidget::setPreviewProjection() {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(fieldOfView, aspect(), nearPlane, farPlanePerSide * mapSide());
    glMatrixMode(GL_MODELVIEW);
    previewStale = false;
    if (reinitPending) {
        setUpPreview();
        reinitPending = false;
        return;
    }
    setLightAndFog();
    if (normalsDirty && document->mesh != nullptr) {
        document->mesh->computeNormals();
    }
}

/// Everything the preview needs from OpenGL: state, textures and lists of the nodes, normals.
void GLMapWidget::setUpPreview() {
    beginGLErrorSetUp();
    setLightAndFog();
    document->root.initGL();
    forgetReportedPictures();
    if (document->mesh != nullptr) {
        document->mesh->computeNormals();
    }
    setUpDone = true;
}

void GLMapWidget::setLightAndFog() {
    constexpr std::array<GLenum, 5> capabilities{GL_LIGHT0, GL_LIGHTING, GL_NORMALIZE, GL_DEPTH_TEST,
                                                 GL_COLOR_MATERIAL};
    for (const GLenum capability : capabilities) {
        glEnable(capability);
    }
    glShadeModel(GL_SMOOTH);
    glDepthFunc(GL_LEQUAL);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE);
    const BackgroundNode *background = document->background;
    if (background == nullptr) {
        return;
    }
    const auto &sun = background->sunColor;
    glLightfv(GL_LIGHT0, GL_DIFFUSE, sun.data());
    if (!background->fog) {
        glClearColor(0, 0, 0, 1);
        glDisable(GL_FOG);
        return;
    }
    glClearColor(sun[0], sun[1], sun[2], 1);
    glFogfv(GL_FOG_COLOR, sun.data());
    glFogi(GL_FOG_MODE, GL_EXP);
    glFogf(GL_FOG_DENSITY, fogDensity);
    glHint(GL_FOG_HINT, GL_DONT_CARE);
    glFogf(GL_FOG_START, 1.0F);
    glFogf(GL_FOG_END, 10.0F);
    glEnable(GL_FOG);
}

void GLMapWidget::lookAtCenter() {
    zoom = std::min(zoom, farthestZoom);
    const double distance = mapSide() * static_cast<double>(zoom);
    glLoadIdentity();
    gluLookAt(distance, static_cast<double>(eyeHeight), -distance, 0, 0, 0, 0, 1, 0);
    multiplyIntoGL(viewRotation);
    glTranslated(-center.x, -center.y, -center.z);
}

/// The water's drawing leaves culling switched on: from the first frame on, and only with water.
void GLMapWidget::setCulling() const {
    if (document->background != nullptr && document->background->water) {
        glEnable(GL_CULL_FACE);
    } else {
        glDisable(GL_CULL_FACE);
    }
}

void GLMapWidget::paintPreview() {
    if (previewStale) {
        setPreviewProjection();
    }
    const BackgroundNode *background = document->background;
    glClearColor(0, 0, 0, 1);
    if (background != nullptr && background->fog) {
        glClearColor(background->sunColor[0], background->sunColor[1], background->sunColor[2], 1);
    }
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);

    lookAtCenter();
    const double angle = degreesToRadians(background != nullptr ? background->dayTime % 360 : 0);
    const std::array<GLfloat, 4> sun{static_cast<GLfloat>(std::cos(angle)),
                                     static_cast<GLfloat>(std::sin(angle)), 0, 0};
    // Placed after the camera: the sun stands still in the world.
    glLightfv(GL_LIGHT0, GL_POSITION, sun.data());
    glGetDoublev(GL_MODELVIEW_MATRIX, modelview.data());
    glGetDoublev(GL_PROJECTION_MATRIX, projection.data());
    glGetIntegerv(GL_VIEWPORT, viewport.data());
    setCulling();
    document->draw(0.0F);
    document->drawSecondPass(0.0F);
    glFlush();
}
