#include "tests/support/ViewDriver.h"
#include "tests/support/druvelkTest.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QTemporaryDir>

/// The overview as a user meets it: a shown view, mouse and wheel, heights and pixels.
class OverviewTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        QDir::setCurrent(scratch.path());
        view = std::make_unique<GLMapWidget>();
        driver = std::make_unique<ViewDriver>(*view);
        QVERIFY(driver->show(400, 400));
    }

    void cleanup() { view.reset(); }

    void pressesHitTheCellTheyPointAt() {
        for (const QSize size : {QSize(800, 400), QSize(400, 800), QSize(301, 201), QSize(97, 613)}) {
            QVERIFY(driver->show(size.width(), size.height()));
            for (const auto &[column, row] :
                 {std::pair(0, 0), {19, 19}, {0, 19}, {7, 12}, {10, 9}, {9, 10}}) {
                driver->drag(driver->cellAt(column, row), driver->cellAt(column, row));
                QCOMPARE(driver->selectedCells(), std::vector<int>{column + 20 * row});
            }
        }
        QVERIFY(driver->show(800, 400));
        for (const QPoint beside : {QPoint(100, 200), QPoint(195, 200), QPoint(605, 200), QPoint(799, 399)}) {
            driver->drag(beside, beside);
            QCOMPARE(driver->selectedCells(), std::vector<int>{9 + 20 * 10});
        }
    }

    /// A point on the line between two cells belongs to the one farther from the middle.
    void theLineBetweenTwoCellsHasAnOwner() {
        for (const auto &[point, cell] : {std::pair(QPoint(100, 300), 15 + 4 * 20),
                                          {QPoint(300, 100), 4 + 15 * 20},
                                          {QPoint(200, 200), 9 + 10 * 20}}) {
            driver->drag(point, point);
            QCOMPARE(driver->selectedCells(), std::vector<int>{cell});
        }
        QVERIFY(driver->show(301, 301));
        const GLint side = qRound(301 * view->devicePixelRatioF());
        QCOMPARE(view->cells->viewport, (std::array<GLint, 4>{0, 0, side, side}));
    }

    void aDragSelectsTheRectangleBetweenItsEnds() {
        driver->drag(driver->cellAt(2, 3), driver->cellAt(5, 1));
        const std::vector<int> wanted{22, 23, 24, 25, 42, 43, 44, 45, 62, 63, 64, 65};
        QCOMPARE(driver->selectedCells(), wanted);
        // Another drag starts a rectangle of its own, even one that is faster than the paints.
        for (const int row : {4, 10}) {
            QTest::mousePress(view.get(), Qt::LeftButton, {}, driver->cellAt(4, row));
            driver->sendMove(driver->cellAt(6, row));
            QTest::mouseRelease(view.get(), Qt::LeftButton, {}, driver->cellAt(6, row));
            const int first = 4 + 20 * row;
            QCOMPARE(driver->selectedCells(), (std::vector<int>{first, first + 1, first + 2}));
        }
    }

    void coloursShowHeightsAndSelection() {
        const QPoint first = driver->cellAt(1, 1);
        const QPoint second = driver->cellAt(8, 8);
        driver->drag(first, first);
        driver->wheel(120);
        QVERIFY(shows(driver->pixel(first), 0.9F - 0.4F, 0.45F + 0.5F, 0.45F + 0.5F));
        driver->drag(second, second);
        QVERIFY(shows(driver->pixel(first), 0.9F, 0.45F, 0.45F));
        driver->wheel(-120);
        driver->drag(first, first);
        QVERIFY(shows(driver->pixel(second), 0.05F, 0.05F, 0.75F));
    }

    void playersStandWhereTheyWerePlaced() {
        CharacterNode &player = driver->player(0);
        player.active = player.current = true;
        player.teamIndex = 1;
        view->cells->clearSelection();
        driver->cell(7, 0).selected = driver->cell(3, 0).selected = true;
        view->placePlayer(&player);
        QCOMPARE(player.cell, 3);
        QVERIFY(player.placed);
        QVERIFY(shows(driver->pixel(driver->cellAt(3, 0)), 0, 1, 0));
        // A black frame marks the player chosen in the window.
        const QPoint frame(0, 8);
        QVERIFY(shows(driver->pixel(driver->cellAt(3, 0) + frame), 0, 0, 0));
        player.current = false;
        QVERIFY(shows(driver->pixel(driver->cellAt(3, 0) + frame), 0.55F, 0.975F, 0.975F));

        view->placePlayer(&player);
        QCOMPARE(player.cell, 7);
        driver->paint();
        // The first selected free cell is cell 3 again.
        view->placePlayer(&player);
        QCOMPARE(player.cell, 3);
        // Without a team the mark has no colour of its own.
        for (const int unknown : {-1, CharacterNode::teamCount}) {
            player.teamIndex = unknown;
            QVERIFY(shows(driver->pixel(driver->cellAt(3, 0)), 0.55F, 0.975F, 0.975F));
        }
        player.active = false;
        QVERIFY(shows(driver->pixel(driver->cellAt(3, 0)), 0.55F, 0.975F, 0.975F));
        for (const int beyond : {-2, -1, 400}) {
            player.cell = beyond;
            view->updatePlayerPosition(&player);
            QCOMPARE(player.cell, beyond);
        }
    }

    void theTileIsUprightAndCutAtItsMargin() {
        QVERIFY(QDir().mkpath(QStringLiteral("data/textures")));
        QImage tile(100, 100, QImage::Format_RGB32);
        tile.fill(Qt::red);
        for (int y = 5; y < 95; ++y) {
            for (int x = 5; x < 95; ++x) {
                tile.setPixelColor(x, y, y < 16 ? Qt::white : Qt::black);
            }
        }
        QVERIFY(tile.save(QStringLiteral("data/textures/tile.png")));
        view = std::make_unique<GLMapWidget>();
        ViewDriver tiled(*view);
        QVERIFY(tiled.show(1000, 1000) && QFile::remove(QStringLiteral("data/textures/tile.png")));
        const QPoint center = tiled.cellAt(10, 10);
        QVERIFY(shows(tiled.pixel(center - QPoint(0, 23)), 0.95F, 0.475F, 0.475F));
        QVERIFY(shows(tiled.pixel(center + QPoint(0, 23)), 0, 0, 0));
        const GLuint name = view->cells->tileTexture;
        QOffscreenSurface surface;
        surface.create();
        QOpenGLContext other; // It shares its names with the view's.
        other.setShareContext(QOpenGLContext::globalShareContext());
        QVERIFY(other.create() && other.makeCurrent(&surface) && glIsTexture(name));
        view.reset();
        QVERIFY(other.makeCurrent(&surface) && !glIsTexture(name));
    }

    void erodingRoundsAndRecolours() {
        QVERIFY(driver->show(400, 400, 40, 4));
        driver->drag(driver->cellAt(9, 9), driver->cellAt(10, 10));
        for (int i = 0; i < 6; ++i) {
            driver->wheel(120);
        }
        const float red = driver->cell(9, 9).color[0];
        view->erodeTerrain();
        QVERIFY(driver->height(80, 80) > 3.6F && driver->height(72, 72) < 3.6F);
        // Level colours step by 2/3 unit, height colours by one: eroding shows heights.
        QVERIFY(driver->cell(9, 9).color[0] > red);
        QVERIFY(view->document->mesh->vertices[73 * 160 + 72].normal.x != 0.0F);
    }

    void aReplacedDocumentLeavesNothingBehind() {
        driver->player(0).active = true;
        view->cells->clearSelection();
        driver->cell(5, 5).selected = true;
        view->placePlayer(&driver->player(0));
        view->replaceDocument(std::make_unique<LevelDocument>());
        QVERIFY(std::all_of(view->cells->cells.begin(), view->cells->cells.end(),
                            [](const MapCell &cell) { return cell.vacant; }));
        // Without a level, commands do nothing.
        view->changeWired();
        view->setRandomGeo(false);
        view->erodeTerrain();
        view->refreshTerrain();
        driver->wheel(120);
        view->changePreview();
        QVERIFY(driver->paint());
        view->changePreview();
        QVERIFY(driver->paint());
        view->document->complete();
        view->refreshTerrain();
        QVERIFY(driver->paint());
        QCOMPARE(view->cells->terrain, static_cast<TerrainMesh *>(view->document->mesh));
    }

private:
    QTemporaryDir scratch;
    std::unique_ptr<GLMapWidget> view;
    std::unique_ptr<ViewDriver> driver;
};

DRUVELK_TEST_MAIN(OverviewTest)
#include "OverviewTest.moc"
