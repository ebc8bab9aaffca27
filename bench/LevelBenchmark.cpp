// What opening, shaping and saving an 80 × 4 level costs, beside what it must cost.

#include "bench/LevelFloors.h"
#include "bench/RatioTable.h"
#include "bench/SampleLevel.h"
#include "map/CellGrid.h"
#include "map/Erosion.h"
#include "map/MeshNode.h"
#include "scene/LevelFile.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>

namespace {

constexpr int dimension = 80;
constexpr int density = 4;
constexpr int side = dimension * density;
constexpr int passes = 4;

std::vector<float> heightsOf(const TerrainMesh &terrain) {
    std::vector<float> heights(terrain.vertices.size());
    std::transform(terrain.vertices.begin(), terrain.vertices.end(), heights.begin(),
                   [](const TerrainVertex &vertex) { return vertex.position.y; });
    return heights;
}

/// The level that all cases work on, and what their floors need beside it.
class Workshop {
public:
    Workshop() : cells((fillWithHills(level, dimension, density), level.mesh)) {
        cells.resize(CellGrid::cellCount);
        cells.setSize(density, dimension);
        bytes = levelBytes(level);
        heights = heightsOf(*level.mesh);
        bareHeights = heights;
        faces.resize(level.mesh->triangles.size());
        sums.resize(heights.size());
    }

    void addTo(RatioTable &table) {
        addFileCases(table);
        addGridCases(table);
        addShapingCases(table);
    }

private:
    void addFileCases(RatioTable &table) {
        table.add({.name = "reading a level",
                   .work = [this] { read(); },
                   .floorName = "scan, DOM, from_chars, arrays with face normals",
                   .floor = [this] { benchmark::DoNotOptimize(bareReading(bytes, dimension, density)); },
                   .limit = 1.5});
        table.add({.name = "turning it into bytes",
                   .work = [this] { benchmark::DoNotOptimize(levelBytes(level)); },
                   .floorName = "to_chars",
                   .floor = [this] { benchmark::DoNotOptimize(bareText(heights, text)); },
                   .limit = 1.5});
        table.add({.name = "writing the file",
                   .work = [this] { save(); },
                   .floorName = "write, fsync",
                   .floor = [this] { saveBare(); },
                   .timing = Timing::Wall});
    }

    void addGridCases(RatioTable &table) {
        table.add({.name = "building the grid",
                   .work = [this] { build(); },
                   .floorName = "filling arrays with face normals",
                   .floor = [this] { benchmark::DoNotOptimize(bareGrid(heights, dimension, density)); }});
        table.add({.name = "computeNormals",
                   .work =
                       [this] {
                           // Heights that did not change would not be worked on.
                           float &height = level.mesh->vertices.back().position.y;
                           height = -height - 1;
                           level.mesh->computeNormals();
                       },
                   .floorName = "the same over plain arrays",
                   .floor =
                       [this] {
                           bareNormals(heights, side, 1.0F / density, faces, sums);
                           benchmark::DoNotOptimize(sums.data());
                       }});
    }

    void addShapingCases(RatioTable &table) {
        table.add({.name = "recolouring",
                   .work = [this] { cells.recolourFromHeights(); },
                   .floorName = "five heights a cell",
                   .floor = [this] { benchmark::DoNotOptimize(sampledHeights()); }});
        table.add({.name = "four erosion passes",
                   .work = [this] { erode(*level.mesh, passes); },
                   .floorName = "the loop over a float array",
                   .floor =
                       [this] {
                           bareErosion(bareHeights, side, passes);
                           benchmark::DoNotOptimize(bareHeights.data());
                       },
                   .limit = 1.2,
                   .prepare = [this] { restoreHeights(); }});
        table.add({.name = "a notch over all cells",
                   .work = [this] { turnWheel(); },
                   .floorName = "one addition a point",
                   .floor = [this] { raiseBare(); },
                   .prepare = [this] { selectAll(); }});
    }

    static void check(bool good, const char *what) {
        if (!good) {
            std::fprintf(stderr, "%s failed\n", what);
            std::exit(2);
        }
    }

    void read() {
        LevelDocument document;
        QBuffer device(&bytes);
        device.open(QIODevice::ReadOnly);
        check(document.read(device) && document.mesh->vertices.size() == heights.size(), "reading");
    }

    void build() {
        MeshNode mesh;
        mesh.setSize(dimension, density);
        std::size_t next = 0;
        mesh.build([this, &next] { return heights[next++]; });
        benchmark::DoNotOptimize(mesh.triangles.data());
    }

    void raiseBare() {
        for (TerrainVertex &vertex : level.mesh->vertices) {
            vertex.position.y += 1;
        }
        benchmark::ClobberMemory();
    }

    /// Up and down in turn, since a cell can only go so many levels one way.
    void turnWheel() {
        cells.changeSelectedHeight(notch);
        notch = -notch;
    }

    void selectAll() {
        notch = 1;
        restoreHeights();
        cells.recolourFromHeights();
        cells.selectRect(0, 0, CellGrid::cellsPerSide - 1, CellGrid::cellsPerSide - 1);
    }

    void saveBare() { check(bareWriting(folder.filePath("floor").toStdString(), bytes), "bare writing"); }

    void save() { check(saveBytes(bytes, folder.filePath("level.xml")), "saving"); }

    float sampledHeights() const {
        constexpr int k = side / CellGrid::cellsPerSide;
        constexpr std::array offsets{0, k - 1, side * (k - 1), side * (k - 1) + k - 1, (side + 1) * k / 2};
        float sum = 0;
        for (int row = 0; row < side; row += k) {
            for (int column = 0; column < side; column += k) {
                for (const int offset : offsets) {
                    const int point = row * side + column + offset;
                    sum += heights[static_cast<std::size_t>(point)];
                }
            }
        }
        return sum;
    }

    void restoreHeights() {
        for (std::size_t i = 0; i < heights.size(); ++i) {
            level.mesh->vertices[i].position.y = heights[i];
        }
        bareHeights = heights;
    }

    LevelDocument level;
    CellGrid cells;
    float notch = 1;
    QByteArray bytes;
    std::vector<float> heights;
    std::vector<float> bareHeights;
    std::vector<Vec3> faces;
    std::vector<Vec3> sums;
    std::string text;
    QTemporaryDir folder;
};

} // namespace

int main(int argc, char **argv) {
    Workshop workshop;
    RatioTable table;
    workshop.addTo(table);
    return table.run(argc, argv);
}
