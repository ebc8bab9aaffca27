#pragma once

#include <GL/gl.h>
#include <QString>
#include <array>

/// The OpenGL names of a sky: one cube map, or a picture for each wall where cube maps are not available.
/// 0 stands for "none". The faces stand in the order negx, posx, negy, posy, negz, posz.
struct SkyTextures {
    GLuint cubeMap = 0;
    std::array<GLuint, 6> faces{};
};

/// Turns a sky's base file name into that of one face (0 to 5): "sky/mount.jpg" and face 0 give
/// "sky/mount_negx.jpg". The last four characters count as the extension. Always true.
bool cubeFaceFileName(int face, QString &name);

/// Filters of a sky's texture, bound to the target; an OpenGL error is shown with the call's name. Its edges
/// are clamped: repeated, each would be blended with the opposite edge and show as a line.
void setSkyFilters(GLenum target, const char *checkedCall);

/// Reads the faces of the sky with that base file name (UTF-8) into the cube map, or, where there
/// are no cube maps, the four walls (negx, posx, negz, posz) into pictures of their own; a face whose file
/// is still what the texture shows is not read. Names are shared, see shareTexture. False where a face
/// cannot be read: it and those after it become empty, so that nothing of an earlier sky shows. A null
/// name gives false and touches nothing. Needs a current context; OpenGL errors go to checkGLError.
bool loadSkyTextures(SkyTextures &sky, const char *baseName);
