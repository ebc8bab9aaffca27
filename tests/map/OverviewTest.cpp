#include "tests/support/ViewDriver.h"
#include "tests/support/druvelkTest.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QTemporaryDir>
#include <numeric>

/// The overview as a user meets it: a shown view, mouse and wheel, heights and pixels.
class OverviewTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        scratch = std::make_unique<QTemporaryDir>();
        QDir::setCurrent(scratch->path());
    }

    void commandsOnAViewWithoutALevelDoNothing() {
        GLMapWidget view;
        view.changeWired();
        view.setRandomGeo(true);
        view.erodeTerrain();
        view.refreshTerrain();
        view.cells->changeSelectedHeight(1);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        view.changePreview();
        QVERIFY(!view.grabFramebuffer().isNull());
    }

    void aViewThatWasNeverShownPaintsAndPicks() {
        GLMapWidget view;
        view.document->complete();
        view.refreshTerrain();
        view.resize(400, 400);
        ViewDriver driver(view);
        driver.drag(driver.cellAt(6, 6), driver.cellAt(6, 6));
        QCOMPARE(driver.selectedCells(), std::vector<int>{126});
        QVERIFY(shows(driver.pixel(driver.cellAt(6, 6)), 0.55F, 0.975F, 0.975F));
    }

    void pressesHitTheCellTheyPointAt_data() {
        QTest::addColumn<QSize>("size");
        for (const QSize size :
             {QSize(400, 400), QSize(800, 400), QSize(400, 800), QSize(301, 201), QSize(97, 613)}) {
            QTest::addRow("%d x %d", size.width(), size.height()) << size;
        }
    }

    void pressesHitTheCellTheyPointAt() {
        QFETCH(QSize, size);
        GLMapWidget view;
        ViewDriver driver(view);
        QVERIFY(driver.show(size.width(), size.height()));
        for (const auto &[column, row] : {std::pair(0, 0), {19, 19}, {0, 19}, {7, 12}, {10, 9}, {9, 10}}) {
            const QPoint point = driver.cellAt(column, row);
            QTest::mousePress(&view, Qt::LeftButton, {}, point);
            driver.paint();
            QTest::mouseRelease(&view, Qt::LeftButton, {}, point);
            QCOMPARE(driver.selectedCells(), std::vector<int>{column + 20 * row});
            QVERIFY(view.pendingPoint.isNull());
        }
    }

    /// A point on the line between two cells belongs to the one farther from the middle.
    void theLineBetweenTwoCellsHasAnOwner() {
        GLMapWidget view;
        ViewDriver driver(view);
        QVERIFY(driver.show(400, 400));
        for (const auto &[point, cell] :
             {std::pair(QPoint(100, 300), 15 + 4 * 20), {QPoint(300, 100), 4 + 15 * 20}}) {
            driver.drag(point, point);
            QCOMPARE(driver.selectedCells(), std::vector<int>{cell});
        }
        const GLint side = qRound(400 * view.devicePixelRatioF());
        QCOMPARE(view.cells->viewport, (std::array<GLint, 4>{0, 0, side, side}));
    }

    void pressesBesideTheSquareHitNothing() {
        GLMapWidget view;
        ViewDriver driver(view);
        QVERIFY(driver.show(800, 400));
        const auto before = driver.selectedCells();
        for (const QPoint point : {QPoint(100, 200), QPoint(195, 200), QPoint(605, 200), QPoint(799, 399)}) {
            QTest::mousePress(&view, Qt::LeftButton, {}, point);
            driver.paint();
            QCOMPARE(view.pendingPoint, point);
            QTest::mouseRelease(&view, Qt::LeftButton, {}, point);
            QCOMPARE(driver.selectedCells(), before);
        }
    }

    void aDragSelectsTheRectangleBetweenItsEnds() {
        GLMapWidget view;
        ViewDriver driver(view);
        QVERIFY(driver.show(400, 400));
        driver.drag(driver.cellAt(2, 3), driver.cellAt(5, 1));
        const std::vector<int> wanted{22, 23, 24, 25, 42, 43, 44, 45, 62, 63, 64, 65};
        QCOMPARE(driver.selectedCells(), wanted);
        // Another drag starts a rectangle of its own.
        driver.drag(driver.cellAt(10, 10), driver.cellAt(11, 10));
        QCOMPARE(driver.selectedCells(), (std::vector<int>{210, 211}));
    }

    void aDragFasterThanThePaintsStillSelects() {
        GLMapWidget view;
        ViewDriver driver(view);
        QVERIFY(driver.show(400, 400));
        QTest::mousePress(&view, Qt::LeftButton, {}, driver.cellAt(4, 4));
        driver.sendMove(driver.cellAt(6, 4));
        QTest::mouseRelease(&view, Qt::LeftButton, {}, driver.cellAt(6, 4));
        QCOMPARE(driver.selectedCells(), (std::vector<int>{84, 85, 86}));
        QVERIFY(view.anchorCell.isNone());
    }

    void theWheelShapesTheSelectedCells() {
        GLMapWidget view;
        ViewDriver driver(view);
        QVERIFY(driver.show(400, 400));
        driver.drag(driver.cellAt(1, 1), driver.cellAt(2, 1));
        driver.wheel(120);
        QVERIFY(view.normalsDirty);
        // 80 points a side make cells of 4 × 4.
        QCOMPARE(driver.height(4, 4), 0.6666667F);
        QCOMPARE(driver.height(7, 11), 0.6666667F);
        QCOMPARE(driver.height(7, 12), 0.0F);
        QCOMPARE(driver.height(8, 4), 0.0F);
        QVERIFY(shows(driver.pixel(driver.cellAt(1, 1)), 0.9F - 0.4F, 0.45F + 0.5F, 0.45F + 0.5F));
        driver.drag(driver.cellAt(8, 8), driver.cellAt(8, 8));
        QVERIFY(shows(driver.pixel(driver.cellAt(1, 1)), 0.9F, 0.45F, 0.45F));
        driver.wheel(-120);
        driver.wheel(-240);
        QCOMPARE(driver.height(32, 32), -0.6666667F);
        driver.drag(driver.cellAt(15, 15), driver.cellAt(15, 15));
        QVERIFY(shows(driver.pixel(driver.cellAt(8, 8)), 0.05F, 0.05F, 0.75F));
    }

    void playersStandWhereTheyWerePlaced() {
        GLMapWidget view;
        ViewDriver driver(view);
        QVERIFY(driver.show(400, 400));
        CharacterNode &player = driver.player(0);
        player.active = player.current = true;
        player.teamIndex = 1;
        view.cells->clearSelection();
        driver.cell(7, 0).selected = driver.cell(3, 0).selected = true;
        view.placePlayer(&player);
        QCOMPARE(player.cell, 3);
        QVERIFY(player.placed);
        QVERIFY(shows(driver.pixel(driver.cellAt(3, 0)), 0, 1, 0));
        // A black frame marks the player chosen in the window.
        const QPoint frame(0, 8);
        QVERIFY(shows(driver.pixel(driver.cellAt(3, 0) + frame), 0, 0, 0));
        player.current = false;
        QVERIFY(shows(driver.pixel(driver.cellAt(3, 0) + frame), 0.55F, 0.975F, 0.975F));

        view.placePlayer(&player);
        QCOMPARE(player.cell, 7);
        driver.paint();
        QVERIFY(driver.cell(3, 0).vacant);
        QVERIFY(!driver.cell(7, 0).vacant);
        // The first selected free cell is cell 3 again.
        view.placePlayer(&player);
        QCOMPARE(player.cell, 3);
        player.active = false;
        QVERIFY(shows(driver.pixel(driver.cellAt(3, 0)), 0.55F, 0.975F, 0.975F));
        for (const int beyond : {-2, -1, 400}) {
            player.cell = beyond;
            view.updatePlayerPosition(&player);
            QCOMPARE(player.cell, beyond);
        }
    }

    void theTileIsUprightAndCutAtItsMargin() {
        QVERIFY(QDir().mkpath(QStringLiteral("data/textures")));
        QImage tile(100, 100, QImage::Format_RGB32);
        tile.fill(Qt::red);
        for (int y = 5; y < 95; ++y) {
            for (int x = 5; x < 95; ++x) {
                tile.setPixelColor(x, y, y < 50 ? Qt::white : Qt::black);
            }
        }
        QVERIFY(tile.save(QStringLiteral("data/textures/tile.png")));
        auto view = std::make_unique<GLMapWidget>();
        ViewDriver driver(*view);
        QVERIFY(driver.show(1000, 1000));
        const QPoint center = driver.cellAt(10, 10);
        QVERIFY(shows(driver.pixel(center - QPoint(0, 12)), 0.95F, 0.475F, 0.475F));
        QVERIFY(shows(driver.pixel(center + QPoint(0, 12)), 0, 0, 0));
        const GLuint name = view->cells->tileTexture;
        view->resize(900, 900);
        driver.paint();
        QCOMPARE(view->cells->tileTexture, name);
        QOffscreenSurface surface;
        surface.create();
        QOpenGLContext other; // It shares its names with the view's.
        other.setShareContext(QOpenGLContext::globalShareContext());
        QVERIFY(other.create() && other.makeCurrent(&surface) && glIsTexture(name));
        view.reset();
        QVERIFY(other.makeCurrent(&surface) && !glIsTexture(name));
    }

    void erodingRoundsAndRecolours() {
        GLMapWidget view;
        ViewDriver driver(view);
        QVERIFY(driver.show(400, 400, 40, 4));
        driver.drag(driver.cellAt(9, 9), driver.cellAt(10, 10));
        for (int i = 0; i < 6; ++i) {
            driver.wheel(120);
        }
        const float peak = driver.height(79, 79);
        const float red = driver.cell(9, 9).color[0];
        view.erodeTerrain();
        QVERIFY(driver.height(80, 80) > peak * 0.9F);
        QVERIFY(driver.height(72, 72) < peak * 0.9F && driver.height(72, 72) > 0.2F);
        // Level colours step by 2/3 unit, height colours by one: eroding shows heights.
        QVERIFY(driver.cell(9, 9).color[0] > red);
        QCOMPARE(driver.height(0, 80), 0.0F);
        QVERIFY(view.document->mesh->vertices[73 * 160 + 72].normal.x != 0.0F);
    }

    void aReplacedDocumentLeavesNothingBehind() {
        GLMapWidget view;
        ViewDriver driver(view);
        QVERIFY(driver.show(400, 400));
        driver.player(0).active = true;
        view.cells->clearSelection();
        driver.cell(5, 5).selected = true;
        view.placePlayer(&driver.player(0));
        view.replaceDocument(std::make_unique<LevelDocument>());
        QVERIFY(driver.paint());
        driver.wheel(120);
        view.document->complete();
        view.refreshTerrain();
        QVERIFY(driver.paint());
        QCOMPARE(view.cells->terrain, static_cast<TerrainMesh *>(view.document->mesh));
        const auto occupied = std::count_if(view.cells->cells.begin(), view.cells->cells.end(),
                                            [](const MapCell &cell) { return !cell.vacant; });
        QCOMPARE(occupied, 0);
    }

private:
    std::unique_ptr<QTemporaryDir> scratch;
};

DRUVELK_TEST_MAIN(OverviewTest)
#include "OverviewTest.moc"
