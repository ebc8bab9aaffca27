#include "tests/support/PreviewProbe.h"
#include "tests/support/druvelkTest.h"

#include <QTemporaryDir>
#include <cmath>

/// The preview's camera under mouse and wheel.
class CameraTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        QDir::setCurrent(scratch.path());
        view = std::make_unique<GLMapWidget>();
        driver = std::make_unique<ViewDriver>(*view);
        probe = std::make_unique<PreviewProbe>(*view);
        QVERIFY(driver->show(600, 400, 60, 2));
        view->changePreview();
        probe->look();
    }

    void cleanup() { view.reset(); }

    void itStandsWhereItShould() {
        const auto eye = eyePosition();
        QVERIFY(isNear(eye, {90, 26, -30}));
        const auto farPlane = view->projection[14] / (view->projection[10] + 1);
        QVERIFY(std::abs(farPlane - 180) < 0.5);
        QVERIFY(std::abs(view->projection[5] / view->projection[0] - 1.5) < 1e-9);
        // x grows to the left, as in the overview.
        QVERIFY(probe->place(50, 0, 30).x() < probe->place(10, 0, 30).x());
    }

    void dragsRaiseTheEyeAndTurnAboutTheCentre() {
        drag({300, 200}, {300, 150});
        QVERIFY(isNear(eyePosition(), {90, 31, -30}));
        drag({300, 50}, {300, 350});
        QCOMPARE(view->eyeHeight, 1.0F);
        for (int i = 0; i < 3; ++i) {
            drag({300, 390}, {300, 0});
        }
        QCOMPARE(view->eyeHeight, 60.0F);
        const QPoint lookedAt = probe->place(30, 6, 30);
        drag({200, 200}, {330, 200});
        const auto eye = eyePosition();
        QVERIFY(std::abs(eye.y - 66) < 1e-3);
        QVERIFY(std::abs(std::hypot(eye.x - 30, eye.z - 30) - std::hypot(60, 60)) < 1e-3);
        QCOMPARE(probe->place(30, 6, 30), lookedAt);
        // Dragging to the right brings the near side along to the right.
        QVERIFY(probe->place(45, 0, 15).x() > lookedAt.x() + 5);
        // The camera outlives a look at the overview.
        const QImage before = probe->picture();
        view->changePreview();
        driver->paint();
        view->changePreview();
        probe->look();
        QCOMPARE(probe->picture(), before);
    }

    void theWheelZoomsUpToItsLimits() {
        driver->wheel(120 * 1000);
        driver->wheel(-120 * 1000);
        probe->look();
        QCOMPARE(view->zoom, 1.6F);
        QVERIFY(isNear(eyePosition(), {30 + 96, 26, 30 - 96}));
    }

    void aDoubleClickLandsOnThePointItPointsAt() {
        probe->shape([](float x, float z) { return std::max(0.F, 10 - std::hypot(x - 40, z - 40)); });
        probe->look();
        doubleClick(probe->place(40.7, 9.01, 39.3));
        QVERIFY(std::hypot(view->center.x - 40, view->center.y - 9, view->center.z - 40) < 1.5);
        probe->look();
        doubleClick(probe->place(30, 0, 22));
        QVERIFY(std::hypot(view->center.x - 30, view->center.y, view->center.z - 22) < 1);
        view->updateTrackBallCenter();
        probe->look();
        // Beside the map, the nearest point of its edge.
        doubleClick(probe->place(75, 0, 20));
        QCOMPARE(view->center.x, 60.0);
        QCOMPARE(view->center.y, 0.0);
        QVERIFY(std::abs(view->center.z - 20) < 1);
        view->updateTrackBallCenter();
        probe->look();
        // The sky is far beyond every edge.
        doubleClick({300, 2});
        QCOMPARE(view->center.y, 0.0);
        QVERIFY(QRectF(0, 0, 60, 60).contains(view->center.x, view->center.z));
    }

private:
    /// The eye in the world, from the last frame's modelview: −Rᵀ t.
    Point3 eyePosition() const {
        const auto &m = view->modelview;
        const auto along = [&m](std::size_t i) {
            return -(m[4 * i] * m[12] + m[4 * i + 1] * m[13] + m[4 * i + 2] * m[14]);
        };
        return {along(0), along(1), along(2)};
    }

    static bool isNear(const Point3 &a, const Point3 &b) {
        return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z) < 0.02;
    }

    void drag(QPoint from, QPoint to) {
        QTest::mousePress(view.get(), Qt::LeftButton, {}, from);
        driver->sendMove((from + to) / 2);
        driver->sendMove(to);
        QTest::mouseRelease(view.get(), Qt::LeftButton, {}, to);
        probe->look();
    }

    /// A double-click at a device position, as the toolkit delivers it.
    void doubleClick(QPoint device) {
        const QPoint position = (QPointF(device) / view->devicePixelRatioF()).toPoint();
        QTest::mouseClick(view.get(), Qt::LeftButton, {}, position);
        QTest::mouseDClick(view.get(), Qt::LeftButton, {}, position);
    }

    QTemporaryDir scratch;
    std::unique_ptr<GLMapWidget> view;
    std::unique_ptr<ViewDriver> driver;
    std::unique_ptr<PreviewProbe> probe;
};

DRUVELK_TEST_MAIN(CameraTest)
#include "CameraTest.moc"
