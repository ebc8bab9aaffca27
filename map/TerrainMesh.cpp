#include "map/TerrainMesh.h"

#include <algorithm>
#include <cstdint>
#include <limits>

void TerrainTriangle::updateNormal() {
    const auto minus = [](const Vec3 &p, const Vec3 &q) { return Vec3{p.x - q.x, p.y - q.y, p.z - q.z}; };
    cross(minus(b->position, a->position), minus(c->position, a->position), normal);
    normalize(normal);
}

int TerrainMesh::pointsPerSideOf(int dimension, int density) {
    if (dimension < 1 || density < 1) {
        return 0;
    }
    const std::int64_t n = std::int64_t{dimension} * density;
    return n <= mostPointsPerSide ? static_cast<int>(n) : 0;
}

void TerrainMesh::setSize(int newDimension, int newDensity) {
    dimension = newDimension;
    density = newDensity;
}

void TerrainMesh::clear() {
    triangles.clear();
    vertices.clear();
    normalHeights.clear();
    builtPointsPerSide = 0;
    markChanged();
}

void TerrainMesh::build(const std::function<float()> &nextHeight) {
    clear();
    builtPointsPerSide = pointsPerSideOf(dimension, density);
    builtDensity = density;
    if (builtPointsPerSide > 0) {
        buildVertices(nextHeight);
        buildTriangles();
    }
}

void TerrainMesh::setHeights(const TerrainHeights &heights) {
    if (heights.size() == 0) {
        clear();
        return;
    }
    // The spacing of the points is part of the grid, too: 40 × 4 and 80 × 2 have as many.
    const bool sameGrid = heights.size() == vertices.size() && builtDensity == density;
    if (!sameGrid) {
        build();
    }
    if (heights.size() == vertices.size()) {
        heights.copyTo(vertices);
    }
    markChanged();
}

void TerrainMesh::buildVertices(const std::function<float()> &nextHeight) {
    const int n = builtPointsPerSide;
    const auto side = static_cast<float>(dimension);
    const auto along = [this](int i) { return static_cast<float>(i) / static_cast<float>(density); };
    vertices.reserve(static_cast<std::size_t>(n) * static_cast<std::size_t>(n));
    for (int row = 0; row < n; ++row) {
        const float z = along(row);
        for (int column = 0; column < n; ++column) {
            const float x = along(column);
            const float height = nextHeight ? nextHeight() : 0.0F;
            vertices.push_back({{x, height, z}, {0, 1, 0}, {z / side, x / side, 0}});
        }
    }
}

void TerrainMesh::buildTriangles() {
    const auto n = static_cast<std::size_t>(builtPointsPerSide);
    const std::size_t quads = n - 1;
    triangles.reserve(2 * quads * quads);
    for (std::size_t row = 0; row < quads; ++row) {
        for (std::size_t column = 0; column < quads; ++column) {
            const TerrainVertex *corner = &vertices[row * n + column];
            triangles.push_back({corner, corner + n, corner + 1, {}});
            triangles.back().updateNormal();
            triangles.push_back({corner + n, corner + n + 1, corner + 1, {}});
            triangles.back().updateNormal();
        }
    }
}

const Vec3 &TerrainMesh::faceNormal(int quadRow, int quadColumn, int half) const {
    const int quads = builtPointsPerSide - 1;
    return triangles[2 * (static_cast<std::size_t>(quadRow) * static_cast<std::size_t>(quads) +
                          static_cast<std::size_t>(quadColumn)) +
                     static_cast<std::size_t>(half)]
        .normal;
}

/// Whether the heights are those that the normals were last computed from; remembers them.
bool TerrainMesh::normalsAreOfTheseHeights() {
    normalHeights.resize(vertices.size(), std::numeric_limits<float>::quiet_NaN());
    bool same = true;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const float height = vertices[i].position.y;
        same = same && normalHeights[i] == height;
        normalHeights[i] = height;
    }
    return same;
}

void TerrainMesh::computeNormals() {
    if (normalsAreOfTheseHeights()) {
        return;
    }
    for (TerrainTriangle &triangle : triangles) {
        triangle.updateNormal();
    }
    if (updateVertexNormals()) {
        markChanged();
    }
}

/// The sums of the face normals around each point; true if one of them changed.
bool TerrainMesh::updateVertexNormals() {
    const int n = builtPointsPerSide;
    bool changed = false;
    for (int row = 1; row < n - 1; ++row) {
        for (int column = 0; column < n; ++column) {
            Vec3 sum;
            const auto add = [&sum](const Vec3 &normal) {
                sum.x += normal.x;
                sum.y += normal.y;
                sum.z += normal.z;
            };
            const bool right = column < n - 1;
            const bool left = column > 0;
            if (right) {
                add(faceNormal(row, column, 0));
                add(faceNormal(row - 1, column, 0));
                add(faceNormal(row - 1, column, 1));
            }
            if (left) {
                add(faceNormal(row, column - 1, 0));
                add(faceNormal(row, column - 1, 1));
                add(faceNormal(row - 1, column - 1, 1));
            }
            Vec3 &normal = vertices[static_cast<std::size_t>(row) * static_cast<std::size_t>(n) +
                                    static_cast<std::size_t>(column)]
                               .normal;
            changed = changed || normal.x != sum.x || normal.y != sum.y || normal.z != sum.z;
            normal = sum;
        }
    }
    return changed;
}
