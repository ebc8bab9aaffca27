#pragma once

#include <GL/gl.h>
#include <array>
#include <optional>

struct Point3 {
    double x = 0;
    double y = 0;
    double z = 0;
};

/// The point that a frame shows at a position in device pixels, y downward, found through the
/// depth buffer; nothing where the matrices cannot be inverted or the point is not finite.
/// `modelview`, `projection` and `viewport` are those of that frame, whose buffers must still be
/// bound in the current OpenGL context.
std::optional<Point3> unprojectedPoint(int x, int y, const std::array<GLdouble, 16> &modelview,
                                       const std::array<GLdouble, 16> &projection,
                                       const std::array<GLint, 4> &viewport);
