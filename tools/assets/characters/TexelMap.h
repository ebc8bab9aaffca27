#pragma once

#include "tools/assets/characters/Mesh.h"

/// What one texel of a skin shows.
struct Texel {
    bool covered = false;
    unsigned part = 0;
    SurfacePoint point;
    glm::vec3 facing{0.0f};          ///< Normal of the face.
    std::array<glm::vec3, 2> step{}; ///< Way on the surface to the next texel right and down.
};

/// Every texel of the skin of a mesh at rest, row by row from the top.
std::vector<Texel> mapTexels(const Mesh &mesh, const std::vector<Part> &parts);
