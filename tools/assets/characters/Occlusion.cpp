#include "tools/assets/characters/Occlusion.h"

#include <algorithm>
#include <cmath>
#include <glm/gtc/constants.hpp>

namespace {

constexpr float farthest = 30.0f; ///< What stands farther away hides nothing.
constexpr float clearance = 0.06f;

bool hitsBox(const glm::vec3 &low, const glm::vec3 &high, const glm::vec3 &from, const glm::vec3 &inverse) {
    const glm::vec3 a = (low - from) * inverse;
    const glm::vec3 b = (high - from) * inverse;
    const glm::vec3 enter = glm::min(a, b);
    const glm::vec3 leave = glm::max(a, b);
    const float first = std::max({enter.x, enter.y, enter.z, 0.0f});
    const float last = std::min({leave.x, leave.y, leave.z, farthest});
    return first <= last;
}

} // namespace

const std::array<glm::vec3, lightDirections> &lightSphere() {
    static const auto sphere = [] {
        std::array<glm::vec3, lightDirections> directions{};
        const float golden = glm::pi<float>() * (3.0f - std::sqrt(5.0f));
        for (std::size_t i = 0; i < lightDirections; ++i) {
            const auto step = static_cast<float>(i);
            const float z = 1.0f - 2.0f * (step + 0.5f) / static_cast<float>(lightDirections);
            const float r = std::sqrt(1.0f - z * z);
            directions[i] = {r * std::cos(golden * step), r * std::sin(golden * step), z};
        }
        return directions;
    }();
    return sphere;
}

Occlusion::Occlusion(const Mesh &mesh) {
    for (const MeshFace &face : mesh.faces) {
        const glm::vec3 a = mesh.vertices[face.vertex[0]].position;
        triangles.push_back(
            {a, mesh.vertices[face.vertex[1]].position - a, mesh.vertices[face.vertex[2]].position - a});
    }
    nodes.emplace_back();
    split(0, 0, static_cast<unsigned>(triangles.size()));
}

void Occlusion::split(unsigned node, unsigned first, unsigned count) {
    glm::vec3 low(1e9f);
    glm::vec3 high(-1e9f);
    for (unsigned i = first; i < first + count; ++i) {
        for (const glm::vec3 &corner : {triangles[i].corner, triangles[i].corner + triangles[i].edgeA,
                                        triangles[i].corner + triangles[i].edgeB}) {
            low = glm::min(low, corner);
            high = glm::max(high, corner);
        }
    }
    nodes[node] = {low, high, first, count};
    if (count <= 4)
        return;
    const glm::vec3 extent = high - low;
    const int axis = extent.x > extent.y ? (extent.x > extent.z ? 0 : 2) : (extent.y > extent.z ? 1 : 2);
    const auto middle = [axis](const Triangle &t) { return (t.corner + (t.edgeA + t.edgeB) / 3.0f)[axis]; };
    std::stable_sort(triangles.begin() + first, triangles.begin() + first + count,
                     [&](const Triangle &a, const Triangle &b) { return middle(a) < middle(b); });
    const auto children = static_cast<unsigned>(nodes.size());
    nodes.resize(nodes.size() + 2);
    nodes[node].first = children;
    nodes[node].count = 0;
    split(children, first, count / 2);
    split(children + 1, first + count / 2, count - count / 2);
}

bool Occlusion::blocks(const Triangle &triangle, const glm::vec3 &from, const glm::vec3 &direction) {
    const glm::vec3 p = glm::cross(direction, triangle.edgeB);
    const float determinant = glm::dot(triangle.edgeA, p);
    if (std::abs(determinant) < 1e-9f)
        return false;
    const glm::vec3 offset = from - triangle.corner;
    const float u = glm::dot(offset, p) / determinant;
    if (!(u >= 0.0f && u <= 1.0f))
        return false;
    const glm::vec3 q = glm::cross(offset, triangle.edgeA);
    const float v = glm::dot(direction, q) / determinant;
    const float distance = glm::dot(triangle.edgeB, q) / determinant;
    return v >= 0.0f && u + v <= 1.0f && distance > 0.0f && distance < farthest;
}

bool Occlusion::blocked(const glm::vec3 &from, const glm::vec3 &direction, unsigned &blocker) const {
    // What hid this direction from the point before mostly hides it from this one too.
    if (blocks(triangles[blocker], from, direction))
        return true;
    const glm::vec3 inverse = 1.0f / direction;
    std::array<unsigned, 64> stack{};
    std::size_t depth = 1;
    while (depth > 0) {
        const Node &node = nodes[stack[--depth]];
        if (!hitsBox(node.low, node.high, from, inverse))
            continue;
        if (node.count == 0) {
            stack[depth++] = node.first;
            stack[depth++] = node.first + 1;
            continue;
        }
        for (unsigned i = node.first; i < node.first + node.count; ++i) {
            if (blocks(triangles[i], from, direction)) {
                blocker = i;
                return true;
            }
        }
    }
    return false;
}

Visibility Occlusion::openDirections(const glm::vec3 &point, const glm::vec3 &facing) {
    Visibility open;
    const glm::vec3 from = point + facing * clearance;
    for (std::size_t i = 0; i < lightDirections; ++i) {
        const glm::vec3 &direction = lightSphere()[i];
        if (glm::dot(direction, facing) > 0.02f && !blocked(from, direction, blockers[i]))
            open.set(i);
    }
    return open;
}
