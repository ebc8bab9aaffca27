#include "environment/BackgroundRenderer.h"

#include "environment/MipmappedTexture.h"
#include "environment/OpenGLSetup.h"
#include "environment/SharedTextures.h"
#include "environment/SkyBox.h"
#include "environment/SurroundingsLists.h"
#include "map/math/Vec3.h"

#include <cmath>
#include <cstdlib>

namespace {

constexpr GLsizei listCount = 3;

/// -49999 to 48999.
std::int32_t drawScrollOffset() {
    constexpr double step = 0.02F;
    return static_cast<std::int32_t>((std::rand() % 100 - 50) * step * 50000.0);
}

/// The size the lists are made for. An empty grid has surroundings too: those of the usual map.
SurroundingsSize surroundingsSize(int dimension, int density, float height) {
    const bool empty = dimension <= 0 || density <= 0;
    return {empty ? 60 : dimension, empty ? 4 : density, height};
}

/// The texture matrix of the water: five repeats, a quarter turn, then the scrolling.
Matrix4 waterTextureMatrix(float shift) {
    Matrix4 result;
    Matrix4 turn;
    Matrix4 move;
    scale(result, 5, 5, 1);
    rotation(turn, 90, {0, 0, 1});
    translation(move, shift, 0, 0);
    multiply(result, result, turn);
    multiply(result, result, move);
    return result;
}

} // namespace

BackgroundRenderer::BackgroundRenderer() {
    setDiagonal(skyRotation, 1);
    setDiagonal(groundModelview, 1);
    waterScrollOffset = drawScrollOffset();
}

BackgroundRenderer::~BackgroundRenderer() {
    if (!hasCurrentGLContext()) {
        return;
    }
    // Deleting lists 0, 1 and 2 would free somebody else's.
    if (firstList != 0) {
        glDeleteLists(firstList, listCount);
    }
    releaseTexture(groundTextureObject);
    releaseTexture(waterTextureObject);
    releaseTexture(skyTextures.cubeMap);
    for (GLuint &face : skyTextures.faces) {
        releaseTexture(face);
    }
}

void BackgroundRenderer::setMapSize(int newDensity, int newDimension) {
    density = newDensity;
    dimension = newDimension;
    setDiagonal(skyRotation, 1);
    skyTint = {1, 1, 1};
}

void BackgroundRenderer::setSunColor(float r, float g, float b) {
    sunColor = {r, g, b, 1};
}

void BackgroundRenderer::updateSkyTint() {
    constexpr std::array<float, 3> night{0.1F, 0.1F, 0.3F};
    constexpr std::array<float, 3> dusk{0.3F, 0.3F, 0.4F};
    constexpr std::array<float, 3> low{0.65F, 0.45F, 0.3F};
    constexpr std::array<float, 3> slanting{0.8F, 0.7F, 0.6F};
    constexpr std::array<float, 3> high{1, 1, 1};
    struct Span {
        int until; ///< First day time after the span.
        std::array<float, 3> tint;
    };
    constexpr std::array<Span, 8> spans{{{10, night},
                                         {30, dusk},
                                         {50, low},
                                         {70, slanting},
                                         {111, high},
                                         {131, slanting},
                                         {151, low},
                                         {171, dusk}}};
    skyTint = night;
    for (const Span &span : spans) {
        if (dayTime < span.until) {
            skyTint = span.tint;
            return;
        }
    }
}

void BackgroundRenderer::initGL() {
    loadTextures();
    compileLists();
    if (!fog) {
        loadSkyTextures(skyTextures, cubeTexture.toUtf8().constData());
        updateSkyTint();
    }
}

void BackgroundRenderer::loadTextures() {
    glPushAttrib(GL_ENABLE_BIT);
    loadMipmappedTexture(groundTextureObject, groundTexture);
    loadMipmappedTexture(waterTextureObject, waterTexture);
    glPopAttrib();
}

void BackgroundRenderer::compileLists() {
    if (firstList == 0) {
        firstList = glGenLists(listCount);
    }
    if (firstList == 0) {
        return;
    }
    const SurroundingsSize size = surroundingsSize(dimension, density, groundScaleHeight);
    compileGroundList(firstList, size);
    if (water) {
        compileWaterList(firstList + 1, size);
    }
    compileOutlineList(firstList + 2, size);
}

void BackgroundRenderer::drawSkyAndGround(float) {
    if (!fog) {
        updateSkyRotation();
        glColor3fv(skyTint.data());
        drawSkyBox();
    }
    drawGroundAndOutline();
}

void BackgroundRenderer::updateSkyRotation() {
    Matrix4 view;
    readModelview(view);
    view[3] = view[7] = view[11] = 0;
    view[15] = 1;
    const double volume = determinant(view);
    const double factor = volume > 0 ? 1 / std::pow(volume, 0.3333333333333333) : 1;
    const auto unscale = static_cast<float>(factor);
    Matrix4 unit;
    scale(unit, unscale, unscale, unscale);
    multiply(view, skyRotation, unit);
}

void BackgroundRenderer::drawSkyBox() const {
    ::drawSkyBox(skyTextures, skyRotation);
}

void BackgroundRenderer::drawGroundAndOutline() {
    constexpr std::array<float, 3> outlineColor{0.4F, 0.4F, 0.4F};
    glColor3fv(groundColor.data());
    glPushAttrib(GL_CURRENT_BIT | GL_ENABLE_BIT | GL_TEXTURE_BIT);
    glMatrixMode(GL_TEXTURE);
    glPushMatrix();
    glLoadIdentity();
    glScalef(5, 5, 1);
    glRotatef(90, 0, 0, 1);
    glMatrixMode(GL_MODELVIEW);
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, groundTextureObject);
    glPushMatrix();
    if (firstList != 0) {
        glCallList(firstList);
    }
    readModelview(groundModelview);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_LIGHTING);
    // Otherwise the material follows the outline's colour, and with some drivers does not return with
    // glPopAttrib: what is drawn next in the ground's colour would be this grey.
    glDisable(GL_COLOR_MATERIAL);
    glColor3fv(outlineColor.data());
    if (firstList != 0) {
        glCallList(firstList + 2);
    }
    glPopMatrix();
    glMatrixMode(GL_TEXTURE);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopAttrib();
    glColor3f(1, 1, 1);
}

void BackgroundRenderer::drawWater(float t) {
    if (!water) {
        return;
    }
    glDisable(GL_CULL_FACE);
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, waterTextureObject);
    glMatrixMode(GL_TEXTURE);
    glPushMatrix();
    Matrix4 picture = waterTextureMatrix(t / (static_cast<float>(waterScrollOffset) + 250000.0F));
    loadIntoGL(picture);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    Matrix4 lower;
    translation(lower, 0, -0.03F, 0);
    multiply(groundModelview, groundModelview, lower);
    loadIntoGL(groundModelview);
    glEnable(GL_BLEND);
    // Water is added to what lies below, which has its fog already: in the distance it adds nothing.
    constexpr std::array<GLfloat, 4> noLight{};
    glPushAttrib(GL_FOG_BIT);
    glFogfv(GL_FOG_COLOR, noLight.data());
    glColor3fv(waterColor.data());
    if (firstList != 0) {
        glCallList(firstList + 1);
    }
    glPopAttrib();
    glDisable(GL_BLEND);
    glPopMatrix();
    glDisable(GL_TEXTURE_2D);
    glMatrixMode(GL_TEXTURE);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glEnable(GL_CULL_FACE);
}
