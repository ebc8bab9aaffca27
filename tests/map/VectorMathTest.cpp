#include "map/math/Matrix4.h"
#include "map/math/Quaternion.h"
#include "map/math/Vec3.h"
#include "support/druvelkTest.h"

#include <GL/gl.h>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <cmath>
#include <memory>

namespace {

const Matrix4 sample{{2, 0, 1, 3, -1, 4, 0, 5, 0, 1, 3, -2, 1, 0, 2, 1}};

void compare(const Matrix4 &a, const Matrix4 &b, float tolerance = 1e-5F) {
    for (std::size_t i = 0; i < 16; ++i) {
        QVERIFY2(std::fabs(a[i] - b[i]) <= tolerance, QByteArray::number(int(i)));
    }
}

Matrix4 identity() {
    Matrix4 m;
    setDiagonal(m, 1);
    return m;
}

Matrix4 transposed(Matrix4 m) {
    transpose(m);
    return m;
}

} // namespace

class VectorMathTest : public QObject {
    Q_OBJECT

private slots:
    void vectors() {
        Vec3 out;
        const Vec3 &result = cross({1, 2, 3}, {4, 5, 7}, out);
        QVERIFY(&result == &out && out.x == -1 && out.y == 5 && out.z == -3);
        cross(out, {1, 0, 0}, out);
        QVERIFY(out.x == 0 && out.y == -3 && out.z == -5);
        QCOMPARE(length({3e30F, 0, 4e30F}), std::hypot(double(3e30F), double(4e30F)));
        Vec3 v{0, -3e-30F, 4e-30F};
        normalize(v);
        QVERIFY(std::fabs(v.y + 0.6F) < 1e-6F && std::fabs(v.z - 0.8F) < 1e-6F);
        Vec3 zero;
        QVERIFY(&normalize(zero) == &zero && zero.x == 0 && zero.y == 0 && zero.z == 0);
    }

    void quaternions() {
        Vec3 axis{0, 0, 5};
        Quaternion quarter;
        fromAxisAngle(axis, 1.5707964F, quarter);
        QVERIFY(axis.z == 1 && std::fabs(quarter.z - std::sqrt(0.5F)) < 1e-6F &&
                std::fabs(quarter.w - std::sqrt(0.5F)) < 1e-6F);

        // i after j: accumulated ⊗ increment = j ⊗ i = -k.
        Quaternion out;
        compose({1, 0, 0, 0}, {0, 1, 0, 0}, out);
        QVERIFY(out.x == 0 && out.y == 0 && out.z == -1 && out.w == 0);
        Quaternion a{0, 1, 0, 0};
        compose({1, 0, 0, 0}, a, a);
        QVERIFY(a.z == -1 && a.w == 0);
        Quaternion b{1, 0, 0, 0};
        compose(b, {0, 1, 0, 0}, b);
        QVERIFY(b.z == -1 && b.w == 0);

        Quaternion q{1, 2, -2, 4};
        renormalize(q);
        QVERIFY(std::fabs(q.x - 0.2F) < 1e-6F && std::fabs(q.y - 0.4F) < 1e-6F &&
                std::fabs(q.z + 0.4F) < 1e-6F && std::fabs(q.w - 0.8F) < 1e-6F);
        scale(q, 5);
        QVERIFY(std::fabs(q.x - 1) < 1e-5F && std::fabs(q.w - 4) < 1e-5F);
    }

    /// A quaternion's matrix turns the other way than the matrix of the same axis and angle.
    void aQuaternionsMatrixIsTheInverseRotation() {
        const Vec3 axis{1, -2, 0.5F};
        Vec3 unit = axis;
        Quaternion q;
        fromAxisAngle(unit, float(degreesToRadians(50)), q);
        Matrix4 fromQuaternion;
        toMatrix(q, fromQuaternion);
        Matrix4 fromAxis;
        rotation(fromAxis, 50, axis);
        compare(fromQuaternion, transposed(fromAxis));
        QCOMPARE(degreesToRadians(180), 3.141592653589793);
    }

    void products() {
        Matrix4 move;
        translation(move, 1, 2, 3);
        Matrix4 grow;
        scale(grow, 2, 4, 8);
        Matrix4 out;
        QVERIFY(&multiply(grow, out, move) == &out);
        compare(out, {{2, 0, 0, 2, 0, 4, 0, 8, 0, 0, 8, 24, 0, 0, 0, 1}}, 0);
        multiply(move, move, grow);
        compare(move, {{2, 0, 0, 1, 0, 4, 0, 2, 0, 0, 8, 3, 0, 0, 0, 1}}, 0);
        Matrix4 b = sample;
        multiply(identity(), b, b);
        compare(b, sample, 0);
        Matrix4 copied;
        copy(copied, transposed(sample));
        QVERIFY(copied[1] == -1 && copied[4] == 0 && copied[12] == 3 && copied[3] == 1);
        setDiagonal(copied, -3);
        compare(copied, {{-3, 0, 0, 0, 0, -3, 0, 0, 0, 0, -3, 0, 0, 0, 0, -3}}, 0);
    }

    void inverses() {
        QCOMPARE(determinant(sample), 32.0);
        Matrix4 inverted = sample;
        QVERIFY(&inverse(inverted) == &inverted);
        Matrix4 product;
        multiply(sample, product, inverted);
        compare(product, identity());
        Matrix4 singular = sample;
        for (std::size_t i = 0; i < 4; ++i) {
            singular[12 + i] = 2 * singular[i];
        }
        QCOMPARE(determinant(singular), 0.0);
        compare(inverse(singular), identity(), 0);
    }

    void bridgeToOpenGL() {
        QOpenGLContext context;
        context.setFormat(glSurfaceFormat());
        QVERIFY(context.create());
        QOffscreenSurface surface;
        surface.setFormat(context.format());
        surface.create();
        QVERIFY(context.makeCurrent(&surface));

        glMatrixMode(GL_MODELVIEW);
        Matrix4 m = sample;
        loadIntoGL(m);
        compare(m, sample, 0);
        Matrix4 read;
        readModelview(read);
        compare(read, sample, 0);

        const Vec3 axis{1, -2, 0.5F};
        glLoadIdentity();
        glTranslatef(1, 2, 3);
        glRotatef(40, axis.x, axis.y, axis.z);
        Matrix4 byOpenGL;
        readModelview(byOpenGL);
        glLoadIdentity();
        Matrix4 step;
        translation(step, 1, 2, 3);
        multiplyIntoGL(step);
        QVERIFY(step[3] == 1 && step[7] == 2 && step[11] == 3);
        rotation(step, 40, axis);
        multiplyIntoGL(step);
        readModelview(read);
        compare(read, byOpenGL);
        QCOMPARE(glGetError(), GLenum(GL_NO_ERROR));
    }
};

DRUVELK_TEST_MAIN(VectorMathTest)
#include "VectorMathTest.moc"
