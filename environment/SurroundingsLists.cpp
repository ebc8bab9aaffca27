#include "environment/SurroundingsLists.h"

#include <array>

namespace {

/// A corner on the plane y = -1 and its texture coordinates.
struct Corner {
    float x;
    float z;
    float s;
    float t;
};

using Quad = std::array<Corner, 4>;

constexpr float planeHeight = -1; ///< The ground list's own transform brings it to height 0.

void drawQuad(const Quad &quad) {
    glBegin(GL_QUADS);
    for (const Corner &corner : quad) {
        glNormal3f(0, 1, 0);
        glTexCoord3f(corner.s, corner.t, 0);
        glVertex3f(corner.x, planeHeight, corner.z);
    }
    glEnd();
}

int halfOf(const SurroundingsSize &size) {
    return size.dimension / 2;
}

float pointSpacing(const SurroundingsSize &size) {
    return 1.0F / static_cast<float>(size.density);
}

/// Eight quads around the square, counter-clockwise as seen from above. Two of them reach one
/// point spacing inwards, up to the terrain's last row and column.
std::array<Quad, 8> groundFrame(const SurroundingsSize &size) {
    const auto h = static_cast<float>(halfOf(size));
    const float far = 2.0F * static_cast<float>(size.dimension);
    const float e = pointSpacing(size);
    return {{{{{-far, -h, 0, 0}, {-far, h, 0, 1}, {-h, h, 1, 1}, {-h, -h, 1, 0}}},
             {{{h - e, -h, 0, 0}, {h - e, h, 0, 1}, {far, h, 1, 1}, {far, -h, 1, 0}}},
             {{{-h, h - e, 0, 0}, {-h, far, 0, 1}, {h, far, 1, 1}, {h, h - e, 1, 0}}},
             {{{-h, -far, 0, 0}, {-h, -h, 0, 1}, {h, -h, 1, 1}, {h, -far, 1, 0}}},
             {{{-far, h, 0, 0}, {-far, far, 0, 1}, {-h, far, 1, 1}, {-h, h, 1, 0}}},
             {{{h, far, 0, 1}, {far, far, 1, 1}, {far, h, 1, 0}, {h, h, 0, 0}}},
             {{{far, -h, 1, 1}, {far, -far, 1, 0}, {h, -far, 0, 0}, {h, -h, 0, 1}}},
             {{{-h, -far, 1, 0}, {-far, -far, 0, 0}, {-far, -h, 0, 1}, {-h, -h, 1, 1}}}}};
}

/// Where one quad's side runs past another's corner the two do not meet in every pixel. Strips below those
/// joints, each with the picture of a quad beside it going on, are what shows there.
std::array<Quad, 4> groundLining(const SurroundingsSize &size) {
    constexpr float w = 2;
    const auto h = static_cast<float>(halfOf(size));
    const float far = 2.0F * static_cast<float>(size.dimension);
    const float in = h - pointSpacing(size);
    const float over = h > 0 ? w / (2 * h) : 0;
    const auto alongX = [=](float z, float t) -> Quad {
        return {{{in, z - w, 0, t - over},
                 {in, z + w, 0, t + over},
                 {far, z + w, 1, t + over},
                 {far, z - w, 1, t - over}}};
    };
    const auto alongZ = [=](float x, float s) -> Quad {
        return {{{x - w, in, s - over, 0},
                 {x - w, far, s - over, 1},
                 {x + w, far, s + over, 1},
                 {x + w, in, s + over, 0}}};
    };
    return {alongX(h, 1), alongX(-h, 0), alongZ(h, 1), alongZ(-h, 0)};
}

} // namespace

void compileGroundList(GLuint list, const SurroundingsSize &size) {
    const auto h = static_cast<float>(halfOf(size));
    glNewList(list, GL_COMPILE);
    glTranslatef(h, size.height, h);
    glScalef(1, size.height, 1);
    for (const Quad &quad : groundFrame(size)) {
        drawQuad(quad);
    }
    glPushAttrib(GL_POLYGON_BIT);
    glPolygonOffset(1, 4); // Behind the frame, in whose plane they lie.
    glEnable(GL_POLYGON_OFFSET_FILL);
    for (const Quad &quad : groundLining(size)) {
        drawQuad(quad);
    }
    glPopAttrib();
    glEndList();
}

void compileWaterList(GLuint list, const SurroundingsSize &size) {
    const auto edge = static_cast<float>(halfOf(size) + 1);
    glNewList(list, GL_COMPILE);
    drawQuad({{{-edge, -edge, 0, 0}, {-edge, edge, 0, 1}, {edge, edge, 1, 1}, {edge, -edge, 1, 0}}});
    glEndList();
}

void compileOutlineList(GLuint list, const SurroundingsSize &size) {
    const auto h = static_cast<float>(halfOf(size));
    const float start = -h - pointSpacing(size);
    glNewList(list, GL_COMPILE);
    glTranslatef(0, 0.05F, 0);
    glBegin(GL_LINE_STRIP);
    glVertex3f(start, planeHeight, start);
    glVertex3f(start, planeHeight, h);
    glVertex3f(h, planeHeight, h);
    glVertex3f(h, planeHeight, start);
    glVertex3f(start, planeHeight, start);
    glEnd();
    glEndList();
}
