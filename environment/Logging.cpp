#include "environment/Logging.h"

Q_LOGGING_CATEGORY(openGLLog, "druvelk.opengl")
Q_LOGGING_CATEGORY(texturesLog, "druvelk.textures", QtInfoMsg)
