#include "map/Picking.h"

#include <GL/glu.h>
#include <cmath>

std::optional<Point3> unprojectedPoint(int x, int y, const std::array<GLdouble, 16> &modelview,
                                       const std::array<GLdouble, 16> &projection,
                                       const std::array<GLint, 4> &viewport) {
    const int fromBottom = viewport[3] - y;
    // A position outside the frame buffer leaves the value untouched: the far plane then.
    GLfloat depth = 1.0F;
    glReadPixels(x, fromBottom, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
    Point3 p;
    if (gluUnProject(x, fromBottom, static_cast<GLdouble>(depth), modelview.data(), projection.data(),
                     viewport.data(), &p.x, &p.y, &p.z) != GL_TRUE) {
        return std::nullopt;
    }
    if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z)) {
        return std::nullopt;
    }
    return p;
}
