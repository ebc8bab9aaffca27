#include "map/Erosion.h"

#include "map/TerrainMesh.h"

#include <algorithm>
#include <cstddef>

namespace {

/// The mean around a point. The neighbour visited last is added last, since its height is only
/// just known.
float meanAround(const float *p, std::ptrdiff_t n, std::ptrdiff_t visited) {
    const float above = p[-n - 1] + p[-n] + p[-n + 1];
    const float below = p[n - 1] + p[n] + p[n + 1];
    return 0.125F * ((above + below + p[-visited]) + p[visited]);
}

void forwardPass(float *heights, std::ptrdiff_t n) {
    for (std::ptrdiff_t row = 1; row < n - 1; ++row) {
        float *line = heights + row * n;
        line[0] = 0;
        for (std::ptrdiff_t column = 1; column < n - 1; ++column) {
            line[column] = meanAround(line + column, n, -1);
        }
        line[n - 1] = 0;
    }
}

void backwardPass(float *heights, std::ptrdiff_t n) {
    heights[n * (n - 1)] = 0;
    for (std::ptrdiff_t row = n - 2; row > 0; --row) {
        float *line = heights + row * n;
        line[n - 1] = 0;
        for (std::ptrdiff_t column = n - 2; column > 0; --column) {
            line[column] = meanAround(line + column, n, 1);
        }
        // The very first point of the inner rows is left out on the way back.
        if (row > 1) {
            line[0] = 0;
        }
    }
}

} // namespace

void erode(std::vector<float> &heights, int side, int passes) {
    const std::ptrdiff_t n = side;
    if (n < 1) {
        return;
    }
    for (int pass = 0; pass < passes; ++pass) {
        if (pass % 2 == 0) {
            forwardPass(heights.data(), n);
        } else {
            backwardPass(heights.data(), n);
        }
    }
    std::fill_n(heights.begin(), n, 0.0F);
    std::fill_n(heights.end() - n, n, 0.0F);
}

void erode(TerrainMesh &terrain, int passes) {
    std::vector<float> heights(terrain.vertices.size());
    std::transform(terrain.vertices.begin(), terrain.vertices.end(), heights.begin(),
                   [](const TerrainVertex &vertex) { return vertex.position.y; });
    erode(heights, terrain.pointsPerSide(), passes);
    for (std::size_t i = 0; i < heights.size(); ++i) {
        terrain.vertices[i].position.y = heights[i];
    }
    terrain.markChanged();
}
