#include "map/CellGrid.h"
#include "map/MeshNode.h"
#include "support/druvelkTest.h"
#include "support/randomSeed.h"

#include <cmath>
#include <random>

namespace {

/// The rules of heights and colours in double precision, point by point.
struct Model {
    struct Cell {
        double red = 0;
        bool water = false;
    };

    int n;
    std::vector<double> heights;
    std::array<Cell, CellGrid::cellCount> cells{};

    int pointsOfACell() const { return n / 20; }

    /// Beyond the last row that row stands in.
    double at(int row, int column) const {
        const int point = std::min(row, n - 1) * n + std::min(column, n - 1);
        return heights[std::size_t(point)];
    }

    void recolour() {
        const int k = pointsOfACell();
        for (int i = 0; i < 400; ++i) {
            const int row = i / 20 * k;
            const int column = i % 20 * k;
            const double corners =
                at(row, column) + at(row, column + k - 1) + at(row + k, column) + at(row + k, column + k - 1);
            const double height = 0.1 * corners + 0.6 * at(row + k / 2, column + k / 2);
            cells[std::size_t(i)] = {0.95 - 0.05 * height, height < -0.3};
        }
    }

    void turnWheel(int number, int notches) {
        Cell &cell = cells[std::size_t(number)];
        const bool up = notches > 0;
        if (up ? !cell.water && cell.red < 0.1001 : cell.water) {
            return;
        }
        cell.red = up && cell.water ? 0.95 : cell.red + (up ? -0.05 : 0.05);
        cell.water = !up && cell.red > 0.965;
        const int k = pointsOfACell();
        for (int i = 0; i < k * k; ++i) {
            const int point = (number / 20 * k + i / k) * n + number % 20 * k + i % k;
            heights[std::size_t(point)] += notches / 1.5;
        }
    }
};

} // namespace

class CellEditingTest : public QObject {
    Q_OBJECT

private slots:
    void cellsFollowTheTerrainAndTheWheel() {
        // The second leaves points over at the edge, the third has one for each cell.
        followWheel(40, 2);
        followWheel(7, 7);
        followWheel(20, 1);
    }

private:
    static void followWheel(int dimension, int density) {
        std::mt19937 random(randomSeed());
        const int n = dimension * density;
        Model model{n, {}};
        // No mean of these is a colour at which water begins or raising ends.
        std::generate_n(std::back_inserter(model.heights), n * n, [&] { return int(random() % 20) - 5.95; });
        model.recolour();
        MeshNode mesh;
        mesh.setSize(dimension, density);
        mesh.build([next = model.heights.begin()]() mutable { return float(*next++); });
        CellGrid grid(&mesh);
        grid.resize(CellGrid::cellCount);
        grid.setSize(density, dimension);
        grid.recolourFromHeights();
        compare(grid, model);
        // As high as it goes, as low as it goes, and up again.
        for (int turn = 0; turn < 80; ++turn) {
            const int notches = int(1 + random() % 3) * (turn < 30 || turn >= 70 ? 1 : -1);
            for (MapCell &cell : grid.cells) {
                cell.selected = random() % 4 != 0;
                if (cell.selected) {
                    model.turnWheel(cell.index, notches);
                }
            }
            grid.changeSelectedHeight(float(notches));
            compare(grid, model);
        }
    }

    static void compare(const CellGrid &grid, const Model &model) {
        for (const MapCell &cell : grid.cells) {
            const auto &[red, water] = model.cells[std::size_t(cell.index)];
            QCOMPARE(cell.water, water);
            QVERIFY(std::fabs(double(cell.color[0]) - (water ? 0.05 : red)) < 1e-4);
            QVERIFY(std::fabs(double(cell.color[1]) - (water ? 0.05 : red / 2)) < 1e-4);
            QVERIFY(std::fabs(double(cell.color[2]) - (water ? 0.75 : red / 2)) < 1e-4);
        }
        for (std::size_t i = 0; i < model.heights.size(); ++i) {
            QVERIFY(std::fabs(double(grid.terrain->vertices[i].position.y) - model.heights[i]) < 1e-3);
        }
    }
};

DRUVELK_TEST_MAIN(CellEditingTest)
#include "CellEditingTest.moc"
