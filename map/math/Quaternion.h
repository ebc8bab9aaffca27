#pragma once

struct Matrix4;
struct Vec3;

/// A rotation: vector part (x, y, z) and scalar part w. The default is the identity.
struct Quaternion {
    float x = 0;
    float y = 0;
    float z = 0;
    float w = 1;
};

/// Multiplies all four components by s.
void scale(Quaternion &q, float s);

/// Divides all four components by the quaternion's length.
void renormalize(Quaternion &q);

/// out = rotation by `angle` radians about `axis`, which is normalised in place.
void fromAxisAngle(Vec3 &axis, float angle, Quaternion &out);

/// out = the accumulated rotation followed by the increment (the Hamilton product
/// accumulated ⊗ increment). `out` may be either argument. Every 98th composition of the
/// process rescales its result to unit length, so that rounding never builds up.
void compose(const Quaternion &increment, const Quaternion &accumulated, Quaternion &out);

/// out = the rotation as a matrix: the transpose of the usual column-vector matrix of q, so
/// that OpenGL rotates by the inverse of q.
void toMatrix(const Quaternion &q, Matrix4 &out);
