#pragma once

#include "tools/assets/pictures/Field.h"
#include "tools/assets/pictures/Noise.h"

#include <vector>

/// One stone: an irregular dome lying on the ground.
struct Stone {
    glm::vec2 centre{};
    float size = 10; ///< Half its length, in texels.
    float turn = 0;
    float slim = 0.8F;    ///< Width over length.
    float corners = 0.1F; ///< How far the outline leaves the ellipse.
    std::uint32_t seed = 0;
};

/// What lies on the ground, texel by texel.
struct StoneLayer {
    explicit StoneLayer(int side) : height(side), owner(side, -1), rim(side) {}

    Field height;     ///< In texels; the ground is at 0.
    Torus<int> owner; ///< Index of the stone, -1 for the ground.
    Field rim;        ///< 0 in the middle of a stone, 1 at its outline.
};

/// Sizes from `smallest` to `largest` (mostly small), placed without touching more than `overlap` of
/// their radii; gives up on a place after some tries, so `count` is the most there can be.
std::vector<Stone> scatterStones(int side, int count, float smallest, float largest, float overlap,
                                 Random &random);

/// Adds the stones; of two at one texel the higher shows. `squareness` 2 is a round dome, more is flatter.
void layStones(StoneLayer &layer, const std::vector<Stone> &stones, float squareness);
