#include "models/CIGLPlayerWidget.h"

#include "environment/OpenGLSetup.h"
#include "environment/TextureUpload.h"
#include "models/Md2Model.h"

#include <GL/gl.h>
#include <GL/glu.h>
#include <QElapsedTimer>
#include <algorithm>
#include <array>

namespace {

struct PreviewModels {
    Md2Model character;
    Md2Model weapon;

    PreviewModels() = default;
    PreviewModels(const PreviewModels &) = delete;
    PreviewModels &operator=(const PreviewModels &) = delete;
    ~PreviewModels() {
        // The process ends, and the driver may be gone already: it frees the textures itself.
        character.textureId = 0;
        weapon.textureId = 0;
    }
};

PreviewModels &previewModels() {
    static PreviewModels models;
    return models;
}

/// Runs from the start of the process.
const QElapsedTimer processClock = [] {
    QElapsedTimer clock;
    clock.start();
    return clock;
}();

float secondsSinceStart() {
    return static_cast<float>(processClock.elapsed()) * 0.001F;
}

void restart(Md2Model &model) {
    model.framePosition = 0;
    model.startFrame = 0;
    model.endFrame = 39;
    model.speed = 2;
}

/// With smooth outlines where the driver can: nothing reads this view's depth back.
QSurfaceFormat smoothFormat() {
    QSurfaceFormat format = glSurfaceFormat();
    format.setSamples(4);
    return format;
}

/// Without this the window behind would shine through where the frame was cleared to no alpha.
void makeFrameOpaque() {
    glPushAttrib(GL_COLOR_BUFFER_BIT);
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_TRUE);
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glPopAttrib();
}

} // namespace

CIGLPlayerWidget::CIGLPlayerWidget(QWidget *parent, const QString &name) : QOpenGLWidget(parent) {
    setObjectName(name);
    setFormat(smoothFormat());
    refreshTimer_.setInterval(20);
    connect(&refreshTimer_, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

Md2Model &CIGLPlayerWidget::characterModel() {
    return previewModels().character;
}

Md2Model &CIGLPlayerWidget::weaponModel() {
    return previewModels().weapon;
}

void CIGLPlayerWidget::showEvent(QShowEvent *event) {
    QOpenGLWidget::showEvent(event);
    refreshTimer_.start();
}

void CIGLPlayerWidget::hideEvent(QHideEvent *event) {
    QOpenGLWidget::hideEvent(event);
    refreshTimer_.stop();
}

// Draws and clears nothing: when the toolkit calls it, the widget has no frame buffer yet.
void CIGLPlayerWidget::initializeGL() {
    Md2Model &character = characterModel();
    Md2Model &weapon = weaponModel();
    character.Load(modelPath, modelSkinPath);
    weapon.Load(weaponPath, weaponSkinPath);
    character.LoadSkin();
    weapon.LoadSkin();
    restart(character);
    restart(weapon);

    glClearColor(0.4F, 0.3F, 0.1F, 0.0F);
    constexpr std::array specular{0.4F, 0.4F, 0.4F, 1.0F};
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, specular.data());
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 1.0F);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glEnable(GL_COLOR_MATERIAL);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_NORMALIZE);
    glEnable(GL_DEPTH_TEST);
    glShadeModel(GL_SMOOTH);
}

void CIGLPlayerWidget::resizeGL(int width, int height) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(45.0, double(width) / std::max(height, 1), 3.0, 20.0);
    // In pixels of the frame buffer, whose size is rounded.
    glViewport(0, 0, qRound(width * devicePixelRatioF()), qRound(height * devicePixelRatioF()));
    glMatrixMode(GL_MODELVIEW);
}

void CIGLPlayerWidget::paintGL() {
    if (reloadPending) {
        initializeGL();
        forgetReportedPictures();
        reloadPending = false;
    }
    // The toolkit sets a viewport of its own before each paint, cut down where the frame buffer is
    // rounded up, and sends no size to a widget that is not shown.
    resizeGL(width(), height());
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glLoadIdentity();
    gluLookAt(2, 5, 12, 0, 0, 0, 0, 1, 0);
    glDisable(GL_LIGHTING);

    glPushMatrix();
    glTranslatef(0, -3, 0);
    glScalef(0.12F, 0.12F, 0.12F);
    glRotatef(-110, 0, 1, 0);
    glRotatef(-90, 1, 0, 0);
    characterModel().Animate(secondsSinceStart());
    weaponModel().Animate(secondsSinceStart());
    glPopMatrix();
    makeFrameOpaque();
}
