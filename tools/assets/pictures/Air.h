#pragma once

#include <array>
#include <glm/glm.hpp>

/// Cloudless air: its colours at the horizon and at 4, 14, 34 and 90 degrees above it, those between them
/// on a smooth curve.
struct Air {
    std::array<glm::vec3, 5> stops{};
    float haze = 0.03F; ///< How unevenly thick it is around the horizon.

    glm::vec3 color(glm::vec3 direction) const;
    glm::vec3 horizon() const { return stops[0]; }
};

/// Where the line of sight meets a layer of clouds: in layer heights, from straight above the viewer.
/// The layer bends down to the horizon like the sky of a round world.
glm::vec2 cloudPlane(glm::vec3 direction);
