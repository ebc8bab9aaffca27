#include "map/math/Vec3.h"

#include <cmath>

Vec3 &cross(const Vec3 &a, const Vec3 &b, Vec3 &out) {
    out = Vec3{a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
    return out;
}

double length(const Vec3 &v) {
    const double x = v.x;
    const double y = v.y;
    const double z = v.z;
    return std::sqrt(x * x + y * y + z * z);
}

Vec3 &normalize(Vec3 &v) {
    const double l = length(v);
    if (l > 0) {
        const double inverse = 1.0 / l;
        v.x = static_cast<float>(v.x * inverse);
        v.y = static_cast<float>(v.y * inverse);
        v.z = static_cast<float>(v.z * inverse);
    }
    return v;
}
