#include "tools/assets/characters/TexelMap.h"

#include <algorithm>
#include <map>

namespace {

struct Segment {
    glm::vec3 from, to;
};

/// The edges of each sharp part at which its faces turn away from each other.
std::vector<std::vector<Segment>> sharpEdges(const Mesh &mesh, const std::vector<Part> &parts) {
    std::map<std::pair<unsigned, unsigned>, glm::vec3> seen;
    std::vector<std::vector<Segment>> edges(parts.size());
    for (const MeshFace &face : mesh.faces) {
        if (!parts[face.part].sharp)
            continue;
        std::array<glm::vec3, 3> at{};
        for (std::size_t i = 0; i < 3; ++i)
            at[i] = mesh.vertices[face.vertex[i]].position;
        const glm::vec3 normal = glm::normalize(glm::cross(at[1] - at[0], at[2] - at[0]));
        for (std::size_t i = 0; i < 3; ++i) {
            const auto pair = std::minmax(face.vertex[i], face.vertex[(i + 1) % 3]);
            const auto [other, first] = seen.emplace(pair, normal);
            if (!first && glm::dot(other->second, normal) < 0.86f)
                edges[face.part].push_back({at[i], at[(i + 1) % 3]});
        }
    }
    return edges;
}

float distanceTo(const std::vector<Segment> &segments, const glm::vec3 &point) {
    float best = 1e6f;
    for (const Segment &segment : segments) {
        const glm::vec3 span = segment.to - segment.from;
        const float t = glm::clamp(glm::dot(point - segment.from, span) / glm::dot(span, span), 0.0f, 1.0f);
        const glm::vec3 off = point - segment.from - span * t;
        best = std::min(best, glm::dot(off, off));
    }
    return std::sqrt(best);
}

class FaceMapper {
public:
    FaceMapper(const Mesh &source, const MeshFace &triangle) : mesh(source), face(triangle) {
        for (std::size_t i = 0; i < 3; ++i) {
            flat[i] = glm::vec2(mesh.texels[face.texel[i]]) * static_cast<float>(samplesAcross);
            at[i] = mesh.vertices[face.vertex[i]].position;
        }
        area = cross(flat[1] - flat[0], flat[2] - flat[0]);
    }

    void fill(std::vector<Texel> &texels, const std::vector<Segment> &edges) const {
        if (std::abs(area) < 1e-6f)
            return;
        const glm::vec2 low = glm::min(flat[0], glm::min(flat[1], flat[2]));
        const glm::vec2 high = glm::max(flat[0], glm::max(flat[1], flat[2]));
        for (auto y = static_cast<unsigned>(low.y); y < static_cast<unsigned>(high.y); ++y) {
            for (auto x = static_cast<unsigned>(low.x); x < static_cast<unsigned>(high.x); ++x) {
                const glm::vec3 share = shares(glm::vec2(x, y) + 0.5f);
                if (std::min({share.x, share.y, share.z}) < -1e-4f)
                    continue;
                write(texels[y * bakeSize + x], share, edges);
            }
        }
    }

private:
    static float cross(const glm::vec2 &a, const glm::vec2 &b) { return a.x * b.y - a.y * b.x; }

    glm::vec3 shares(const glm::vec2 &place) const {
        const float second = cross(place - flat[0], flat[2] - flat[0]) / area;
        const float third = cross(flat[1] - flat[0], place - flat[0]) / area;
        return {1.0f - second - third, second, third};
    }

    glm::vec3 position(const glm::vec3 &share) const {
        return at[0] * share.x + at[1] * share.y + at[2] * share.z;
    }

    void write(Texel &texel, const glm::vec3 &share, const std::vector<Segment> &edges) const {
        texel.covered = true;
        texel.part = face.part;
        texel.facing = glm::normalize(glm::cross(at[1] - at[0], at[2] - at[0]));
        texel.point.position = position(share);
        texel.point.normal =
            glm::normalize(face.normal[0] * share.x + face.normal[1] * share.y + face.normal[2] * share.z);
        const glm::vec2 place = face.place[0] * share.x + face.place[1] * share.y + face.place[2] * share.z;
        texel.point.around = place.x;
        texel.point.along = place.y;
        texel.point.edge = distanceTo(edges, texel.point.position);
        const glm::vec3 origin = position(shares({0, 0}));
        texel.step = {position(shares({1, 0})) - origin, position(shares({0, 1})) - origin};
    }

    const Mesh &mesh;
    const MeshFace &face;
    std::array<glm::vec2, 3> flat{};
    std::array<glm::vec3, 3> at{};
    float area = 0.0f;
};

} // namespace

std::vector<Texel> mapTexels(const Mesh &mesh, const std::vector<Part> &parts) {
    std::vector<Texel> texels(std::size_t{bakeSize} * bakeSize);
    const auto edges = sharpEdges(mesh, parts);
    for (const MeshFace &face : mesh.faces)
        FaceMapper(mesh, face).fill(texels, edges[face.part]);
    return texels;
}
