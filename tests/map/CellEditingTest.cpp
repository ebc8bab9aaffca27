#include "map/CellGrid.h"
#include "map/MeshNode.h"
#include "scene/CharacterNode.h"
#include "support/druvelkTest.h"

#include <cmath>
#include <functional>

namespace {

using Colour = std::array<float, 3>;

constexpr Colour lake{0.05F, 0.05F, 0.75F};

bool close(const Colour &a, const Colour &b) {
    return std::fabs(a[0] - b[0]) < 1e-5F && std::fabs(a[1] - b[1]) < 1e-5F && std::fabs(a[2] - b[2]) < 1e-5F;
}

/// A terrain and the cells bound to it, as the map view binds them.
struct Bound {
    Bound(int dimension, int density, const std::function<float(int, int)> &height = {}) {
        mesh.setSize(dimension, density);
        int next = 0;
        const int n = TerrainMesh::pointsPerSideOf(dimension, density);
        mesh.build([&] {
            const int i = next++;
            return height ? height(i / n, i % n) : 0.0F;
        });
        grid.resize(CellGrid::cellCount);
        grid.setTerrain(&mesh);
        grid.setSize(density, dimension);
    }

    MapCell &cell(int number) { return grid.cells[std::size_t(number)]; }
    float height(int point) const { return mesh.vertices[std::size_t(point)].position.y; }

    MeshNode mesh;
    CellGrid grid{nullptr};
};

} // namespace

class CellEditingTest : public QObject {
    Q_OBJECT

private slots:
    void stepsFromANewCell() {
        MapCell cell;
        QVERIFY(cell.stepLevel(true));
        QVERIFY(close(cell.color, {0.9F, 0.475F, 0.475F}));
        for (int level = 2; level <= 17; ++level) {
            QVERIFY(cell.stepLevel(true));
        }
        const Colour top = cell.color;
        QVERIFY(!cell.stepLevel(true));
        QCOMPARE(cell.color, top);
        QVERIFY(close(top, {0.1F, 0.075F, 0.075F}));
        for (int level = 17; level > 0; --level) {
            QVERIFY(cell.stepLevel(false));
            QVERIFY(!cell.water);
        }
        QVERIFY(cell.stepLevel(false));
        QVERIFY(cell.water);
        QCOMPARE(cell.color, lake);
        QVERIFY(!cell.stepLevel(false));
        QVERIFY(cell.stepLevel(true));
        QVERIFY(!cell.water);
        QVERIFY(close(cell.color, {0.95F, 0.475F, 0.475F}));
    }

    void movesTheBlocksOfSelectedCells_data() {
        QTest::addColumn<int>("dimension");
        QTest::addColumn<int>("density");
        QTest::addColumn<float>("steps");
        QTest::addColumn<float>("moved");
        QTest::newRow("60 x 4, one notch up") << 60 << 4 << 1.0F << 0.6666667F;
        QTest::newRow("80 x 4, two notches up") << 80 << 4 << 2.0F << 1.3333334F;
        QTest::newRow("40 x 2, one notch down") << 40 << 2 << -1.0F << -0.6666667F;
        QTest::newRow("less than a notch lowers the colour only") << 60 << 2 << 0.0F << 0.0F;
        QTest::newRow("points left over at the edge") << 7 << 7 << 3.0F << 2.0F;
    }

    void movesTheBlocksOfSelectedCells() {
        QFETCH(const int, dimension);
        QFETCH(const int, density);
        QFETCH(const float, steps);
        QFETCH(const float, moved);
        Bound bound(dimension, density);
        for (const int number : {0, 21, 199, 399}) {
            bound.cell(number).selected = true;
        }
        bound.grid.changeSelectedHeight(steps);
        const int n = dimension * density;
        const int k = n / 20;
        for (int point = 0; point < n * n; ++point) {
            const int row = point / n / k;
            const int column = point % n / k;
            const bool inside = row < 20 && column < 20 && bound.cell(20 * row + column).selected;
            QVERIFY(std::fabs(bound.height(point) - (inside ? moved : 0)) < 1e-6F);
        }
        QVERIFY(bound.cell(21).water == (steps <= 0));
        QVERIFY(close(bound.cell(21).color, steps > 0 ? Colour{0.9F, 0.475F, 0.475F} : lake));
        QVERIFY(close(bound.cell(22).color, {0.95F, 0.5F, 0.5F}));
    }

    void aCellAtItsLimitKeepsItsHeights() {
        Bound bound(40, 2);
        bound.cell(0).selected = true;
        bound.grid.changeSelectedHeight(-1);
        bound.grid.changeSelectedHeight(-1);
        QCOMPARE(bound.height(0), -0.6666667F);
        for (int i = 0; i < 20; ++i) {
            bound.grid.changeSelectedHeight(1);
        }
        QVERIFY(std::fabs(bound.height(0) - 17 * 0.6666667F) < 1e-4F);
    }

    void coloursShowHeights_data() {
        QTest::addColumn<float>("height");
        QTest::addColumn<Colour>("color");
        const auto row = [](float height, const Colour &color) {
            QTest::addRow("%g", double(height)) << height << color;
        };
        row(0, {0.95F, 0.475F, 0.475F});
        row(10, {0.45F, 0.225F, 0.225F});
        row(-0.29F, {0.9645F, 0.48225F, 0.48225F});
        row(-0.3F, lake);
        row(-40, lake);
        row(21, {-0.1F, -0.05F, -0.05F});
    }

    void coloursShowHeights() {
        QFETCH(const float, height);
        QFETCH(const Colour, color);
        Bound bound(60, 4, [height](int, int) { return height; });
        bound.cell(7).water = true;
        bound.grid.recolourFromHeights();
        for (const MapCell &cell : bound.grid.cells) {
            QVERIFY(close(cell.color, color));
            QCOMPARE(cell.water, color == lake);
        }
    }

    /// Five points of a cell count, with their weights; beyond the last row that row stands in.
    void coloursSampleFivePoints() {
        struct Sample {
            int cell;
            int row;
            int column;
            float weight;
        };
        for (const Sample &sample : std::vector<Sample>{{21, 12, 12, 0.1F},
                                                        {21, 12, 23, 0.1F},
                                                        {21, 24, 12, 0.1F},
                                                        {21, 24, 23, 0.1F},
                                                        {21, 18, 18, 0.6F},
                                                        {21, 12, 24, 0},
                                                        {21, 23, 12, 0},
                                                        {21, 17, 18, 0},
                                                        {399, 239, 228, 0.1F},
                                                        {399, 239, 239, 0.1F},
                                                        {380, 239, 0, 0.1F}}) {
            Bound bound(60, 4, [&](int row, int column) {
                return row == sample.row && column == sample.column ? 10.0F : 0.0F;
            });
            bound.grid.recolourFromHeights();
            QVERIFY(std::fabs(bound.cell(sample.cell).color[0] - (0.95F - 0.5F * sample.weight)) < 1e-5F);
        }
    }
};

DRUVELK_TEST_MAIN(CellEditingTest)
#include "CellEditingTest.moc"
