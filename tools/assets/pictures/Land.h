#pragma once

#include <glm/glm.hpp>

/// What stands on the horizon and lies below it: a plain whose haze thins out toward the viewer, and two
/// ridges of hills in the haze. The map's ground ends somewhere on it, and any ground may.
struct Land {
    glm::vec3 plain{};
    glm::vec3 hills{};
    float farHeight = 0.03F; ///< Of the highest crests, as the sine of their elevation.
    float nearHeight = 0.015F;

    /// The colour toward a direction: `sky` above the hills.
    glm::vec3 over(glm::vec3 sky, glm::vec3 horizon, glm::vec3 direction) const;
};
