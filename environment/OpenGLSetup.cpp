#include "environment/OpenGLSetup.h"

#include <GL/gl.h>
#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <cstdio>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

/// What the context, which is current, lacks; as missingOpenGL says it. A driver may give less than
/// it was asked for.
QString missingIn(const QOpenGLContext &context) {
    int major = context.format().majorVersion();
    int minor = context.format().minorVersion();
    const auto *const version = reinterpret_cast<const char *>(glGetString(GL_VERSION));
    const bool told = version != nullptr && std::sscanf(version, "%d.%d", &major, &minor) == 2;
    if (!told || major < 2 || (major == 2 && minor < 1)) {
        return QStringLiteral("only OpenGL %1.%2 is available, 2.1 is needed").arg(major).arg(minor);
    }
    GLint profile = GL_CONTEXT_COMPATIBILITY_PROFILE_BIT;
    if (major > 3 || (major == 3 && minor >= 2)) {
        glGetIntegerv(GL_CONTEXT_PROFILE_MASK, &profile);
    }
    if ((profile & GL_CONTEXT_CORE_PROFILE_BIT) != 0) {
        return QStringLiteral("only OpenGL's core profile is available, the compatibility profile is needed");
    }
    return {};
}

/// Blocks of a picture's size go back to the system when they are freed. Left to itself the allocator
/// raises the threshold with the first such block, and keeps what lies between the next ones for ever.
void giveLargeBlocksBack() {
#ifdef __GLIBC__
    constexpr int bytes = 1 << 18;
    mallopt(M_MMAP_THRESHOLD, bytes);
    mallopt(M_TRIM_THRESHOLD, bytes);
#endif
}

} // namespace

void prepareApplication() {
    giveLargeBlocksBack();
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
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        // It makes contexts, but the toolkit crashes where it puts OpenGL into a window.
        return QStringLiteral("the platform \"offscreen\" shows no OpenGL");
    }
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
    const QString missing = missingIn(context);
    context.doneCurrent();
    return missing;
}

bool hasCurrentGLContext() {
    return QOpenGLContext::currentContext() != nullptr;
}
