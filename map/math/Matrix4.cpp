#include "map/math/Matrix4.h"

#include "map/math/Vec3.h"

#include <GL/gl.h>
#include <cmath>
#include <utility>

namespace {

std::size_t at(std::size_t row, std::size_t column) {
    return 4 * row + column;
}

/// Determinant of the 3 × 3 matrix left when one row and one column are taken out.
double minorOf(const Matrix4 &m, std::size_t row, std::size_t column) {
    std::array<double, 9> e{};
    std::size_t k = 0;
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t c = 0; c < 4; ++c) {
            if (r != row && c != column) {
                e[k++] = m[at(r, c)];
            }
        }
    }
    return e[0] * (e[4] * e[8] - e[5] * e[7]) - e[1] * (e[3] * e[8] - e[5] * e[6]) +
           e[2] * (e[3] * e[7] - e[4] * e[6]);
}

double cofactor(const Matrix4 &m, std::size_t row, std::size_t column) {
    const double minor = minorOf(m, row, column);
    return (row + column) % 2 == 0 ? minor : -minor;
}

} // namespace

void setDiagonal(Matrix4 &m, float s) {
    m.m.fill(0);
    m[0] = m[5] = m[10] = m[15] = s;
}

void scale(Matrix4 &m, float sx, float sy, float sz) {
    m.m.fill(0);
    m[0] = sx;
    m[5] = sy;
    m[10] = sz;
    m[15] = 1;
}

void translation(Matrix4 &m, float tx, float ty, float tz) {
    setDiagonal(m, 1);
    m[3] = tx;
    m[7] = ty;
    m[11] = tz;
}

void rotation(Matrix4 &m, float angle, const Vec3 &axis) {
    constexpr float radiansPerDegree = 0.017453292F;
    const double radians = angle * radiansPerDegree;
    const auto k = static_cast<float>(std::cos(radians));
    const auto s = static_cast<float>(std::sin(radians));
    const float t = 1 - k;
    Vec3 unit = axis;
    normalize(unit);
    const auto [x, y, z] = unit;
    m.m = {x * x * t + k,
           x * y * t - z * s,
           x * z * t + y * s,
           0,
           x * y * t + z * s,
           y * y * t + k,
           y * z * t - x * s,
           0,
           x * z * t - y * s,
           y * z * t + x * s,
           z * z * t + k,
           0,
           0,
           0,
           0,
           1};
}

Matrix4 &multiply(const Matrix4 &a, Matrix4 &out, const Matrix4 &b) {
    Matrix4 product;
    for (std::size_t i = 0; i < 4; ++i) {
        for (std::size_t j = 0; j < 4; ++j) {
            float sum = 0;
            for (std::size_t k = 0; k < 4; ++k) {
                sum += a[at(i, k)] * b[at(k, j)];
            }
            product[at(i, j)] = sum;
        }
    }
    out = product;
    return out;
}

void copy(Matrix4 &dst, const Matrix4 &src) {
    dst = src;
}

void transpose(Matrix4 &m) {
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t j = 0; j < r; ++j) {
            std::swap(m[at(r, j)], m[at(j, r)]);
        }
    }
}

double determinant(const Matrix4 &m) {
    double sum = 0;
    for (std::size_t c = 0; c < 4; ++c) {
        sum += m[at(0, c)] * cofactor(m, 0, c);
    }
    return sum;
}

Matrix4 &inverse(Matrix4 &m) {
    const double det = determinant(m);
    if (det == 0) {
        setDiagonal(m, 1);
        return m;
    }
    Matrix4 result;
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t c = 0; c < 4; ++c) {
            result[at(c, r)] = static_cast<float>(cofactor(m, r, c) / det);
        }
    }
    m = result;
    return m;
}

void multiplyIntoGL(Matrix4 &m) {
    transpose(m);
    glMultMatrixf(m.m.data());
    transpose(m);
}

void loadIntoGL(Matrix4 &m) {
    transpose(m);
    glLoadMatrixf(m.m.data());
    transpose(m);
}

void readModelview(Matrix4 &m) {
    glGetFloatv(GL_MODELVIEW_MATRIX, m.m.data());
    transpose(m);
}

double degreesToRadians(double degrees) {
    return (degrees + degrees) * 3.141592653589793 * 0.002777777777777778;
}
