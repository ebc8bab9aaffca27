#include "environment/GLErrors.h"

#include "environment/Logging.h"

#include <GL/gl.h>
#include <QCoreApplication>
#include <QMessageBox>
#include <QOpenGLContext>
#include <QQueue>
#include <QSet>
#include <utility>

namespace {

struct Message {
    QString caption;
    QString text;

    bool operator==(const Message &) const = default;
};

/// The boxes that paints asked for, and what keeps them from piling up.
struct Boxes {
    int paintDepth = 0;
    bool open = false; ///< A box is on the screen; the queue waits for it to close.
    QQueue<Message> waiting;
    QSet<QString> shownTexts; ///< Shown or queued since the set-up began.
};

Boxes &boxes() {
    static Boxes instance;
    return instance;
}

const char *suffixOf(GLenum error) {
    switch (error) {
    case GL_INVALID_ENUM:
        return ": invalid enum";
    case GL_INVALID_VALUE:
        return ": invalid value";
    case GL_INVALID_OPERATION:
        return ": invalid operation";
    case GL_STACK_OVERFLOW:
        return ": stack overflow";
    case GL_STACK_UNDERFLOW:
        return ": stack underflow";
    case GL_OUT_OF_MEMORY:
        return ": out of memory";
    default:
        return nullptr;
    }
}

void showBox(const Message &message) {
    QMessageBox::warning(nullptr, message.caption, message.text);
}

/// Shows the waiting boxes one after another. A box runs the event loop, whose paints may queue
/// more: those are left to the call that is already showing.
void showWaiting() {
    if (boxes().open) {
        return;
    }
    boxes().open = true;
    while (!boxes().waiting.isEmpty()) {
        // It stays at the head while it shows, so that a new set-up does not queue it behind itself.
        const Message message = boxes().waiting.head();
        showBox(message);
        boxes().waiting.dequeue();
    }
    boxes().open = false;
}

void showWaitingLater() {
    QMetaObject::invokeMethod(QCoreApplication::instance(), showWaiting, Qt::QueuedConnection);
}

/// The caller goes on with OpenGL work, so it gets back the context that paints behind the box took away.
void showAtOnce(const Message &message) {
    QOpenGLContext *const context = QOpenGLContext::currentContext();
    QSurface *const surface = context != nullptr ? context->surface() : nullptr;
    const bool another = std::exchange(boxes().open, true);
    showBox(message);
    boxes().open = another;
    if (context != nullptr && QOpenGLContext::currentContext() != context) {
        context->makeCurrent(surface);
    }
    showWaitingLater();
}

void queueBox(const Message &message) {
    if (boxes().shownTexts.contains(message.text)) {
        return;
    }
    boxes().shownTexts.insert(message.text);
    if (!boxes().waiting.contains(message)) {
        boxes().waiting.enqueue(message);
        showWaitingLater();
    }
}

/// Errors of a lost context never end, so there is a limit.
void dropPendingErrors() {
    for (int i = 0; i < 16; ++i) {
        const GLenum error = glGetError();
        if (error == GL_NO_ERROR) {
            return;
        }
        qCWarning(openGLLog) << "error" << Qt::hex << error << "was pending before the paint";
    }
}

} // namespace

void checkGLError(const char *call, const char *caption) {
    const GLenum error = glGetError();
    const char *suffix = error == GL_NO_ERROR ? nullptr : suffixOf(error);
    if (suffix == nullptr) {
        return;
    }
    const Message message{QString::fromUtf8(caption), QString::fromUtf8(call) + QLatin1String(suffix)};
    if (boxes().paintDepth > 0) {
        queueBox(message);
    } else {
        showAtOnce(message);
    }
}

GLErrorPaintScope::GLErrorPaintScope() {
    ++boxes().paintDepth;
    dropPendingErrors();
}

GLErrorPaintScope::~GLErrorPaintScope() {
    --boxes().paintDepth;
}

void beginGLErrorSetUp() {
    boxes().shownTexts.clear();
}
