#include "map/Erosion.h"
#include "map/MeshNode.h"
#include "map/TerrainEdge.h"
#include "scene/LevelFile.h"
#include "support/druvelkTest.h"
#include "support/levelBytes.h"
#include "support/randomSeed.h"

#include <cmath>
#include <random>

namespace {

QByteArray terrain(const QByteArray &attributes, const QByteArray &text = {}) {
    return "<MeshNode " + attributes + ">" + text + "</MeshNode>";
}

using Normal = std::array<double, 3>;

/// By the slopes: each half of a quad adds its normal to its three points. The outer rows look up.
std::vector<Normal> expectedNormals(const std::vector<double> &heights, std::size_t n, int density) {
    std::vector<Normal> sums(n * n, Normal{});
    const auto add = [&](double alongX, double alongZ, std::initializer_list<std::size_t> points) {
        const double x = -alongX * density;
        const double z = -alongZ * density;
        const double length = std::hypot(x, 1, z);
        for (const std::size_t point : points) {
            Normal &sum = sums[point];
            sum = {sum[0] + x / length, sum[1] + 1 / length, sum[2] + z / length};
        }
    };
    const auto &h = heights;
    for (std::size_t p = 0; p + n + 1 < n * n; ++p) {
        if ((p + 1) % n != 0) {
            add(h[p + 1] - h[p], h[p + n] - h[p], {p, p + 1, p + n});
            add(h[p + n + 1] - h[p + n], h[p + n + 1] - h[p + 1], {p + 1, p + n, p + n + 1});
        }
    }
    for (std::size_t i = 0; i < n; ++i) {
        sums[i] = sums[n * n - 1 - i] = {0, 1, 0};
    }
    return sums;
}

/// The rule of erosion as it is told: to and fro over the points, each but the outer ones the mean around it.
void erodePointByPoint(std::vector<float> &h, int n, int passes) {
    for (int pass = 0; pass < passes; ++pass) {
        for (int step = 0; step < n * (n - 2); ++step) {
            const int i = pass % 2 == 0 ? n + step : n * (n - 1) - step;
            double sum = 0;
            if (i % n != 0 && (i + 1) % n != 0) {
                for (const int d : {-1, 1, -n - 1, -n, -n + 1, n - 1, n, n + 1}) {
                    sum += h.data()[i + d];
                }
            }
            h[std::size_t(i)] = float(sum / 8);
        }
    }
    std::fill_n(h.begin(), n, 0);
    std::fill_n(h.rbegin(), n, 0);
}

} // namespace

class TerrainGridTest : public QObject {
    Q_OBJECT

private slots:
    void sizesOutOfRangeGiveAnEmptyGrid() {
        constexpr int most = 2147483647;
        MeshNode mesh;
        for (const auto &[dimension, density, n] : {std::tuple(1, 1024, 1024),
                                                    {0, 4, 0},
                                                    {60, 0, 0},
                                                    {-60, -4, 0},
                                                    {1025, 1, 0},
                                                    {65536, 65536, 0},
                                                    {most, most, 0}}) {
            mesh.setSize(dimension, density);
            mesh.build();
            mesh.computeNormals();
            QCOMPARE(mesh.pointsPerSide(), n);
            QCOMPARE(mesh.vertices.size(), std::size_t(n) * std::size_t(n));
        }
    }

    void pointsFollowTheHeights() {
        std::mt19937 random(randomSeed());
        MeshNode mesh;
        for (int i = 0; i < 60; ++i) {
            const int dimension = int(1 + random() % 9);
            const int density = int(1 + random() % 4);
            const auto n = std::size_t(dimension) * std::size_t(density);
            std::vector<double> heights;
            std::generate_n(std::back_inserter(heights), n * n, [&] { return int(random() % 50) / 8.0; });
            mesh.setSize(dimension, density);
            mesh.build([next = heights.begin()]() mutable { return float(*next++); });
            mesh.computeNormals();
            heights[random() % heights.size()] += 5;
            for (std::size_t p = 0; p < n * n; ++p) {
                mesh.vertices[p].position.y = float(heights[p]);
            }
            mesh.computeNormals();
            const auto normals = expectedNormals(heights, n, density);
            for (std::size_t p = 0; p < n * n; ++p) {
                const auto &[position, normal, texture] = mesh.vertices[p];
                const std::size_t row = p / n;
                const double x = double(p % n) / density;
                const double z = double(row) / density;
                for (const double off :
                     {position.x - x, position.z - z, texture.x - z / dimension, texture.y - x / dimension,
                      normal.x - normals[p][0], normal.y - normals[p][1], normal.z - normals[p][2]}) {
                    QVERIFY2(std::fabs(off) < 1e-5, qPrintable(QString::number(p)));
                }
            }
            // The wall goes along the border from point to point.
            const auto wall = terrainEdge(mesh).wall;
            QCOMPARE(wall.size(), n < 2 ? 0 : 8 * n);
            for (std::size_t p = 0; p < wall.size(); p += 2) {
                const auto &[x, y, z] = wall[p].position;
                const Vec3 &next = wall[(p + 2) % wall.size()].position;
                const double side = double(n - 1) / density;
                QVERIFY(std::min({double(x), double(z), side - x, side - z}) < 1e-5);
                QVERIFY(std::hypot(next.x - x, next.z - z) < 1.0 / density + 1e-5);
            }
        }
    }

