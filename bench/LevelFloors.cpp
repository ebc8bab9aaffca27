#include "bench/LevelFloors.h"

#include "scene/LevelScan.h"

#include <QDomDocument>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <unistd.h>

namespace {

inline Vec3 faceNormal(const Vec3 &a, const Vec3 &b, const Vec3 &c) {
    const Vec3 u{b.x - a.x, b.y - a.y, b.z - a.z};
    const Vec3 v{c.x - a.x, c.y - a.y, c.z - a.z};
    const Vec3 n{u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x};
    const double x = n.x;
    const double y = n.y;
    const double z = n.z;
    const double inverse = 1.0 / std::sqrt(x * x + y * y + z * z);
    return {static_cast<float>(x * inverse), static_cast<float>(y * inverse),
            static_cast<float>(z * inverse)};
}

std::vector<float> parsedNumbers(const QByteArray &bytes, std::size_t count) {
    std::vector<float> numbers(count);
    // The numbers of the terrain stand behind the tag of its node.
    const char *at = bytes.constData() + bytes.indexOf('>', bytes.indexOf("<MeshNode")) + 2;
    const char *end = bytes.constData() + bytes.size();
    for (float &number : numbers) {
        at = std::from_chars(at, end, number).ptr + 1;
    }
    return numbers;
}

} // namespace

BareGrid bareGrid(const std::vector<float> &heights, int dimension, int density) {
    const auto n = static_cast<std::size_t>(dimension) * static_cast<std::size_t>(density);
    const float step = 1.0F / static_cast<float>(density);
    const float perSide = 1.0F / static_cast<float>(dimension);
    BareGrid grid;
    grid.vertices.resize(n * n);
    grid.triangles.resize(2 * (n - 1) * (n - 1));
    TerrainVertex *vertex = grid.vertices.data();
    for (std::size_t row = 0; row < n; ++row) {
        const float z = static_cast<float>(row) * step;
        for (std::size_t column = 0; column < n; ++column, ++vertex) {
            const float x = static_cast<float>(column) * step;
            *vertex = {{x, heights[row * n + column], z}, {0, 1, 0}, {z * perSide, x * perSide, 0}};
        }
    }
    TerrainTriangle *triangle = grid.triangles.data();
    const auto addTriangle = [&triangle](const TerrainVertex *a, const TerrainVertex *b,
                                         const TerrainVertex *c) {
        *triangle++ = {a, b, c, faceNormal(a->position, b->position, c->position)};
    };
    for (std::size_t row = 0; row + 1 < n; ++row) {
        for (std::size_t column = 0; column + 1 < n; ++column) {
            const TerrainVertex *corner = &grid.vertices[row * n + column];
            addTriangle(corner, corner + n, corner + 1);
            addTriangle(corner + n, corner + n + 1, corner + 1);
        }
    }
    return grid;
}

BareGrid bareReading(const QByteArray &bytes, int dimension, int density) {
    if (!levelIsSafeToParse(bytes)) {
        return {};
    }
    QDomDocument document;
    if (!document.setContent(bytes)) {
        return {};
    }
    const auto n = static_cast<std::size_t>(dimension) * static_cast<std::size_t>(density);
    return bareGrid(parsedNumbers(bytes, n * n), dimension, density);
}

std::size_t bareText(const std::vector<float> &heights, std::string &text) {
    constexpr std::size_t longestNumber = 16;
    text.resize(heights.size() * longestNumber);
    char *at = text.data();
    for (const float height : heights) {
        at = std::to_chars(at, at + longestNumber, static_cast<double>(height), std::chars_format::general, 6)
                 .ptr;
        *at++ = ' ';
    }
    return static_cast<std::size_t>(at - text.data());
}

bool bareWriting(const std::string &fileName, const QByteArray &bytes) {
    std::FILE *file = std::fopen(fileName.c_str(), "wb");
    if (file == nullptr) {
        return false;
    }
    const auto size = static_cast<std::size_t>(bytes.size());
    const bool written = std::fwrite(bytes.constData(), 1, size, file) == size;
    const bool synced = std::fflush(file) == 0 && fsync(fileno(file)) == 0;
    return std::fclose(file) == 0 && written && synced;
}

void bareNormals(const std::vector<float> &heights, int n, float step, std::vector<Vec3> &faces,
                 std::vector<Vec3> &sums) {
    const std::ptrdiff_t side = n;
    Vec3 *face = faces.data();
    for (std::ptrdiff_t row = 0; row + 1 < side; ++row) {
        for (std::ptrdiff_t column = 0; column + 1 < side; ++column) {
            const float *h = &heights[static_cast<std::size_t>(row * side + column)];
            *face++ = faceNormal({0, h[0], 0}, {0, h[side], step}, {step, h[1], 0});
            *face++ = faceNormal({0, h[side], step}, {step, h[side + 1], step}, {step, h[1], 0});
        }
    }
    const std::ptrdiff_t perRow = 2 * (side - 1);
    for (std::ptrdiff_t row = 1; row + 1 < side; ++row) {
        for (std::ptrdiff_t column = 1; column + 1 < side; ++column) {
            const Vec3 *below = faces.data() + row * perRow + 2 * column;
            const Vec3 *above = below - perRow;
            Vec3 sum;
            for (const Vec3 *part : {below, above, above + 1, below - 2, below - 1, above - 1}) {
                sum = {sum.x + part->x, sum.y + part->y, sum.z + part->z};
            }
            sums[static_cast<std::size_t>(row * side + column)] = sum;
        }
    }
}

void bareErosion(std::vector<float> &heights, int n, int passes) {
    const std::ptrdiff_t side = n;
    // The neighbour that was visited last joins the sum last: its height is only just known.
    const auto visit = [side](float *p, std::ptrdiff_t last) {
        const float above = p[-side - 1] + p[-side] + p[-side + 1];
        const float below = p[side - 1] + p[side] + p[side + 1];
        *p = 0.125F * ((above + below + p[-last]) + p[last]);
    };
    for (int pass = 0; pass < passes; ++pass) {
        if (pass % 2 == 0) {
            for (std::ptrdiff_t row = 1; row + 1 < side; ++row) {
                float *line = &heights[static_cast<std::size_t>(row * side)];
                for (std::ptrdiff_t column = 1; column + 1 < side; ++column) {
                    visit(line + column, -1);
                }
            }
        } else {
            for (std::ptrdiff_t row = side - 2; row > 0; --row) {
                float *line = &heights[static_cast<std::size_t>(row * side)];
                for (std::ptrdiff_t column = side - 2; column > 0; --column) {
                    visit(line + column, 1);
                }
            }
        }
    }
}
