#include "environment/OffscreenView.h"
#include "map/math/Matrix4.h"
#include "map/math/Quaternion.h"
#include "map/math/Trackball.h"
#include "map/math/Vec3.h"
#include "support/druvelkTest.h"
#include "support/randomSeed.h"

#include <QMatrix4x4>
#include <QQuaternion>
#include <cmath>
#include <random>

namespace {

bool same(const Matrix4 &a, const QMatrix4x4 &b, double tolerance = 1e-4) {
    for (std::size_t i = 0; i < 16; ++i) {
        const double off = std::fabs(double(a[i]) - double(b(int(i / 4), int(i % 4))));
        if (!(off < tolerance)) { // a NaN, too
            return false;
        }
    }
    return true;
}

/// The angle that a drag along the upper edge of a view turns by: from one point of the trackball's surface
/// to the other.
double expectedTurn(QSize view, int from, int to) {
    if (view.isEmpty()) {
        return 0;
    }
    const auto x = [&view](int pixel) { return 2.0 * pixel / view.width() - 1; };
    const auto height = [&x](int pixel) { return 0.32 / std::hypot(x(pixel), 1); };
    const double chord = std::hypot(x(from) - x(to), height(from) - height(to));
    return (from < to ? -2 : 2) * std::asin(std::min(chord / 1.6, 1.0));
}

} // namespace

/// Against the toolkit's own classes, and the trackball against its rule in double precision.
class VectorMathTest : public QObject {
    Q_OBJECT

private slots:
    void matrices() {
        const OffscreenView view;
        for (int i = 0; i < 300; ++i) {
            Matrix4 a;
            Matrix4 b;
            for (std::size_t k = 0; k < 16; ++k) {
                a[k] = number() + (k % 5 == 0 ? 3 : 0); // so that it has an inverse
                b[k] = number();
            }
            const QMatrix4x4 qa(a.m.data());
            const QMatrix4x4 qb(b.m.data());
            Matrix4 out = a;
            QVERIFY(same(multiply(out, out, b), qa * qb));
            out = b;
            QVERIFY(same(multiply(a, out, out), qa * qb));
            loadIntoGL(a);
            multiplyIntoGL(b);
            readModelview(out);
            QVERIFY(same(out, qa * qb) && same(a, qa, 1e-9) && same(b, qb, 1e-9));
            QVERIFY(std::fabs(determinant(a) - qa.determinant()) < 1e-3);
            if (std::fabs(determinant(a)) > 5) {
                QVERIFY(same(inverse(a), qa.inverted()));
            }
            const Vec3 v{number(), number(), number() + 3};
            QMatrix4x4 turn;
            turn.rotate(100 * v.x, v.x, v.y, v.z);
            rotation(out, 100 * v.x, v);
            QVERIFY(same(out, turn));
        }
    }

    /// A quaternion's matrix turns the other way than is usual, for OpenGL turns the world.
    void quaternions() {
        Quaternion q{0, 0, 0, 2}; // The 98th composition takes errors of its length out.
        QQuaternion model;
        for (int i = 0; i < 1000; ++i) {
            Vec3 axis{number(), number(), number() + 3};
            const float degrees = 100 * number();
            model *= QQuaternion::fromAxisAndAngle(axis.x, axis.y, axis.z, degrees);
            model.normalize();
            Quaternion turn;
            fromAxisAngle(axis, float(degreesToRadians(double(degrees))), turn);
            compose(turn, q, q);
            Matrix4 m;
            toMatrix(q, m);
            QVERIFY(i < 98 || same(m, QMatrix4x4(model.toRotationMatrix()).transposed()));
        }
    }

    void dragsTurnAboutTheVerticalAxis() {
        Trackball ball;
        double angle = 0;
        for (int i = 0; i < 4000; ++i) {
            const QSize view(below(4) * 100, below(4) * 70);
            if (i % 8 == 0) {
                ball.init(view.width(), view.height());
                angle = 0;
            }
            ball.resize(view.width(), view.height());
            const int from = below(400) - 50;
            const int to = below(400) - 50;
            angle += expectedTurn(view, from, to);
            Matrix4 m;
            if (below(3) == 0) {
                ball.turn(m, from, to);
            } else {
                ball.beginDrag(from, 0);
                ball.drag(m, to, 0);
                ball.drag(m, to, 0);
            }
            QMatrix4x4 expected;
            expected.rotate(-float(angle * 180 / M_PI), 0, 1, 0);
            QVERIFY2(same(m, expected, 0.01), qPrintable(QString::number(i)));
        }
    }

private:
    float number() { return std::uniform_real_distribution<float>(-2, 2)(random); }
    int below(int end) { return int(random() % unsigned(end)); }

    std::mt19937 random{randomSeed()};
};

DRUVELK_TEST_MAIN(VectorMathTest)
#include "VectorMathTest.moc"
