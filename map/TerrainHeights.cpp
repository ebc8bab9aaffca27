#include "map/TerrainHeights.h"

#include "map/TerrainMesh.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace {

bool sameBits(float a, float b) {
    return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

} // namespace

TerrainHeights::TerrainHeights(const std::vector<TerrainVertex> &grid, const TerrainHeights &earlier)
    : count(grid.size()) {
    const bool comparable = earlier.count == count;
    parts.reserve((count + partSize - 1) / partSize);
    for (std::size_t first = 0; first < count; first += partSize) {
        const TerrainVertex *const begin = grid.data() + first;
        const TerrainVertex *const end = begin + std::min(partSize, count - first);
        const auto same = [](const TerrainVertex &vertex, float height) {
            return sameBits(vertex.position.y, height);
        };
        if (comparable && std::equal(begin, end, earlier.parts[parts.size()]->begin(), same)) {
            parts.push_back(earlier.parts[parts.size()]);
            continue;
        }
        Part part(static_cast<std::size_t>(end - begin));
        std::transform(begin, end, part.begin(),
                       [](const TerrainVertex &vertex) { return vertex.position.y; });
        parts.push_back(std::make_shared<const Part>(std::move(part)));
    }
}

void TerrainHeights::copyTo(std::vector<TerrainVertex> &grid) const {
    auto vertex = grid.begin();
    for (const auto &part : parts) {
        for (const float height : *part) {
            vertex->position.y = height;
            ++vertex;
        }
    }
}

bool operator==(const TerrainHeights &a, const TerrainHeights &b) {
    return a.count == b.count &&
           std::equal(a.parts.begin(), a.parts.end(), b.parts.begin(), [](const auto &p, const auto &q) {
               return p == q || std::equal(p->begin(), p->end(), q->begin(), sameBits);
           });
}
