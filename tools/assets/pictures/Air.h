#pragma once

#include <glm/glm.hpp>

/// Cloudless air: its colours from straight up down to the horizon, and of the haze below it.
struct Air {
    glm::vec3 zenith{};
    glm::vec3 middle{};
    glm::vec3 horizon{};
    glm::vec3 below{};
    float depth = 0.14F; ///< Sine of the elevation over which the horizon's haze thins out.

    glm::vec3 color(glm::vec3 direction) const;
};

/// Where the line of sight meets a layer of clouds: in layer heights, from straight above the viewer.
/// The layer bends down to the horizon like the sky of a round world.
glm::vec2 cloudPlane(glm::vec3 direction);
