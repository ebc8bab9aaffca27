#include "environment/OpenGLSetup.h"

#include <QCoreApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>

void prepareApplication() {
    // One name space for textures and display lists across the window and its dialogs.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QCoreApplication::setAttribute(Qt::AA_UseDesktopOpenGL);
}

QSurfaceFormat glSurfaceFormat() {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setVersion(2, 1);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setDepthBufferSize(24);
    format.setStencilBufferSize(8);
    format.setSamples(0);
    return format;
}

QString missingOpenGL() {
    QOpenGLContext context;
    context.setFormat(glSurfaceFormat());
    if (!context.create()) {
        return QStringLiteral("no OpenGL 2.1 compatibility context can be created");
    }
    if (context.isOpenGLES()) {
        return QStringLiteral("only OpenGL ES is available, desktop OpenGL is needed");
    }
    QOffscreenSurface surface;
    surface.setFormat(context.format());
    surface.create();
    if (!surface.isValid() || !context.makeCurrent(&surface)) {
        return QStringLiteral("the OpenGL context cannot be made current");
    }
    context.doneCurrent();
    return {};
}

bool hasCurrentGLContext() {
    return QOpenGLContext::currentContext() != nullptr;
}
