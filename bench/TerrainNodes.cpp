#define GL_GLEXT_PROTOTYPES
#include "bench/TerrainNodes.h"

#include "map/TerrainEdge.h"

#include <GL/glext.h>
#include <cstddef>

namespace {

/// An offset into a bound buffer, as the calls that once took addresses want it.
const void *bufferOffset(std::size_t bytes) {
    return reinterpret_cast<const void *>(bytes);
}

} // namespace

TerrainStandIn::~TerrainStandIn() {
    glDeleteLists(edgeList, 1);
}

void TerrainStandIn::drawEdge() {
    if (edgeList == 0) {
        edgeList = glGenLists(1);
        glNewList(edgeList, GL_COMPILE);
        drawTerrainEdge(terrainEdge(terrain));
        glEndList();
    }
    glCallList(edgeList);
}

void TerrainStandIn::draw(float) {
    glPushMatrix();
    glPushAttrib(GL_ENABLE_BIT);
    glMatrixMode(GL_TEXTURE);
    glPushMatrix();
    glLoadIdentity();
    glScalef(5, 5, 1);
    glMatrixMode(GL_MODELVIEW);
    glBindTexture(GL_TEXTURE_2D, terrain.textureObject);
    glEnable(GL_TEXTURE_2D);
    glColor3fv(terrain.color.data());
    drawStrips();
    drawEdge();
    glMatrixMode(GL_TEXTURE);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopAttrib();
    glPopMatrix();
}

void SentTerrain::drawStrips() {
    const auto send = [](const TerrainVertex &vertex) {
        glNormal3fv(&vertex.normal.x);
        glTexCoord3fv(&vertex.texture.x);
        glVertex3fv(&vertex.position.x);
    };
    const auto n = static_cast<std::size_t>(terrain.pointsPerSide());
    for (std::size_t row = 0; row + 1 < n; ++row) {
        glBegin(GL_TRIANGLE_STRIP);
        for (std::size_t column = 0; column < n; ++column) {
            send(terrain.vertices[row * n + column]);
            send(terrain.vertices[(row + 1) * n + column]);
        }
        glEnd();
    }
}

BufferedTerrain::~BufferedTerrain() {
    glDeleteBuffers(1, &vertexBuffer);
    glDeleteBuffers(1, &indexBuffer);
}

void BufferedTerrain::fillBuffers() {
    const auto n = static_cast<std::size_t>(terrain.pointsPerSide());
    std::vector<GLuint> indices;
    for (std::size_t row = 0; row + 1 < n; ++row) {
        counts.push_back(static_cast<GLsizei>(2 * n));
        offsets.push_back(bufferOffset(indices.size() * sizeof(GLuint)));
        for (std::size_t column = 0; column < n; ++column) {
            indices.push_back(static_cast<GLuint>(row * n + column));
            indices.push_back(static_cast<GLuint>((row + 1) * n + column));
        }
    }
    const auto bytes = [](const auto &values) {
        return static_cast<GLsizeiptr>(values.size() * sizeof(values.front()));
    };
    glGenBuffers(1, &vertexBuffer);
    glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer);
    glBufferData(GL_ARRAY_BUFFER, bytes(terrain.vertices), terrain.vertices.data(), GL_STATIC_DRAW);
    glGenBuffers(1, &indexBuffer);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indexBuffer);
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, bytes(indices), indices.data(), GL_STATIC_DRAW);
}

void BufferedTerrain::drawStrips() {
    if (vertexBuffer == 0) {
        fillBuffers();
    }
    constexpr GLsizei stride = sizeof(TerrainVertex);
    glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indexBuffer);
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(3, GL_FLOAT, stride, bufferOffset(offsetof(TerrainVertex, position)));
    glNormalPointer(GL_FLOAT, stride, bufferOffset(offsetof(TerrainVertex, normal)));
    glTexCoordPointer(3, GL_FLOAT, stride, bufferOffset(offsetof(TerrainVertex, texture)));
    glMultiDrawElements(GL_TRIANGLE_STRIP, counts.data(), GL_UNSIGNED_INT, offsets.data(),
                        static_cast<GLsizei>(counts.size()));
    glPopClientAttrib();
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
}
