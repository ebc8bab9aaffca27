#pragma once

#include "tools/assets/pictures/Air.h"
#include "tools/assets/pictures/Land.h"

#include <vector>

/// A sky as a function of the direction one looks in (unit length, y up): its colour as it is shown at
/// noon; at other times the editor multiplies it by the day's tint, so it has no sun.
struct Sky {
    const char *name;
    int side; ///< Of each face, in texels.
    Air air;
    Land land;
    /// Lays clouds over the colour of the air; null for none.
    glm::vec3 (*clouds)(glm::vec3 direction, glm::vec3 air);

    glm::vec3 color(glm::vec3 direction) const;
};

const std::vector<Sky> &skies();

/// Heaped clouds, by following the line of sight through their layer.
glm::vec3 cumulus(glm::vec3 direction, glm::vec3 air);
