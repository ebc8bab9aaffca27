#pragma once

#include "environment/OpenGLSetup.h"

#include <GL/glu.h>
#include <QImage>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <memory>

/// A square frame buffer with depth and a current context, for tests that look at pixels.
class OffscreenView {
public:
    static constexpr int side = 200;

    OffscreenView() {
        surface.setFormat(glSurfaceFormat());
        surface.create();
        context.setFormat(glSurfaceFormat());
        if (!context.create() || !context.makeCurrent(&surface)) {
            qFatal("no OpenGL");
        }
        frame = std::make_unique<QOpenGLFramebufferObject>(side, side,
                                                           QOpenGLFramebufferObject::CombinedDepthStencil);
        frame->bind();
        glViewport(0, 0, side, side);
    }

    /// Clears to magenta, which nothing in the tests draws.
    void clear() {
        glClearColor(1, 0, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    }

    /// Taking it forgets OpenGL's errors, so there may be none.
    QImage picture() {
        if (const GLenum error = glGetError(); error != GL_NO_ERROR) {
            qFatal("OpenGL error %x", error);
        }
        return frame->toImage();
    }

    QOffscreenSurface surface;
    QOpenGLContext context;

private:
    std::unique_ptr<QOpenGLFramebufferObject> frame;
};

inline bool closeTo(const QColor &a, const QColor &b) {
    return std::abs(a.red() - b.red()) <= 3 && std::abs(a.green() - b.green()) <= 3 &&
           std::abs(a.blue() - b.blue()) <= 3;
}
