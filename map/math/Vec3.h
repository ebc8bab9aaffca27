#pragma once

/// A point, direction or extent in three dimensions; map units unless a caller says otherwise.
struct Vec3 {
    float x = 0;
    float y = 0;
    float z = 0;
};

/// out = a × b. `out` may be `a` or `b`. Returns out.
Vec3 &cross(const Vec3 &a, const Vec3 &b, Vec3 &out);

/// Euclidean length, evaluated in double precision.
double length(const Vec3 &v);

/// Scales v to unit length in place; a vector of length 0 stays as it is. Returns v.
Vec3 &normalize(Vec3 &v);