    void erosionKeepsToItsRule() {
        std::mt19937 random(randomSeed());
        std::uniform_real_distribution<float> height(-10, 40);
        constexpr float largest = std::numeric_limits<float>::max() / 40;
        for (const int n : {1, 2, 3, 4, 5, 20, 49, 120}) {
            for (int passes = 0; passes < 6; ++passes) {
                const float scale = passes == 5 || n == 49 ? largest : 1;
                std::vector<float> expected(std::size_t(n) * std::size_t(n));
                std::generate(expected.begin(), expected.end(), [&] { return scale * height(random); });
                MeshNode mesh;
                mesh.setSize(n, 1);
                mesh.build([next = expected.begin()]() mutable { return *next++; });
                erodePointByPoint(expected, n, passes);
                erode(mesh, passes);
                for (std::size_t i = 0; i < expected.size(); ++i) {
                    const float eroded = mesh.vertices[i].position.y;
                    QVERIFY2(std::fabs(eroded / scale - expected[i] / scale) <= 1e-4F,
                             qPrintable(QStringLiteral("%1 %2 %3").arg(n).arg(passes).arg(i)));
                }
            }
        }
    }

    void readsWhatIsThereAndNoMore() {
        const QByteArray four = "density=\"1\" dimension=\"2\" ";
        for (const auto &[attributes, text, written] : std::vector<std::array<QByteArray, 3>>{
                 {"", "5 6",
                  R"(randomGeography="0" texture=" " density="0" dimension="0"  color="1 1 1">)"
                  "\n"},
                 {"density=' 1 ' dimension='+2' randomGeography='01' texture='' color=' .5  +1e-1\t2 7'",
                  "1 2 3 4", R"(randomGeography="1" texture="" )" + four + " color=\"0.5 0.1 2\">\n"},
                 {four + "randomGeography='2' color='x 0'", "\n\n1\r\n2",
                  R"(randomGeography="0" texture=" " )" + four + " color=\"1 0 1\">\n1 2 0 0 "},
                 {four, "1 <!-- 9 -->x<![CDATA[ 3]]><a> 4</a> 5",
                  R"(randomGeography="0" texture=" " )" + four + " color=\"1 1 1\">\n1 0 3 4 "}}) {
            LevelDocument level;
            QVERIFY(readLevel(level, levelOf(terrain(attributes, text))));
            QCOMPARE(levelBytes(level), levelOf("<MeshNode " + written + "</MeshNode>\n"));
            // Heights that the game is to make are none that the file may hold.
            QVERIFY(!level.mesh->randomGeography || level.mesh->vertices[1].position.y == 0);
        }
    }

    void theTerrainsOfALevelShareItsPoints() {
        const QByteArray half = terrain("density='1' dimension='724'");
        const QByteArray small = terrain("density='1' dimension='14'");
        const QByteArray whole = terrain("density='4' dimension='256'");
        const QByteArray tooLarge = terrain("density='2' dimension='1024'");
        const QByteArray last = terrain("density='1' dimension='50'");
        QCOMPARE(sizesIn(tooLarge + half + "<CharSetNode>" + half + "</CharSetNode>" + half + small + last),
                 (std::vector<std::size_t>{0, 724 * 724, 0, 196, 0}));
        QCOMPARE(sizesIn(whole + small), (std::vector<std::size_t>{1024 * 1024, 0}));
    }

private:
    static std::vector<std::size_t> sizesIn(const QByteArray &nodes) {
        LevelDocument level;
        std::vector<std::size_t> sizes;
        if (readLevel(level, levelOf(nodes))) {
            for (const auto &child : level.root.children) {
                if (const auto *mesh = dynamic_cast<MeshNode *>(child.get())) {
                    sizes.push_back(mesh->vertices.size());
                }
            }
        }
        return sizes;
    }
};

DRUVELK_TEST_MAIN(TerrainGridTest)
#include "TerrainGridTest.moc"
