#include "tools/assets/pictures/Tile.h"

#include "tools/assets/pictures/Noise.h"

#include <algorithm>

Picture cellTile() {
    constexpr int side = 128;
    constexpr float margin = 0.05F * side;
    Picture tile(side);
    tile.fill([](glm::vec2 uv) {
        const glm::vec2 p = uv * static_cast<float>(side);
        const float left = p.x - margin;
        const float top = p.y - margin;
        const float right = static_cast<float>(side) - margin - p.x;
        const float bottom = static_cast<float>(side) - margin - p.y;
        const float inside = std::min(std::min(left, top), std::min(right, bottom));
        // A dark joint, then a bevel that is brighter toward the upper left. What lies outside is as
        // bright as the cell: in a small view its texels blend into the border, unevenly.
        const float joint = inside < 0 ? 1.0F : glm::smoothstep(0.0F, 2.6F, inside);
        const float bevel = 1.0F - glm::smoothstep(2.0F, 9.0F, inside);
        const bool lit = std::min(left, top) < std::min(right, bottom);
        const float body = 0.935F + 0.012F * fractalNoise(uv, 16, 4, 901);
        const float shade = lit ? glm::mix(body, 1.0F, bevel) : glm::mix(body, 0.80F, bevel);
        return glm::vec3(shade * glm::mix(0.66F, 1.0F, joint));
    });
    return tile;
}
