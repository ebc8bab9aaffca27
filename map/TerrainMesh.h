#pragma once

#include "map/TerrainContent.h"
#include "map/TerrainHeights.h"
#include "map/math/Vec3.h"

#include <GL/gl.h>
#include <array>
#include <functional>
#include <vector>

/// A point of the terrain grid. The height is position.y.
struct TerrainVertex {
    Vec3 position;
    Vec3 normal{0, 1, 0};
    Vec3 texture; ///< s, t, r; r is always 0.
};

/// Three vertices of one grid and the unit normal of their face.
struct TerrainTriangle {
    const TerrainVertex *a = nullptr;
    const TerrainVertex *b = nullptr;
    const TerrainVertex *c = nullptr;
    Vec3 normal;

    /// The normal from the vertices as they now lie; zero for a triangle without an area.
    void updateNormal();
};

/// A square height field: N × N points, N = dimension × density, and its triangles. Row r and
/// column c of the grid are point r · N + c, at x = c / density, z = r / density.
class TerrainMesh : public TerrainContent {
public:
    TerrainMesh() = default;
    TerrainMesh(const TerrainMesh &) = delete;
    TerrainMesh &operator=(const TerrainMesh &) = delete;

    /// The largest N; a grid whose numbers ask for more stays empty.
    static constexpr int mostPointsPerSide = 1024;

    GLuint textureObject = 0;
    std::vector<TerrainVertex> vertices;
    std::vector<TerrainTriangle> triangles; ///< Referring into vertices.
    int wired = 0;                          ///< 0: textured, lit surface; 1: wire frame.

    /// Stores both; the grid stays as it is until build.
    void setSize(int newDimension, int newDensity);

    void setRandomGeography(bool random) { randomGeography = random; }

    /// Empties the grid. References to its vertices and triangles end here.
    void clear();

    /// Builds the grid for the stored size with the heights that `nextHeight` gives, point by
    /// point in grid order; none means all 0. A size out of range gives an empty grid.
    void build(const std::function<float()> &nextHeight = {});

    /// The heights of the grid. What is the same in `earlier` is shared with it.
    TerrainHeights heights(const TerrainHeights &earlier = {}) const {
        return TerrainHeights(vertices, earlier);
    }

    /// Takes the heights of a grid of the stored size; the grid is built anew where it has another.
    /// An empty grid's heights empty this one. Normals are stale afterwards.
    void setHeights(const TerrainHeights &heights);

    /// Recomputes every face normal, then the vertex normals of rows 1 to N − 2 (sums of the face
    /// normals around a point, not normalised). Costs little where the heights did not change.
    void computeNormals();

    /// The heights changed: what was recorded for drawing is recorded anew at the next draw.
    void markChanged() { recorded.fill(false); }

    /// Points per side of the grid as it is built; 0 for an empty grid.
    int pointsPerSide() const { return builtPointsPerSide; }

    /// The number of points per side a size asks for; 0 where it is out of range.
    static int pointsPerSideOf(int dimension, int density);

    /// Draws the surface, whose border walls join to height 0, or the wire frame. Needs a current OpenGL
    /// context.
    void draw();

    /// Makes or refreshes the texture object. Needs a current OpenGL context.
    void loadTexture();

protected:
    /// Deletes OpenGL names if a context is current. Not virtual: MeshNode owns the object.
    ~TerrainMesh();

private:
    void buildVertices(const std::function<float()> &nextHeight);
    void buildTriangles();
    bool normalsAreOfTheseHeights();
    bool updateVertexNormals();
    const Vec3 &faceNormal(int quadRow, int quadColumn, int half) const;
    void drawStrips();
    void sendStrips() const;

    int builtPointsPerSide = 0;
    int builtDensity = 0;
    std::vector<float> normalHeights; ///< What the normals were last computed from.
    GLuint firstList = 0;             ///< Recorded strips: the surface, then the wire frame.
    std::array<bool, 2> recorded{};   ///< Which of the two lists hold the grid as it is.
};
