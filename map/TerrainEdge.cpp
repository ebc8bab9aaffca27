#include "map/TerrainEdge.h"

#include <cmath>

namespace {

/// Wide enough to cover a pixel's fraction at the far end of the map.
constexpr float liningWidth = 2;

/// One side of the border, walked so that the terrain lies to the left.
struct BorderSide {
    int row;
    int column;
    int rowStep;
    int columnStep;
    float outwardX;
    float outwardZ;
};

/// Where the texture is `distance` map units outward of a point.
Vec3 textureOutward(const TerrainVertex &point, const BorderSide &side, float distance, float dimension) {
    return {point.texture.x + side.outwardZ * distance / dimension,
            point.texture.y + side.outwardX * distance / dimension, 0};
}

/// A wall is lit like the steep slopes inside the map, whose normals lean toward the level ground beside
/// them.
Vec3 wallNormal(const BorderSide &side, bool lowered) {
    const float lean = std::sqrt(0.5F);
    const float facing = lowered ? -lean : lean;
    return {facing * side.outwardX, lean, facing * side.outwardZ};
}

void addPoint(TerrainEdge &edge, const TerrainVertex &point, const BorderSide &side, float dimension) {
    const Vec3 &top = point.position;
    const Vec3 normal = wallNormal(side, top.y < 0);
    const Vec3 foot{top.x, 0, top.z};
    // The picture goes on over the edge as if the wall were folded up.
    const Vec3 footTexture = textureOutward(point, side, std::fabs(top.y), dimension);
    edge.wall.push_back({top, normal, point.texture});
    edge.wall.push_back({foot, normal, footTexture});

    const Vec3 out{top.x + liningWidth * side.outwardX, 0, top.z + liningWidth * side.outwardZ};
    edge.lining.push_back({foot, {0, 1, 0}, point.texture});
    edge.lining.push_back({out, {0, 1, 0}, textureOutward(point, side, liningWidth, dimension)});
}

void drawStrip(const std::vector<TerrainVertex> &strip) {
    glBegin(GL_TRIANGLE_STRIP);
    for (const TerrainVertex &vertex : strip) {
        glNormal3fv(&vertex.normal.x);
        glTexCoord3fv(&vertex.texture.x);
        glVertex3fv(&vertex.position.x);
    }
    glEnd();
}

} // namespace

TerrainEdge terrainEdge(const TerrainMesh &terrain) {
    TerrainEdge edge;
    const int n = terrain.pointsPerSide();
    if (n < 2) {
        return edge;
    }
    const int last = n - 1;
    const BorderSide sides[]{
        {0, 0, 1, 0, -1, 0}, {last, 0, 0, 1, 0, 1}, {last, last, -1, 0, 1, 0}, {0, last, 0, -1, 0, -1}};
    const auto points = static_cast<std::size_t>(8) * static_cast<std::size_t>(n);
    edge.wall.reserve(points);
    edge.lining.reserve(points);
    for (const BorderSide &side : sides) {
        for (int i = 0; i < n; ++i) {
            const int row = side.row + i * side.rowStep;
            const int column = side.column + i * side.columnStep;
            const auto point = static_cast<std::size_t>(row) * static_cast<std::size_t>(n) +
                               static_cast<std::size_t>(column);
            addPoint(edge, terrain.vertices[point], side, static_cast<float>(terrain.dimension));
        }
    }
    return edge;
}

void drawTerrainEdge(const TerrainEdge &edge) {
    constexpr float slopesBack = 1;
    constexpr float stepsBack = 4;
    drawStrip(edge.wall);
    glPushAttrib(GL_POLYGON_BIT);
    glPolygonOffset(slopesBack, stepsBack);
    glEnable(GL_POLYGON_OFFSET_FILL);
    drawStrip(edge.lining);
    glPopAttrib();
}
