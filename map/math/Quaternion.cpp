#include "map/math/Quaternion.h"

#include "map/math/Matrix4.h"
#include "map/math/Vec3.h"

#include <cmath>

namespace {

constexpr int renormalisationThreshold = 97;
int compositions = 0;

} // namespace

void scale(Quaternion &q, float s) {
    q.x *= s;
    q.y *= s;
    q.z *= s;
    q.w *= s;
}

void renormalize(Quaternion &q) {
    const double x = q.x;
    const double y = q.y;
    const double z = q.z;
    const double w = q.w;
    const double l = std::sqrt(x * x + y * y + z * z + w * w);
    q = Quaternion{static_cast<float>(x / l), static_cast<float>(y / l), static_cast<float>(z / l),
                   static_cast<float>(w / l)};
}

void fromAxisAngle(Vec3 &axis, float angle, Quaternion &out) {
    normalize(axis);
    const double half = static_cast<double>(angle) / 2.0;
    const double s = std::sin(half);
    out = Quaternion{static_cast<float>(axis.x * s), static_cast<float>(axis.y * s),
                     static_cast<float>(axis.z * s), static_cast<float>(std::cos(half))};
}

void compose(const Quaternion &increment, const Quaternion &accumulated, Quaternion &out) {
    const Quaternion a = increment;
    const Quaternion b = accumulated;
    const float dot = a.x * b.x + a.y * b.y + a.z * b.z;
    Vec3 v;
    cross(Vec3{b.x, b.y, b.z}, Vec3{a.x, a.y, a.z}, v);
    out.x = a.x * b.w + b.x * a.w + v.x;
    out.y = a.y * b.w + b.y * a.w + v.y;
    out.z = a.z * b.w + b.z * a.w + v.z;
    out.w = a.w * b.w - dot;
    if (++compositions > renormalisationThreshold) {
        compositions = 0;
        renormalize(out);
    }
}

void toMatrix(const Quaternion &q, Matrix4 &out) {
    const auto [x, y, z, w] = q;
    out.m = {1 - 2 * (y * y + z * z),
             2 * (x * y + w * z),
             2 * (x * z - w * y),
             0,
             2 * (x * y - w * z),
             1 - 2 * (x * x + z * z),
             2 * (y * z + w * x),
             0,
             2 * (x * z + w * y),
             2 * (y * z - w * x),
             1 - 2 * (x * x + y * y),
             0,
             0,
             0,
             0,
             1};
}
