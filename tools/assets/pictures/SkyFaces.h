#pragma once

#include <array>
#include <glm/glm.hpp>

/// The six pictures of a sky. Toward a world direction d the sky shows the cube map's direction -d, so
/// the picture "_negx" is what stands toward +x and "_negy" is overhead. Seen from inside, each is
/// upright and mirrored left to right.
inline constexpr std::array<const char *, 6> skyFaceSuffixes{"_negx", "_posx", "_negy",
                                                             "_posy", "_negz", "_posz"};

/// The world direction that a face (an index of skyFaceSuffixes) shows at `uv`: 0 to 1 from the
/// picture's left to its right and from its top to its bottom. Not of unit length.
inline glm::vec3 skyDirection(int face, glm::vec2 uv) {
    const float a = 2.0F * uv.x - 1.0F;
    const float b = 1.0F - 2.0F * uv.y;
    switch (face) {
    case 0:
        return {1, b, -a};
    case 1:
        return {-1, b, a};
    case 2:
        return {-a, 1, b};
    case 3:
        return {-a, -1, -b};
    case 4:
        return {a, b, 1};
    default:
        return {-a, b, -1};
    }
}
