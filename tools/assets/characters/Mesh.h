#pragma once

#include "tools/assets/characters/Part.h"

#include <array>

/// Side of every skin, in texels.
constexpr unsigned skinSize = 512;

struct MeshVertex {
    glm::vec3 position;
    Influence bones;
};

struct MeshFace {
    std::array<unsigned, 3> vertex{}; ///< Counter-clockwise seen from outside.
    std::array<unsigned, 3> texel{};  ///< Numbers in Mesh::texels.
    std::array<glm::vec3, 3> normal{};
    std::array<glm::vec2, 3> place{}; ///< around and along of SurfacePoint.
    unsigned part = 0;
    bool atTip = false; ///< One of a fan around a tip, with which it shares the vertex and the texel.
};

/// The texels of one part: a strip cut open at the seam.
struct Island {
    unsigned firstTexel = 0;
    unsigned texelCount = 0;
    glm::vec2 size; ///< In units, before packing.
};

struct Mesh {
    std::vector<MeshVertex> vertices;
    std::vector<glm::ivec2> texels; ///< Places in the skin, from its top left corner.
    std::vector<MeshFace> faces;
    std::vector<Island> islands; ///< One for each part.
};

/// The parts at rest, each closed at both ends, unwrapped and packed into one skin.
Mesh buildMesh(const std::vector<Part> &parts);
