#include "tools/assets/pictures/Tile.h"

#include "tools/assets/pictures/Noise.h"

#include <algorithm>

Picture cellTile() {
    constexpr int side = 128;
    constexpr float margin = 0.05F * side; ///< Never shown.
    constexpr float rim = 9;
    Picture tile(side);
    tile.fill([](glm::vec2 uv) {
        const glm::vec2 p = uv * static_cast<float>(side);
        const float left = std::min(p.x, static_cast<float>(side) - p.x) - margin;
        const float top = std::min(p.y, static_cast<float>(side) - p.y) - margin;
        // The margin mirrors what lies inside: in a small view its texels blend into the rim. The rim is as
        // wide as a texel of the level that a cell of 15 pixels is drawn from.
        const float inside = std::abs(std::min(left, top));
        const float body = 0.967F + 0.010F * fractalNoise(uv, 16, 4, 901);
        return glm::vec3(body * glm::mix(0.70F, 1.0F, glm::smoothstep(rim - 2.5F, rim, inside)));
    });
    return tile;
}
