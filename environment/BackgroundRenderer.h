#pragma once

#include "environment/BackgroundContent.h"
#include "environment/SkyTextures.h"
#include "map/math/Matrix4.h"

#include <GL/gl.h>
#include <array>
#include <cstdint>

/// What surrounds the terrain, with what it takes to draw it: sky box, ground frame, outline and
/// water plane.
class BackgroundRenderer : public BackgroundContent {
public:
    BackgroundRenderer();
    BackgroundRenderer(const BackgroundRenderer &) = delete;
    BackgroundRenderer &operator=(const BackgroundRenderer &) = delete;

    SkyTextures skyTextures;
    float groundScaleHeight = 10.0F; ///< Height of the ground list's own translation and scale.

    int density = 4;    ///< Grid points per map unit, copied from the terrain.
    int dimension = 60; ///< Side of the map in map units, copied from the terrain.

    Matrix4 skyRotation; ///< The view's rotation without translation and scale, of the last frame.
    std::array<float, 3> skyTint{1, 1, 1};
    Matrix4 groundModelview; ///< The modelview right after the ground list, for the second pass.
    GLuint groundTextureObject = 0;
    GLuint waterTextureObject = 0;
    GLuint firstList = 0; ///< Ground list; the water list and the outline list follow.

    /// Stores the terrain's size, and resets skyRotation and skyTint until the next set-up.
    void setMapSize(int newDensity, int newDimension);

    void setSunColor(float r, float g, float b);

    /// skyTint from dayTime.
    void updateSkyTint();

    void setGroundTexture(const QString &fileName) { groundTexture = fileName; }
    void setCubeTexture(const QString &fileName) { cubeTexture = fileName; }
    void setBirdTexture(const QString &fileName) { birdTexture = fileName; }
    void setWaterTexture(const QString &fileName) { waterTexture = fileName; }

    /// Loads the textures and compiles the display lists, again into the names of the last time.
    /// With fog on the sky is left alone; without water its list is. Needs a current context.
    void initGL();

    /// First pass: sky box (unless there is fog), ground frame and outline, under the current
    /// modelview, which holds the camera. Leaves the current colour white. Needs a current context.
    virtual void drawSkyAndGround(float t);

    /// Second pass: the water plane, blended, where water is on. Relies on the first pass of the
    /// same frame. `t` moves the water's picture. Leaves blending and 2-D textures off and the
    /// culling of back faces on. Needs a current context.
    virtual void drawWater(float t);

    /// The sky alone, in the current colour, turned by skyRotation. Needs a current context.
    void drawSkyBox() const;

    /// Where the moving water starts; drawn by lot with every construction, shared by all.
    static inline std::int32_t waterScrollOffset = 0;

protected:
    /// Deletes textures and lists if a context is current. Not virtual: BackgroundNode owns the object.
    ~BackgroundRenderer();

private:
    void loadTextures();
    void compileLists();
    void updateSkyRotation();
    void drawGroundAndOutline();
};
