#pragma once

/// Reads one pending OpenGL error and shows it: a warning box without parent, titled `caption`,
/// whose text is `call` followed by what went wrong (": invalid enum"). Nothing is shown where no
/// error is pending; a code that OpenGL does not define is dropped silently. Both texts are UTF-8.
/// Needs a current context.
///
/// Outside a paint the box shows at once and the call returns when it is closed. While a
/// GLErrorPaintScope lives the call returns at once: the box waits for the event loop, boxes come
/// one after another, and a text that was shown since the last beginGLErrorSetUp is not repeated.
void checkGLError(const char *call, const char *caption);

/// Marks its lifetime as "inside a paint", since a modal box would paint again from within. Create
/// one at the start of paintGL, with the context current. Errors that are pending then come from
/// somebody else; they are logged to "druvelk.opengl" and dropped. Scopes may nest.
class GLErrorPaintScope {
public:
    GLErrorPaintScope();
    GLErrorPaintScope(const GLErrorPaintScope &) = delete;
    GLErrorPaintScope &operator=(const GLErrorPaintScope &) = delete;
    ~GLErrorPaintScope();
};

/// Call when the OpenGL set-up starts anew: a text that was shown before may show once more.
void beginGLErrorSetUp();
