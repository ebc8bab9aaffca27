#include "map/math/Trackball.h"

#include "map/math/Matrix4.h"
#include "map/math/Vec3.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float radius = 0.8F;
constexpr float sheetBoundary = 0.70710677F;
constexpr float angleScale = 0.625F; // 1 / (2 · radius)

/// The point above (x, y), in view units, on a sphere that runs out into a hyperbolic sheet.
Vec3 projected(float x, float y) {
    constexpr float boundary = radius * sheetBoundary;
    const double d = std::sqrt(static_cast<double>(x) * x + static_cast<double>(y) * y);
    const double z = d < boundary ? std::sqrt(static_cast<double>(radius) * radius - d * d)
                                  : static_cast<double>(boundary) * boundary / d;
    return Vec3{x, y, static_cast<float>(z)};
}

/// Rotation about the vertical axis that takes one view point to the other.
Quaternion rotationOfPoints(float x1, float y1, float x2, float y2) {
    if (x1 == x2 && y1 == y2) {
        return Quaternion{};
    }
    const Vec3 p1 = projected(x1, y1);
    const Vec3 p2 = projected(x2, y2);
    Vec3 a;
    cross(p2, p1, a);
    Vec3 axis{0, a.y, 0};
    const double chord = length(Vec3{p1.x - p2.x, p1.y - p2.y, p1.z - p2.z});
    const double t = std::clamp(chord * angleScale, -1.0, 1.0);
    Quaternion q;
    fromAxisAngle(axis, static_cast<float>(2.0 * std::asin(t)), q);
    return q;
}

} // namespace

void Trackball::init(int width, int height) {
    resize(width, height);
    accumulated = rotationOfPoints(0, 0, 0, 0);
}

void Trackball::resize(int width, int height) {
    viewWidth = width;
    viewHeight = height;
}

void Trackball::beginDrag(int x, int y, int) {
    lastX = x;
    lastY = y;
}

void Trackball::endDrag(int, int) {}

Quaternion Trackball::rotationBetween(int x1, int y1, int x2, int y2) const {
    const auto across = [this](int x) {
        return -(2.0F * static_cast<float>(viewWidth - x) / static_cast<float>(viewWidth) - 1.0F);
    };
    const auto up = [this](int y) {
        return -(2.0F * static_cast<float>(y) / static_cast<float>(viewHeight) - 1.0F);
    };
    return rotationOfPoints(across(x1), up(y1), across(x2), up(y2));
}

void Trackball::drag(Matrix4 &out, int x, int y) {
    moved = x != lastX || y != lastY;
    if (moved) {
        turnBy(lastX, lastY, x, y);
    }
    lastX = x;
    lastY = y;
    toMatrix(accumulated, out);
}

void Trackball::turn(Matrix4 &out, int x1, int x2) {
    turnBy(x1, 0, x2, 0);
    toMatrix(accumulated, out);
}

void Trackball::turnBy(int x1, int y1, int x2, int y2) {
    if (viewWidth > 0 && viewHeight > 0) {
        lastIncrement = rotationBetween(x1, y1, x2, y2);
        compose(lastIncrement, accumulated, accumulated);
    }
}
