#pragma once

#include <glm/glm.hpp>
#include <vector>

struct AtlasLayout {
    float density = 0.0f;            ///< Texels for one unit.
    std::vector<glm::ivec2> corners; ///< Upper left corner of each rectangle, in texels.
};

/// Places rectangles, given in units, side by side in a square of `side` texels with a margin
/// around each, as large as they fit.
AtlasLayout packAtlas(const std::vector<glm::vec2> &sizes, unsigned side);
