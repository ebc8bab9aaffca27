#include "environment/SkyBox.h"

#include "environment/CubeMapSupport.h"
#include "environment/GLErrors.h"
#include "map/math/Matrix4.h"

namespace {

struct Corner {
    float x;
    float y;
    float z;
};

/// Four corners, counter-clockwise as the eye in the middle of the floor sees them; of an upright side the
/// two in the middle are the lower ones.
using Side = std::array<Corner, 4>;

constexpr Side positiveX{{{1, 2, -1}, {1, 0, -1}, {1, 0, 1}, {1, 2, 1}}};
constexpr Side negativeX{{{-1, 2, 1}, {-1, 0, 1}, {-1, 0, -1}, {-1, 2, -1}}};
constexpr Side top{{{-1, 2, 1}, {-1, 2, -1}, {1, 2, -1}, {1, 2, 1}}};
constexpr Side bottom{{{-1, 0, -1}, {-1, 0, 1}, {1, 0, 1}, {1, 0, -1}}};
constexpr Side positiveZ{{{1, 2, 1}, {1, 0, 1}, {-1, 0, 1}, {-1, 2, 1}}};
constexpr Side negativeZ{{{-1, 2, -1}, {-1, 0, -1}, {1, 0, -1}, {1, 2, -1}}};

/// The same side as far below the floor as it stands above.
constexpr Side below(const Side &side) {
    Side result{};
    for (std::size_t i = 0; i < side.size(); ++i) {
        const Corner &corner = side[side.size() - 1 - i];
        result[i] = {corner.x, -corner.y, corner.z};
    }
    return result;
}

constexpr std::array<Side, 11> sides{
    positiveX,        negativeX,        top,        bottom,           positiveZ,       negativeZ,
    below(positiveX), below(negativeX), below(top), below(positiveZ), below(negativeZ)};

constexpr float boxSize = 10; ///< Beyond the near plane; depth is not written.

void drawSideByNormals(const Side &side) {
    glBegin(GL_QUADS);
    for (const Corner &corner : side) {
        glNormal3f(-corner.x, -corner.y, -corner.z);
        glVertex3f(corner.x, corner.y, corner.z);
    }
    glEnd();
}

/// A wall with the middle of its picture at the eye's height, and its quarter of the floor, over which the
/// picture's lowest row goes on.
void drawWall(const Side &side, GLuint picture) {
    constexpr std::array<std::array<float, 2>, 4> pictureCorners{{{1, 1}, {1, 0}, {0, 0}, {0, 1}}};
    constexpr float sunk = 1;
    glBindTexture(GL_TEXTURE_2D, picture);
    setSkyFilters(GL_TEXTURE_2D, "glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER)");
    const auto send = [&](std::size_t i) {
        glTexCoord2f(pictureCorners[i][0], pictureCorners[i][1]);
        glVertex3f(side[i].x, side[i].y - sunk, side[i].z);
    };
    glBegin(GL_QUADS);
    for (std::size_t i = 0; i < side.size(); ++i) {
        send(i);
    }
    glEnd();
    glBegin(GL_TRIANGLES);
    send(2);
    send(1);
    glTexCoord2f(0.5F, 0);
    glVertex3f(0, -sunk, 0);
    glEnd();
}

/// Texture coordinates follow the normals, which in this box point at the eye.
void generateCoordinatesFromNormals() {
    for (const GLenum coordinate : {GLenum{GL_S}, GLenum{GL_T}, GLenum{GL_R}}) {
        glTexGeni(coordinate, GL_TEXTURE_GEN_MODE, GL_NORMAL_MAP_ARB);
    }
    glEnable(GL_TEXTURE_GEN_S);
    glEnable(GL_TEXTURE_GEN_T);
    glEnable(GL_TEXTURE_GEN_R);
    // Normals cut to unit length would no longer vary evenly along a side: the picture would bend.
    glDisable(GL_NORMALIZE);
    glDisable(GL_RESCALE_NORMAL);
}

/// The box stays fixed to the view; the texture matrix turns the picture on it.
void drawSidesTurned(const Matrix4 &skyRotation) {
    Matrix4 viewToWorld = skyRotation;
    inverse(viewToWorld);
    glMatrixMode(GL_TEXTURE);
    glPushMatrix();
    glLoadIdentity();
    multiplyIntoGL(viewToWorld);
    for (const Side &side : sides) {
        drawSideByNormals(side);
    }
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
}

void drawCubeMap(GLuint cubeMap, const Matrix4 &skyRotation) {
    glMatrixMode(GL_MODELVIEW);
    glPushAttrib(GL_CURRENT_BIT | GL_ENABLE_BIT | GL_TEXTURE_BIT);
    glPushMatrix();
    glLoadIdentity();
    glScalef(boxSize, boxSize, boxSize);
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_1D);
    glDisable(GL_TEXTURE_2D);
    glEnable(GL_TEXTURE_CUBE_MAP_ARB);
    checkGLError("glEnable(GL_TEXTURE_CUBE_MAP_ARB);", "GL error");
    glBindTexture(GL_TEXTURE_CUBE_MAP_ARB, cubeMap);
    checkGLError("glBindTexture(GL_TEXTURE_CUBE_MAP_ARB,tiExt);", "GL error");
    glDepthMask(GL_FALSE);
    generateCoordinatesFromNormals();
    setSkyFilters(GL_TEXTURE_CUBE_MAP_ARB, "glTexParameterf(GL_TEXTURE_CUBE_MAP, GL_TEXTURE_MIN_FILTER)");
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    drawSidesTurned(skyRotation);
    glDisable(GL_TEXTURE_GEN_S);
    glDisable(GL_TEXTURE_GEN_T);
    glDisable(GL_TEXTURE_GEN_R);
    glDisable(GL_TEXTURE_CUBE_MAP_ARB);
    glDepthMask(GL_TRUE);
    glPopMatrix();
    glPopAttrib();
}

void drawWalls(const std::array<GLuint, 6> &faces, const Matrix4 &skyRotation) {
    glMatrixMode(GL_MODELVIEW);
    glPushAttrib(GL_CURRENT_BIT | GL_ENABLE_BIT | GL_TEXTURE_BIT);
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_1D);
    glEnable(GL_TEXTURE_2D);
    glDepthMask(GL_FALSE);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    glPushMatrix();
    glLoadIdentity();
    Matrix4 worldToView = skyRotation;
    multiplyIntoGL(worldToView);
    glScalef(boxSize, boxSize, boxSize);
    drawWall(positiveX, faces[0]);
    drawWall(negativeX, faces[1]);
    drawWall(positiveZ, faces[4]);
    drawWall(negativeZ, faces[5]);
    glDepthMask(GL_TRUE);
    glPopMatrix();
    glPopAttrib();
}

} // namespace

void drawSkyBox(const SkyTextures &sky, const Matrix4 &skyRotation) {
    if (cubeMapsAvailable()) {
        drawCubeMap(sky.cubeMap, skyRotation);
    } else {
        drawWalls(sky.faces, skyRotation);
    }
}
