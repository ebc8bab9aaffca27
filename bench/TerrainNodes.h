#pragma once

#include "map/MeshNode.h"

#include <GL/gl.h>
#include <vector>

/// Other ways to draw a terrain's surface, each in the state that TerrainMesh::draw sets. They
/// stand in for the terrain in a level's graph; files know nothing of them.
/// The terrain's edge, the same for all, is recorded at the first draw. A context must be current when one
/// is destroyed.
class TerrainStandIn : public SceneNode {
public:
    explicit TerrainStandIn(const TerrainMesh &newTerrain) : terrain(newTerrain) {}
    ~TerrainStandIn() override;

    void draw(float time) override;
    void drawSecondPass(float) override {}
    void writeXml(QTextStream &) const override {}
    bool readXml(QDomElement, CISG *) override { return false; }

protected:
    virtual void drawStrips() = 0;

    const TerrainMesh &terrain;

private:
    void drawEdge();

    GLuint edgeList = 0;
};

/// Sends every vertex of every strip anew.
class SentTerrain : public TerrainStandIn {
public:
    using TerrainStandIn::TerrainStandIn;

protected:
    void drawStrips() override;
};

/// The same strips from buffer objects with one call; the buffers are filled at the first draw.
class BufferedTerrain : public TerrainStandIn {
public:
    using TerrainStandIn::TerrainStandIn;
    ~BufferedTerrain() override;

protected:
    void drawStrips() override;

private:
    void fillBuffers();

    GLuint vertexBuffer = 0;
    GLuint indexBuffer = 0;
    std::vector<GLsizei> counts;
    std::vector<const void *> offsets; ///< Of each strip's first index in the index buffer.
};
