#pragma once

#include "tools/assets/pictures/Field.h"
#include "tools/assets/pictures/Noise.h"

#include <vector>

/// How a layer of grass looks; lengths in texels.
struct GrassLook {
    int tufts = 1500;
    int bladesPerTuft = 9;
    float shortest = 22;
    float longest = 60;
    float thickest = 2.4F;
    float spread = 9; ///< How far a tuft's blades stand from its middle.
    std::vector<glm::vec3> colors;
    glm::vec3 root{}; ///< What a blade's colour darkens to at its root.
};

/// Draws tufts of blades over the picture, from the lowest and darkest to the highest. `cover` says from
/// 0 to 1 how likely a tuft stands at a place.
void drawGrass(Picture &picture, const GrassLook &look, const Field &cover, Random &random);

/// One blade that grows from `root` toward `angle`.
void drawBlade(Picture &picture, glm::vec2 root, float angle, float length, float thickness,
               glm::vec3 rootColor, glm::vec3 tipColor, Random &random);

/// Blends `color` over the texel.
inline void blend(Picture &picture, int x, int y, glm::vec3 color, float coverage) {
    glm::vec3 &under = picture.at(x, y);
    under = glm::mix(under, color, coverage);
}
