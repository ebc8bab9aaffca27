#include "tools/assets/characters/Mesh.h"

#include "tools/assets/characters/AtlasPacker.h"

#include <algorithm>
#include <cmath>

namespace {

bool isTip(const Ring &ring) {
    return ring.radius.x <= 0.0f && ring.radius.y <= 0.0f;
}

glm::vec3 ringAxis(const std::vector<Ring> &rings, std::size_t i) {
    if (glm::length(rings[i].along) > 0.0f)
        return glm::normalize(rings[i].along);
    const glm::vec3 before = rings[i == 0 ? 0 : i - 1].centre;
    const glm::vec3 after = rings[std::min(i + 1, rings.size() - 1)].centre;
    return glm::normalize(after - before);
}

std::vector<MeshVertex> ringPoints(const Part &part, std::size_t i) {
    const Ring &ring = part.rings[i];
    if (isTip(ring)) {
        MeshVertex tip{ring.centre, ring.bones};
        if (part.sculpt)
            part.sculpt(i, 0, tip.position, tip.bones);
        return std::vector<MeshVertex>(part.profile.size(), tip);
    }
    const glm::vec3 axis = ringAxis(part.rings, i);
    const glm::vec3 side = glm::normalize(glm::cross(part.front, axis));
    const glm::vec3 front = glm::cross(axis, side);
    std::vector<MeshVertex> points;
    for (unsigned j = 0; j < part.profile.size(); ++j) {
        const glm::vec2 corner = part.profile[j] * ring.radius;
        MeshVertex &point =
            points.emplace_back(MeshVertex{ring.centre + side * corner.x + front * corner.y, ring.bones});
        if (part.sculpt)
            part.sculpt(i, j, point.position, point.bones);
    }
    return points;
}

/// The part with a cap on each end that is not a tip: rounded, but flat on a sharp part.
Part closed(const Part &part) {
    Part whole = part;
    if (!part.lids)
        return whole;
    std::vector<Ring> &rings = whole.rings;
    const std::size_t last = rings.size() - 1;
    const glm::vec3 first = ringAxis(part.rings, 0);
    const glm::vec3 end = ringAxis(part.rings, last);
    const auto cap = [&](Ring &rim, const glm::vec3 &axis, float way) {
        rim.along = axis;
        const float rise = part.sharp ? 0.0f : 0.3f * std::min(rim.radius.x, rim.radius.y);
        return Ring{rim.centre + axis * (way * rise), glm::vec2(0.0f), rim.bones, axis};
    };
    if (!isTip(part.rings[last]))
        rings.push_back(cap(rings[last], end, 1.0f));
    const std::size_t before = isTip(part.rings.front()) ? 0 : 1;
    if (before > 0)
        rings.insert(rings.begin(), cap(rings.front(), first, -1.0f));
    if (part.sculpt) {
        whole.sculpt = [before, last, inner = part.sculpt](std::size_t ring, unsigned corner,
                                                           glm::vec3 &position, Influence &bones) {
            if (ring >= before && ring - before <= last)
                inner(ring - before, corner, position, bones);
        };
    }
    return whole;
}

/// Adds one part to the mesh; its texels are in units until the atlas is packed.
class PartMesher {
public:
    PartMesher(const Part &tube, unsigned number, Mesh &target, std::vector<glm::vec2> &flat)
        : part(tube), partNumber(number), mesh(target), unwrapped(flat),
          corners(static_cast<unsigned>(tube.profile.size())) {}

    void add() {
        const auto firstTexel = static_cast<unsigned>(unwrapped.size());
        const auto firstFace = mesh.faces.size();
        measure();
        for (std::size_t i = 0; i < part.rings.size(); ++i)
            addRing(i);
        for (std::size_t i = 0; i + 1 < part.rings.size(); ++i)
            joinRings(i);
        mesh.islands.push_back({firstTexel, static_cast<unsigned>(unwrapped.size()) - firstTexel,
                                glm::vec2(width, heights.back()) * part.detail});
        addNormals(firstFace);
    }

private:
    void measure() {
        heights.assign(1, 0.0f);
        for (std::size_t i = 0; i < part.rings.size(); ++i) {
            points.push_back(ringPoints(part, i));
            float girth = 0.0f;
            float step = 0.0f;
            for (unsigned j = 0; j < corners; ++j) {
                girth += glm::distance(points[i][j].position, points[i][(j + 1) % corners].position);
                if (i > 0)
                    step += glm::distance(points[i][j].position, points[i - 1][j].position) /
                            static_cast<float>(corners);
            }
            width = std::max(width, girth);
            if (i > 0)
                heights.push_back(heights.back() + step);
        }
        // A little wider than the mean girth serves all rings.
        width *= 0.92f;
    }

