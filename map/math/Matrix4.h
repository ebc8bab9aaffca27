#pragma once

#include <array>
#include <cstddef>

struct Vec3;

/// A 4 × 4 matrix held row-major: row r, column j is element 4 r + j. Points are column vectors
/// (p' = M p), so a translation sits in elements 3, 7 and 11. OpenGL receives the transpose.
struct Matrix4 {
    std::array<float, 16> m{};

    float &operator[](std::size_t i) { return m[i]; }
    float operator[](std::size_t i) const { return m[i]; }
};

/// Every element 0, the diagonal s.
void setDiagonal(Matrix4 &m, float s);

/// The scaling matrix of the three factors.
void scale(Matrix4 &m, float sx, float sy, float sz);

/// The translation matrix.
void translation(Matrix4 &m, float tx, float ty, float tz);

/// Rotation by `angle` degrees about `axis` (any length but 0), as glRotatef builds it.
void rotation(Matrix4 &m, float angle, const Vec3 &axis);

/// out = a · b. `out` may be `a` or `b`. Returns out.
Matrix4 &multiply(const Matrix4 &a, Matrix4 &out, const Matrix4 &b);

void copy(Matrix4 &dst, const Matrix4 &src);

/// Exchanges rows and columns in place.
void transpose(Matrix4 &m);

double determinant(const Matrix4 &m);

/// Replaces m by its inverse, or by the identity where the determinant is exactly 0. Returns m.
Matrix4 &inverse(Matrix4 &m);

/// Multiplies OpenGL's current matrix by m. Needs a current context.
void multiplyIntoGL(Matrix4 &m);

/// Replaces OpenGL's current matrix by m. Needs a current context.
void loadIntoGL(Matrix4 &m);

/// m = OpenGL's modelview matrix. Needs a current context.
void readModelview(Matrix4 &m);

/// An angle in degrees as radians.
double degreesToRadians(double degrees);
