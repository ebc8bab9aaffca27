#include "environment/MipmappedTexture.h"
#include "environment/OpenGLSetup.h"
#include "environment/SharedTextures.h"
#include "map/TerrainEdge.h"

namespace {

/// The texture repeats this often along each side of the map.
constexpr float textureRepeats = 5;

void send(const TerrainVertex &vertex) {
    glNormal3fv(&vertex.normal.x);
    glTexCoord3fv(&vertex.texture.x);
    glVertex3fv(&vertex.position.x);
}

} // namespace

TerrainMesh::~TerrainMesh() {
    if (!hasCurrentGLContext()) {
        return;
    }
    releaseTexture(textureObject);
    if (firstList != 0) {
        glDeleteLists(firstList, static_cast<GLsizei>(recorded.size()));
    }
}

void TerrainMesh::draw() {
    if (vertices.empty()) {
        return;
    }
    glPushMatrix();
    glPushAttrib(GL_ENABLE_BIT);
    glMatrixMode(GL_TEXTURE);
    glPushMatrix();
    glLoadIdentity();
    glScalef(textureRepeats, textureRepeats, 1);
    glMatrixMode(GL_MODELVIEW);
    if (wired == 0) {
        glBindTexture(GL_TEXTURE_2D, textureObject);
        glEnable(GL_TEXTURE_2D);
    } else {
        glDisable(GL_TEXTURE_2D);
        glDisable(GL_LIGHTING);
    }
    glColor3fv(color.data());
    drawStrips();
    glMatrixMode(GL_TEXTURE);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopAttrib();
    glPopMatrix();
}

void TerrainMesh::drawStrips() {
    if (firstList == 0) {
        firstList = glGenLists(static_cast<GLsizei>(recorded.size()));
    }
    if (firstList == 0) {
        sendStrips(); // no names left
        return;
    }
    const std::size_t mode = wired == 0 ? 0 : 1;
    const GLuint list = firstList + static_cast<GLuint>(mode);
    if (!recorded[mode]) {
        glNewList(list, GL_COMPILE);
        sendStrips();
        glEndList();
        recorded[mode] = true;
    }
    glCallList(list);
}

void TerrainMesh::sendStrips() const {
    const auto n = static_cast<std::size_t>(builtPointsPerSide);
    for (std::size_t row = 0; row + 1 < n; ++row) {
        glBegin(wired == 0 ? GL_TRIANGLE_STRIP : GL_LINE_STRIP);
        for (std::size_t column = 0; column < n; ++column) {
            send(vertices[row * n + column]);
            send(vertices[(row + 1) * n + column]);
        }
        glEnd();
    }
    if (wired == 0) {
        drawTerrainEdge(terrainEdge(*this));
    }
}

void TerrainMesh::loadTexture() {
    glPushAttrib(GL_ENABLE_BIT);
    loadMipmappedTexture(textureObject, texture);
    glPopAttrib();
}