    void addRing(std::size_t i) {
        const bool tip = isTip(part.rings[i]);
        firstVertex.push_back(static_cast<unsigned>(mesh.vertices.size()));
        firstUv.push_back(static_cast<unsigned>(unwrapped.size()));
        for (unsigned j = 0; j < (tip ? 1 : corners); ++j)
            mesh.vertices.push_back(points[i][j]);
        for (unsigned j = 0; j < (tip ? 2 : corners + 1); ++j)
            unwrapped.emplace_back(around(j, tip) * width * part.detail, heights[i] * part.detail);
    }

    /// A tip has two places, one for each half of the faces around it: so these make two fans.
    float around(unsigned j, bool tip) const {
        return tip ? 0.25f + 0.5f * static_cast<float>(j)
                   : static_cast<float>(j) / static_cast<float>(corners);
    }

    void corner(MeshFace &face, std::size_t slot, std::size_t ring, unsigned j) const {
        const bool tip = isTip(part.rings[ring]);
        face.atTip = face.atTip || tip;
        face.vertex[slot] = firstVertex[ring] + (tip ? 0 : j % corners);
        face.texel[slot] = firstUv[ring] + j;
        face.place[slot] = {around(j, tip), heights[ring] / heights.back()};
    }

    void addFace(std::array<std::pair<std::size_t, unsigned>, 3> places) {
        MeshFace face;
        face.part = partNumber;
        for (std::size_t slot = 0; slot < 3; ++slot)
            corner(face, slot, places[slot].first, places[slot].second);
        mesh.faces.push_back(face);
    }

    void joinRings(std::size_t i) {
        const bool fromTip = isTip(part.rings[i]);
        const bool toTip = isTip(part.rings[i + 1]);
        for (unsigned j = 0; j < corners; ++j) {
            const unsigned half = 2 * j < corners ? 0 : 1;
            if (fromTip) {
                addFace({{{i, half}, {i + 1, j + 1}, {i + 1, j}}});
            } else if (toTip) {
                addFace({{{i, j}, {i, j + 1}, {i + 1, half}}});
            } else {
                // In the order of a strip around the ring.
                addFace({{{i + 1, j}, {i, j}, {i + 1, j + 1}}});
                addFace({{{i, j}, {i, j + 1}, {i + 1, j + 1}}});
            }
        }
    }

    glm::vec3 faceNormal(const MeshFace &face) const {
        const glm::vec3 a = mesh.vertices[face.vertex[0]].position;
        return glm::cross(mesh.vertices[face.vertex[1]].position - a,
                          mesh.vertices[face.vertex[2]].position - a);
    }

    /// Each corner takes the normals around its vertex, of a sharp part only of faces of about
    /// the same direction.
    void addNormals(std::size_t firstFace) {
        const float limit = part.sharp ? 0.86f : -0.2f;
        std::vector<glm::vec3> facing;
        std::vector<std::vector<std::size_t>> touching(mesh.vertices.size() - firstVertex.front());
        for (std::size_t f = firstFace; f < mesh.faces.size(); ++f) {
            facing.push_back(faceNormal(mesh.faces[f]));
            for (const unsigned vertex : mesh.faces[f].vertex)
                touching[vertex - firstVertex.front()].push_back(f - firstFace);
        }
        for (std::size_t f = firstFace; f < mesh.faces.size(); ++f) {
            const glm::vec3 own = glm::normalize(facing[f - firstFace]);
            for (std::size_t slot = 0; slot < 3; ++slot) {
                glm::vec3 sum(0.0f);
                for (const std::size_t other : touching[mesh.faces[f].vertex[slot] - firstVertex.front()]) {
                    if (glm::dot(glm::normalize(facing[other]), own) > limit)
                        sum += facing[other];
                }
                mesh.faces[f].normal[slot] = glm::normalize(sum);
            }
        }
    }

    const Part &part;
    unsigned partNumber;
    Mesh &mesh;
    std::vector<glm::vec2> &unwrapped;
    unsigned corners;
    std::vector<std::vector<MeshVertex>> points;
    std::vector<float> heights;
    std::vector<unsigned> firstVertex;
    std::vector<unsigned> firstUv;
    float width = 0.0f;
};

} // namespace

Mesh buildMesh(const std::vector<Part> &parts) {
    Mesh mesh;
    std::vector<glm::vec2> unwrapped;
    for (unsigned i = 0; i < parts.size(); ++i)
        PartMesher(closed(parts[i]), i, mesh, unwrapped).add();

    std::vector<glm::vec2> sizes;
    for (const Island &island : mesh.islands)
        sizes.push_back(island.size);
    const AtlasLayout layout = packAtlas(sizes, skinSize);
    mesh.texels.resize(unwrapped.size());
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const Island &island = mesh.islands[i];
        for (unsigned t = island.firstTexel; t < island.firstTexel + island.texelCount; ++t)
            mesh.texels[t] = layout.corners[i] + glm::ivec2(glm::round(unwrapped[t] * layout.density));
    }
    return mesh;
}
