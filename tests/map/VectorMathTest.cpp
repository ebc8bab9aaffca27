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
