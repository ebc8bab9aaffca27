#pragma once

#include <GL/gl.h>
#include <array>

/// The OpenGL names of a sky: one cube map, or six pictures where cube maps are not available.
/// 0 stands for "none yet".
struct SkyTextures {
    GLuint cubeMap = 0;
    std::array<GLuint, 6> faces{};
};
