#pragma once

#include "tools/assets/characters/Mesh.h"

#include <bitset>

/// Number of directions light is gathered from, over the whole sphere.
constexpr std::size_t lightDirections = 128;

/// For each light direction, whether light from there arrives.
using Visibility = std::bitset<lightDirections>;

/// The light directions, evenly spread; always the same.
const std::array<glm::vec3, lightDirections> &lightSphere();

/// Answers which directions are open at a point of a mesh at rest.
class Occlusion {
public:
    explicit Occlusion(const Mesh &mesh);

    /// `facing` is the normal of the face, which hides all that lies behind it.
    Visibility openDirections(const glm::vec3 &point, const glm::vec3 &facing);

private:
    struct Triangle {
        glm::vec3 corner, edgeA, edgeB;
    };
    struct Node {
        glm::vec3 low, high;
        unsigned first = 0; ///< Of its triangles, or of its two children.
        unsigned count = 0; ///< 0 for an inner node.
    };

    void split(unsigned node, unsigned first, unsigned count);
    static bool blocks(const Triangle &triangle, const glm::vec3 &from, const glm::vec3 &direction);
    bool blocked(const glm::vec3 &from, const glm::vec3 &direction, unsigned &blocker) const;

    std::vector<Triangle> triangles;
    std::vector<Node> nodes;
    std::array<unsigned, lightDirections> blockers{}; ///< The triangle last found in each direction.
};
