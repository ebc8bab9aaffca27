#pragma once

#include "tools/assets/characters/Mesh.h"

/// Samples side by side for one texel of a skin, so that what is painted has no stairs.
constexpr unsigned samplesAcross = 2;
/// Side of a skin in samples.
constexpr unsigned bakeSize = skinSize * samplesAcross;

/// What one sample of a skin shows.
struct Texel {
    bool covered = false;
    unsigned part = 0;
    SurfacePoint point;
    glm::vec3 facing{0.0f};          ///< Normal of the face.
    std::array<glm::vec3, 2> step{}; ///< Way on the surface to the next sample right and down.
};

/// Every sample of the skin of a mesh at rest, row by row from the top.
std::vector<Texel> mapTexels(const Mesh &mesh, const std::vector<Part> &parts);
