#pragma once

#include <QString>
#include <QSurfaceFormat>

/// Sets what the toolkit and the allocator must know before the application object exists. Every main()
/// calls it first.
void prepareApplication();

/// The surface every OpenGL widget of the program asks for: version 2.1 in the compatibility
/// profile, depth 24, stencil 8, no multisampling. (Asked for 3.0 or later, some drivers answer
/// with a core context; with several samples, depth cannot be read back.)
QSurfaceFormat glSurfaceFormat();

/// An empty text where an OpenGL context of that format can be made, otherwise one line that
/// names what is missing. Needs the application object. A window that holds an OpenGL widget
/// crashes inside the toolkit where there is none, so ask first.
QString missingOpenGL();

/// Whether OpenGL may be called now. Nodes that are built or destroyed without a view (by tests
/// and tools) skip their OpenGL work.
bool hasCurrentGLContext();
