#include "tests/support/PreviewProbe.h"
#include "tests/support/druvelkTest.h"

#include <QTemporaryDir>
#include <cmath>

namespace {

const QColor skyColor(40, 80, 240);

bool isGreen(const QColor &color) {
    return color.green() > 120 && color.red() == 0 && color.blue() == 0;
}

/// What nobody draws.
bool isBlack(QRgb pixel) {
    return (pixel & 0xffffff) == 0;
}

/// Neither sky nor the grey outline, which stands above the ground.
bool isGround(QRgb pixel) {
    return qGreen(pixel) > qBlue(pixel);
}

} // namespace

/// The preview in pixels. Run a second time where the driver has no cube maps.
class PreviewTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        scratch = std::make_unique<QTemporaryDir>();
        QDir::setCurrent(scratch->path());
        QVERIFY(PreviewProbe::makePictures(QColor(0, 200, 0), Qt::white, skyColor));
        view = std::make_unique<GLMapWidget>();
        driver = std::make_unique<ViewDriver>(*view);
        probe = std::make_unique<PreviewProbe>(*view);
        QVERIFY(driver->show(500, 400));
        PreviewProbe::usePictures(*view->document);
        level().water = false;
        level().setSunColor(1, 1, 1);
        view->changePreview();
        probe->look();
    }

    void cleanup() { view.reset(); }

    void theFirstFrameIsComplete() {
        QCOMPARE(probe->at(highUp), skyColor);
        const QImage first = probe->picture();
        probe->look();
        QCOMPARE(probe->picture(), first);
        // Ground frame and flat terrain are one plane, lit alike.
        level().dayTime = 30;
        probe->look();
        const QColor ground = probe->at(20, 0, -10);
        const QColor terrain = probe->at(20, 0, 20);
        QVERIFY(isGreen(ground) && isGreen(terrain) && ground.green() < 160);
        QVERIFY(std::abs(ground.green() - terrain.green()) <= 2);
    }

    void waterDoesNotChangeWhatTheNextFrameShows() {
        // From below, the ground's underside is seen only while culling is off.
        level().water = true;
        view->center.y = -40;
        lookAfterSetUp();
        const QImage first = probe->picture();
        probe->look();
        QCOMPARE(probe->picture(), first);
    }

    void slopesTowardTheSunAreBrighter() {
        probe->shape([](float x, float) { return 5 - std::abs(x - 20) * 0.25F; });
        level().dayTime = 50;
        probe->look();
        QVERIFY(brightness(probe->at(28, 3, 20)) > brightness(probe->at(12, 3, 20)) + 20);
        level().dayTime = 131;
        probe->look();
        QVERIFY(brightness(probe->at(12, 3, 20)) > brightness(probe->at(28, 3, 20)) + 20);
    }

    void hillsStandBeforeTheSky() {
        // One peak near the eye, one in the middle, one at the far corner.
        for (const auto &[x, z] : {std::pair(34.F, 5.F), {20.F, 20.F}, {4.F, 36.F}}) {
            probe->shape([x = x, z = z](float px, float pz) {
                return std::max(0.F, 25 - 5 * std::max(std::abs(px - x), std::abs(pz - z)));
            });
            probe->look();
            const QColor slope = probe->at(x + 0.2, 24, z - 0.2);
            QVERIFY2(slope.blue() == 0 && slope.green() > 20, qPrintable(slope.name()));
        }
    }

    void waterShowsInHollowsOnly() {
        probe->shape([](float x, float z) { return std::hypot(x - 20, z - 20) < 8 ? -3.F : 0.F; });
        probe->look();
        const QColor dryHollow = probe->at(20, -0.3, 20);
        const QColor land = probe->at(20, 0, 6);
        level().water = true;
        level().waterColor = {0, 0, 1};
        lookAfterSetUp();
        const QColor hollow = probe->at(20, -0.3, 20);
        QVERIFY(hollow.blue() > dryHollow.blue() + 100 && std::abs(hollow.green() - dryHollow.green()) <= 1);
        QCOMPARE(probe->at(20, 0, 6), land);
        QCOMPARE(probe->at(20, 0, -10), land);
    }

    void fogTurnsDistanceIntoTheSunsColour() {
        level().fog = true;
        level().setSunColor(1, 0.5F, 0.25F);
        lookAfterSetUp();
        QVERIFY(shows(probe->at(highUp), 1, 0.5F, 0.25F));
        const auto distanceToSun = [this](double x, double z) {
            const QColor color = probe->at(x, 0, z);
            return std::abs(color.red() - 255) + std::abs(color.blue() - 64);
        };
        QVERIFY(distanceToSun(-60, 100) < distanceToSun(20, 20));
        QVERIFY(distanceToSun(20, 20) < distanceToSun(36, 4));
        probe->shape([](float, float) { return -2.F; });
        level().water = true;
        level().setSunColor(0.5F, 0.5F, 0.5F);
        lookAfterSetUp();
        // Added to fog, the fog's own colour would make the far water brighter than the sky.
        QVERIFY(brightness(probe->at(4, -0.3, 36)) < brightness(probe->at(highUp)) + 180);
        level().fog = false;
        lookAfterSetUp();
        QCOMPARE(probe->at(highUp), skyColor);
        QCOMPARE(probe->at(36, 0, -4).red(), 0);
    }

    void bothPassesAreToldTheTime() {
        struct Listener : MeshNode {
            void draw(float time) override { heard = time; }
            void drawSecondPass(float time) override { heard = -time; }
            float heard = 0;
        };
        auto &nodes = view->document->root.children;
        nodes.push_back(std::make_unique<Listener>());
        const auto &listener = static_cast<Listener &>(*nodes.back());
        view->makeCurrent();
        view->document->draw(2.5F);
        QCOMPARE(listener.heard, 2.5F);
        view->document->drawSecondPass(3.5F);
        QCOMPARE(listener.heard, -3.5F);
    }

    void theWireFrameIsSeenThrough() {
        probe->shape([](float x, float z) {
            return std::max(0.F, 30 - 3 * std::max(std::abs(x - 20), std::abs(z - 20)));
        });
        probe->look();
        const auto hidden = count(skyColor);
        view->document->mesh->color = {1, 1, 1};
        view->changeWired();
        probe->look();
        QVERIFY(count(skyColor) > hidden + 10 && count(Qt::white) > 10);
        view->changeWired();
        probe->look();
        QCOMPARE(count(skyColor), hidden);
    }

    void aLevelWithoutPicturesShowsItsColours() {
        PreviewProbe::usePictures(*view->document, QStringLiteral("missing"));
        level().groundColor = view->document->mesh->color = {1, 0, 0};
        lookAfterSetUp();
        QVERIFY(probe->at(20, 0, 20).red() > 200 && probe->at(20, 0, 20).green() == 0);
        QVERIFY(probe->at(20, 0, -10).red() > 200 && probe->at(20, 0, -10).green() == 0);
        QVERIFY(shows(probe->at(highUp), 1, 1, 1));
    }

    void changesShowWhileThePreviewIsOpen() {
        view->document->mesh->color = {1, 0.5F, 1};
        probe->look();
        const int before = probe->at(20, 0, 20).green();
        view->document->mesh->color = {1, 1, 1};
        probe->look();
        QVERIFY(probe->at(20, 0, 20).green() > before + 50);
        // The picture repeats every 8 units; its right half lies where z is 4 to 8 beyond.
        QImage halves(2, 1, QImage::Format_RGB32);
        halves.setPixelColor(0, 0, QColor(200, 0, 0));
        halves.setPixelColor(1, 0, QColor(0, 0, 200));
        QVERIFY(halves.scaled(64, 64).save(QStringLiteral("data/textures/testGround.png")));
        lookAfterSetUp();
        QVERIFY(probe->at(20, 0, 18).red() > 120 && probe->at(20, 0, 18).green() == 0);
        QVERIFY(probe->at(20, 0, 22).blue() > 120 && probe->at(20, 0, 22).red() < 60);
    }

    void anotherLevelAndANewMapOpenInThePreview() {
        auto next = std::make_unique<LevelDocument>();
        next->complete();
        next->mesh->setSize(80, 4);
        next->mesh->build();
        PreviewProbe::usePictures(*next);
        next->background->water = false;
        view->replaceDocument(std::move(next));
        for (const int side : {80, 120}) {
            view->dimension = side;
            if (side == 120) {
                view->buildTerrain(view->document->mesh);
            }
            view->refreshTerrain();
            view->updateTrackBallCenter();
            lookAfterSetUp();
            QCOMPARE(probe->at(highUp), skyColor);
            for (const double z : {-0.25, 0.25, 0.75, 1.1}) {
                QVERIFY(isGreen(probe->at(0.5 * side, 0, z * side)));
            }
        }
    }

    void theOverviewIsTheSameAfterThePreview() {
        level().water = level().fog = true;
        view->setDirty(true);
        view->changePreview();
        const QImage before = driver->picture();
        view->changePreview();
        probe->look();
        view->changePreview();
        QCOMPARE(driver->picture(), before);
        QVERIFY(shows(driver->pixel(driver->cellAt(5, 5)), 0.95F, 0.475F, 0.475F));
        for (const QPoint corner : {QPoint(0, 0), QPoint(before.width() - 1, before.height() - 1)}) {
            QCOMPARE(before.pixelColor(corner).alpha(), 255);
        }
    }

    void aViewOfNoSizeAndAnEmptyGridDivideByNothing() {
        view->resize(1, 300);
        probe->look();
        view->resize(0, 0);
        view->grabFramebuffer();
        view->document->mesh->setSize(0, 4);
        view->document->mesh->build();
        view->refreshTerrain();
        view->setDirty(true);
        view->resize(500, 400);
        probe->look();
        QVERIFY(isGreen(probe->at(30, 0, -10)) && probe->at(highUp) == skyColor);
    }

    void theSkyIsAllAround() {
        level().water = true;
        raiseAndLowerTheEdge();
        for (const QSize size : {QSize(80, 60), QSize(160, 400), QSize(480, 150)}) {
            view->resize(size);
            QTRY_COMPARE(view->viewWidth, size.width());
            for (const float eye : {1.F, 13.F, 40.F}) {
                for (const float zoom : {1e-6F, 0.3F, 1.6F}) {
                    for (const float turn : {0.F, 75.F, 140.F, 260.F}) {
                        const QImage picture = look(eye, zoom, turn);
                        const auto *pixels = reinterpret_cast<const QRgb *>(picture.constBits());
                        const auto *end = pixels + picture.width() * picture.height();
                        QVERIFY2(std::none_of(pixels, end, isBlack),
                                 qPrintable(QString::asprintf("eye %g, zoom %g, turn %g", double(eye),
                                                              double(zoom), double(turn))));
                    }
                }
            }
        }
    }

    void theEdgeIsClosedAndFollowsTheHeights() {
        view->resize(400, 250);
        QTRY_COMPARE(view->viewWidth, 400);
        QVERIFY(!openAnywhere());
        raiseAndLowerTheEdge();
        QVERIFY(!openAnywhere());
        // Seen from outside, the raised edge hides what it hid not before.
        rotation(view->viewRotation, 45, {0, 1, 0});
        view->eyeHeight = 2;
        const QImage raised = driver->picture();
        view->erodeTerrain();
        QVERIFY(driver->picture() != raised);
        QVERIFY(!openAnywhere());
    }

