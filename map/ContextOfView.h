#pragma once

#include <QOpenGLContext>
#include <QOpenGLWidget>

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
