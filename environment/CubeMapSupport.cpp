#include "environment/CubeMapSupport.h"

#include "environment/Logging.h"
#include "environment/OpenGLSetup.h"

// The only file that includes this header: it does not get along with the toolkit's own OpenGL headers.
#include <GL/glew.h>

namespace {

/// What the loader answers under Wayland, where there is no GLX; its flags are set all the same.
constexpr GLenum noGlxDisplay = 4;

void initialiseGlew() {
    const GLenum result = glewInit();
    if (result != GLEW_OK && result != noGlxDisplay) {
        qCWarning(openGLLog) << "the extensions cannot be read, result" << result;
    }
}

} // namespace

bool cubeMapsAvailable() {
    static bool initialised = false;
    if (!initialised && hasCurrentGLContext()) {
        initialised = true;
        initialiseGlew();
    }
    return GLEW_ARB_texture_cube_map != 0;
}