private:
    static constexpr QPoint highUp{250, 5};

    BackgroundNode &level() { return *view->document->background; }

    /// The pixels of that colour in the last picture.
    qsizetype count(const QColor &color) const {
        const QImage &picture = probe->picture();
        const auto *pixels = reinterpret_cast<const QRgb *>(picture.constBits());
        return std::count(pixels, pixels + picture.width() * picture.height(), color.rgb());
    }

    void lookAfterSetUp() {
        view->setDirty(true);
        probe->look();
    }

    /// Takes the left column of cells up and the right one down, by the wheel.
    void raiseAndLowerTheEdge() {
        view->changePreview();
        driver->drag(driver->cellAt(19, 2), driver->cellAt(19, 17));
        driver->wheel(600);
        driver->drag(driver->cellAt(0, 2), driver->cellAt(0, 19));
        driver->wheel(-600);
        view->changePreview();
        view->setDirty(true);
    }

    QImage look(float eye, float zoom, float turn) {
        view->eyeHeight = eye;
        view->zoom = zoom;
        rotation(view->viewRotation, turn, {0, 1, 0});
        return driver->picture();
    }

    /// Whether, in a full turn, sky shows with ground right above and below it. (From farther away the far
    /// plane cuts through the map.)
    bool openAnywhere() {
        for (std::size_t i = 0; i < 96; ++i) {
            const float zoom = std::array{0.4F, 0.75F, 1.0F, 1.2F}.at(i % 4);
            const QImage picture = look(std::array{6.F, 20.F, 40.F}.at(i / 4 % 3), zoom, 3.75F * float(i));
            for (int y = 1; y + 1 < picture.height(); ++y) {
                const auto row = [&](int at) {
                    return reinterpret_cast<const QRgb *>(picture.constScanLine(at));
                };
                for (int x = 0; x < picture.width(); ++x) {
                    if (row(y)[x] == skyColor.rgb() && isGround(row(y - 1)[x]) && isGround(row(y + 1)[x])) {
                        qWarning() << "open at" << x << y << "turn" << i;
                        return true;
                    }
                }
            }
        }
        return false;
    }

    std::unique_ptr<QTemporaryDir> scratch;
    std::unique_ptr<GLMapWidget> view;
    std::unique_ptr<ViewDriver> driver;
    std::unique_ptr<PreviewProbe> probe;
};

DRUVELK_TEST_MAIN(PreviewTest)
#include "PreviewTest.moc"
