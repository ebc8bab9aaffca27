#include "tests/support/PreviewProbe.h"
#include "tests/support/druvelkTest.h"

#include <QTemporaryDir>

namespace {

const QColor skyColor(255, 0, 0);

bool isSky(QRgb pixel) {
    return pixel == skyColor.rgb();
}

/// Neither sky nor the grey outline, which stands above the ground.
bool isGround(QRgb pixel) {
    return qGreen(pixel) > qRed(pixel);
}

} // namespace

/// Nothing is open in the preview: under a red sky all ground is green, and what nobody draws stays black.
/// Run a second time where the driver has no cube maps.
class HolesTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        scratch = std::make_unique<QTemporaryDir>();
        QDir::setCurrent(scratch->path());
        QVERIFY(PreviewProbe::makePictures(Qt::green, Qt::green, skyColor));
        view = std::make_unique<GLMapWidget>();
        driver = std::make_unique<ViewDriver>(*view);
        QVERIFY(driver->show(400, 250));
        PreviewProbe::usePictures(*view->document);
    }

    void cleanup() { view.reset(); }

    void theSkyIsAllAround() {
        raiseAndLowerTheEdge();
        view->changePreview();
        for (const QSize size : {QSize(80, 60), QSize(160, 400), QSize(480, 150)}) {
            view->resize(size);
            QTRY_COMPARE(view->viewWidth, size.width());
            for (const float eye : {1.F, 13.F, 40.F}) {
                for (const float zoom : {1e-6F, 0.3F, 1.6F}) {
                    for (const float turn : {0.F, 75.F, 140.F, 260.F}) {
                        const QImage picture = look(eye, zoom, turn);
                        const auto *pixels = reinterpret_cast<const QRgb *>(picture.constBits());
                        const auto *end = pixels + picture.width() * picture.height();
                        QVERIFY2(std::find(pixels, end, 0xff000000) == end,
                                 qPrintable(QString::asprintf("eye %g, zoom %g, turn %g", double(eye),
                                                              double(zoom), double(turn))));
                    }
                }
            }
        }
    }

    void theEdgeIsClosedAndFollowsTheHeights() {
        view->document->background->water = false;
        view->changePreview();
        QVERIFY(!openAnywhere());
        view->changePreview();
        raiseAndLowerTheEdge();
        view->changePreview();
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
    /// Takes the left column of cells up and the right one down, by the wheel.
    void raiseAndLowerTheEdge() {
        driver->drag(driver->cellAt(19, 2), driver->cellAt(19, 17));
        driver->wheel(600);
        driver->drag(driver->cellAt(0, 2), driver->cellAt(0, 19));
        driver->wheel(-600);
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
                    if (isSky(row(y)[x]) && isGround(row(y - 1)[x]) && isGround(row(y + 1)[x])) {
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
};

DRUVELK_TEST_MAIN(HolesTest)
#include "HolesTest.moc"
