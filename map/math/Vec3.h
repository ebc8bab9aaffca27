#pragma once

#include <cmath>

/// A point, direction or extent in three dimensions; map units unless a caller says otherwise.
struct Vec3 {
    float x = 0;
    float y = 0;
    float z = 0;
};

/// out = a × b. `out` may be `a` or `b`. Returns out.
inline Vec3 &cross(const Vec3 &a, const Vec3 &b, Vec3 &out) {
    out = Vec3{a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
    return out;
}

/// Euclidean length, evaluated in double precision.
inline double length(const Vec3 &v) {
    const double x = v.x;
    const double y = v.y;
    const double z = v.z;
    return std::sqrt(x * x + y * y + z * z);
}

/// Scales v to unit length in place; a vector of length 0 stays as it is. Returns v.
inline Vec3 &normalize(Vec3 &v) {
    const double l = length(v);
    if (l > 0) {
        const double inverse = 1.0 / l;
        v.x = static_cast<float>(v.x * inverse);
        v.y = static_cast<float>(v.y * inverse);
        v.z = static_cast<float>(v.z * inverse);
    }
    return v;
}
