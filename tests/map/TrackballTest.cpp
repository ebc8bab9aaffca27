#include "map/math/Trackball.h"

#include "map/math/Matrix4.h"
#include "map/math/Vec3.h"
#include "support/druvelkTest.h"

#include <QRandomGenerator>
#include <cmath>

namespace {

bool close(const Quaternion &a, const Quaternion &b, float tolerance = 1e-5F) {
    return std::fabs(a.x - b.x) < tolerance && std::fabs(a.y - b.y) < tolerance &&
           std::fabs(a.z - b.z) < tolerance && std::fabs(a.w - b.w) < tolerance;
}

double lengthOf(const Quaternion &q) {
    return std::sqrt(double(q.x) * q.x + double(q.y) * q.y + double(q.z) * q.z + double(q.w) * q.w);
}

/// The height of the trackball's surface above a view point.
double surface(double x, double y) {
    const double d = std::hypot(x, y);
    const double edge = 0.8 * 0.70710677;
    return d < edge ? std::sqrt(0.64 - d * d) : edge * edge / d;
}

/// What a drag between two pixels of a 200 × 100 view turns by, in double precision.
Quaternion expectedTurn(int x1, int y1, int x2, int y2) {
    const double vx1 = x1 / 100.0 - 1;
    const double vy1 = 1 - y1 / 50.0;
    const double vx2 = x2 / 100.0 - 1;
    const double vy2 = 1 - y2 / 50.0;
    const double z1 = surface(vx1, vy1);
    const double z2 = surface(vx2, vy2);
    const double vertical = z2 * vx1 - vx2 * z1;
    const double chord = std::sqrt(std::pow(vx1 - vx2, 2) + std::pow(vy1 - vy2, 2) + std::pow(z1 - z2, 2));
    const double sine = std::min(chord * 0.625, 1.0);
    const double sign = vertical > 0 ? 1 : vertical < 0 ? -1 : 0;
    return {0, float(sign * sine), 0, float(std::cos(std::asin(sine)))};
}

} // namespace

class TrackballTest : public QObject {
    Q_OBJECT

private slots:

    void turnsAboutTheVerticalAxis() {
        QRandomGenerator random(3);
        for (int i = 0; i < 300; ++i) {
            const QPoint from(random.bounded(-100, 300), random.bounded(-50, 150));
            const QPoint to(i % 10 == 0 ? from.x() : random.bounded(-100, 300), random.bounded(-50, 150));
            Trackball ball;
            ball.init(200, 100);
            ball.beginDrag(from.x(), from.y(), 0);
            Matrix4 m;
            ball.drag(m, to.x(), to.y());
            const Quaternion expected = expectedTurn(from.x(), from.y(), to.x(), to.y());
            QVERIFY2(close(ball.rotation(), expected, 1e-3F),
                     qPrintable(
                         QStringLiteral("%1 %2 %3 %4").arg(from.x()).arg(from.y()).arg(to.x()).arg(to.y())));
            Matrix4 same;
            toMatrix(ball.rotation(), same);
            QCOMPARE(m.m, same.m);
        }
    }

    void stepsAddUpAndStay() {
        Trackball ball;
        ball.init(200, 100);
        QVERIFY(close(ball.rotation(), {0, 0, 0, 1}, 1e-30F));
        Matrix4 first;
        ball.beginDrag(100, 0);
        ball.drag(first, 100, 0);
        Matrix4 identity;
        setDiagonal(identity, 1);
        QCOMPARE(first.m, identity.m);

        ball.drag(first, 120, 0);
        ball.endDrag(120, 0);
        const Quaternion kept = ball.rotation();
        ball.resize(400, 300);
        ball.beginDrag(7, 9);
        Matrix4 again;
        ball.drag(again, 7, 9);
        QCOMPARE(again.m, first.m);
        ball.resize(200, 100);
        ball.beginDrag(120, 0);
        ball.drag(again, 100, 0);
        QVERIFY(!close(ball.rotation(), kept));
        QVERIFY(close(ball.rotation(), {0, 0, 0, 1}));
        ball.beginDrag(100, 0);
        ball.drag(again, 150, 0);
        ball.init(200, 100);
        QVERIFY(close(ball.rotation(), {0, 0, 0, 1}, 1e-30F));
    }

    /// Every 98th composition of the process rescales, whoever asks for it.
    void every98thCompositionRescales() {
        const Quaternion twice{0, 0, 0, 2};
        Quaternion out;
        int last = -1;
        for (int i = 0; i < 400; ++i) {
            compose(twice, Quaternion{}, out);
            if (lengthOf(out) < 1.5) {
                QVERIFY(last == -1 || i - last == 98);
                last = i;
            }
        }
        QVERIFY(last >= 300);
    }
};

DRUVELK_TEST_MAIN(TrackballTest)
#include "TrackballTest.moc"
