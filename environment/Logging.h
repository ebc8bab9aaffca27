#pragma once

#include <QLoggingCategory>

/// "druvelk.opengl": what the driver lacks or reports.
Q_DECLARE_LOGGING_CATEGORY(openGLLog)

/// "druvelk.textures": pictures that cannot be used, and for debugging each that is read.
Q_DECLARE_LOGGING_CATEGORY(texturesLog)
