#include "map/MeshNode.h"
#include "scene/LevelFile.h"
#include "support/druvelkTest.h"
#include "support/levelBytes.h"

#include <cmath>

namespace {

QByteArray terrain(const QByteArray &attributes, const QByteArray &text = {}) {
    return "<MeshNode " + attributes + ">" + text + "</MeshNode>";
}

bool same(const Vec3 &a, const Vec3 &b, float tolerance = 1e-6F) {
    return std::fabs(a.x - b.x) <= tolerance && std::fabs(a.y - b.y) <= tolerance &&
           std::fabs(a.z - b.z) <= tolerance;
}

/// A bumpy grid, the same in every run.
void makeBumpy(TerrainMesh &mesh) {
    unsigned seed = 1;
    mesh.build([&seed] {
        seed = seed * 1103515245U + 12345U;
        return static_cast<float>(seed >> 20U) / 1024.0F;
    });
}

} // namespace

class TerrainGridTest : public QObject {
    Q_OBJECT

private slots:
    void buildsTheGrid_data() {
        QTest::addColumn<int>("dimension");
        QTest::addColumn<int>("density");
        QTest::addColumn<int>("n");
        const auto row = [](int dimension, int density, int n) {
            QTest::addRow("%d x %d", dimension, density) << dimension << density << n;
        };
        row(40, 2, 80);
        row(80, 4, 320);
        row(60, 3, 180);
        row(7, 7, 49);
        row(1, 10, 10);
        row(1, 1, 1);
        row(2, 1, 2);
        row(1024, 1, 1024);
        row(1, 1024, 1024);
        for (const auto &[dimension, density] :
             std::vector<std::pair<int, int>>{{0, 4},
                                              {60, 0},
                                              {-60, -4},
                                              {-60, 4},
                                              {1025, 1},
                                              {205, 5},
                                              {65536, 65536},
                                              {2147483647, 2147483647},
                                              {2147483647, 2},
                                              {-2147483647 - 1, -2147483647 - 1}}) {
            row(dimension, density, 0);
        }
    }

    void buildsTheGrid() {
        QFETCH(const int, dimension);
        QFETCH(const int, density);
        QFETCH(const int, n);
        MeshNode mesh;
        mesh.setSize(dimension, density);
        mesh.build();
        QCOMPARE(mesh.pointsPerSide(), n);
        QCOMPARE(mesh.vertices.size(), std::size_t(n) * std::size_t(n));
        const std::size_t quads = n > 0 ? std::size_t(n - 1) : 0;
        QCOMPARE(mesh.triangles.size(), 2 * quads * quads);
        QCOMPARE(mesh.dimension, dimension);
        QCOMPARE(mesh.density, density);
        for (int i = 0; i < n * n; i += n / 7 + 1) {
            const TerrainVertex &vertex = mesh.vertices[std::size_t(i)];
            const int row = i / n;
            const int column = i % n;
            const auto x = float(double(column) / density);
            const auto z = float(double(row) / density);
            QVERIFY(same(vertex.position, {x, 0, z}, 0));
            QVERIFY(same(vertex.texture, {z / float(dimension), x / float(dimension), 0}));
        }
        mesh.computeNormals();
        for (const TerrainTriangle &triangle : mesh.triangles) {
            QVERIFY(same(triangle.normal, {0, 1, 0}, 0));
        }
        mesh.clear();
        mesh.computeNormals();
        QVERIFY(mesh.vertices.empty() && mesh.triangles.empty() && mesh.pointsPerSide() == 0);
    }

    void trianglesFollowTheQuads() {
        MeshNode mesh;
        mesh.setSize(5, 1);
        makeBumpy(mesh);
        const std::size_t n = 5;
        std::size_t next = 0;
        for (std::size_t i = 0; i < n * (n - 1); ++i) {
            if ((i + 1) % n == 0) {
                continue;
            }
            for (const auto &corners : {std::array{i, i + n, i + 1}, std::array{i + n, i + n + 1, i + 1}}) {
                const TerrainTriangle &triangle = mesh.triangles[next++];
                const TerrainVertex *base = mesh.vertices.data();
                QVERIFY(triangle.a == base + corners[0] && triangle.b == base + corners[1] &&
                        triangle.c == base + corners[2]);
            }
        }
        QCOMPARE(next, mesh.triangles.size());
    }

    void faceNormalsComeFromTheHeights() {
        MeshNode mesh;
        mesh.setSize(2, 1);
        const std::array<float, 4> heights{0, 1, 0, 1};
        std::size_t next = 0;
        mesh.build([&] { return heights[next++]; });
        const float half = std::sqrt(0.5F);
        QVERIFY(same(mesh.triangles[0].normal, {-half, half, 0}));
        QVERIFY(same(mesh.triangles[1].normal, {-half, half, 0}));
        TerrainTriangle flat{mesh.vertices.data(), mesh.vertices.data(), mesh.vertices.data(), {5, 5, 5}};
        flat.updateNormal();
        QVERIFY(same(flat.normal, {}, 0));
    }

    /// Against the rule itself: a point of an inner row has the sum over the triangles holding it.
    void vertexNormalsSumTheFacesAround() {
        MeshNode mesh;
        mesh.setSize(3, 3);
        makeBumpy(mesh);
        mesh.computeNormals();
        const std::size_t n = 9;
        for (std::size_t i = 0; i < n * n; ++i) {
            Vec3 sum;
            for (const TerrainTriangle &triangle : mesh.triangles) {
                const TerrainVertex *v = &mesh.vertices[i];
                if (triangle.a == v || triangle.b == v || triangle.c == v) {
                    sum = {sum.x + triangle.normal.x, sum.y + triangle.normal.y, sum.z + triangle.normal.z};
                }
            }
            const bool outerRow = i < n || i >= n * (n - 1);
            QVERIFY(same(mesh.vertices[i].normal, outerRow ? Vec3{0, 1, 0} : sum, 1e-5F));
        }
    }

    void readsItsAttributes_data() {
        QTest::addColumn<QByteArray>("attributes");
        QTest::addColumn<QByteArray>("written");
        const auto row = [](const QByteArray &attributes, const QByteArray &written) {
            QTest::newRow(attributes) << attributes << written;
        };
        row("", R"(randomGeography="0" texture=" " density="0" dimension="0"  color="1 1 1")");
        row("density=' 2 ' dimension='+40' randomGeography='01' texture='' color=' .5  +1e-1\t2 7'",
            R"(randomGeography="1" texture="" density="2" dimension="40"  color="0.5 0.1 2")");
        row("density='-2' dimension='99999999999' randomGeography='2' color='x 0'",
            R"(randomGeography="0" texture=" " density="-2" dimension="0"  color="1 0 1")");
        row("density='2.0' dimension='4e1' randomGeography='true' color='0.5'",
            R"(randomGeography="0" texture=" " density="0" dimension="0"  color="0.5 1 1")");
        row("density='2147483647' dimension='2147483647' randomGeography='-1' color='1,0,0'",
            R"(randomGeography="0" texture=" " density="2147483647" dimension="2147483647"  color="1 1 1")");
    }

    void readsItsAttributes() {
        QFETCH(const QByteArray, attributes);
        QFETCH(const QByteArray, written);
        LevelDocument level;
        QVERIFY(readLevel(level, levelOf(terrain(attributes, "5 6 7"))));
        QCOMPARE(levelBytes(level), levelOf("<MeshNode " + written + ">\n</MeshNode>\n"));
    }

    void readsHeightsInGridOrder_data() {
        QTest::addColumn<QByteArray>("attributes");
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<std::vector<float>>("heights");
        const auto row = [](const char *name, const QByteArray &attributes, const QByteArray &text,
                            const std::vector<float> &heights) {
            QTest::newRow(name) << QByteArray(attributes + " density='1' dimension='2'") << text << heights;
        };
        row("all", "", "1 2 3 4 5", {1, 2, 3, 4});
        row("short", "", "\n\n1\r\n2", {1, 2, 0, 0});
        row("damaged", "", "nan x 3 1e39", {0, 0, 3, 0});
        row("in pieces", "", "1 <!-- 9 -->2<![CDATA[ 3]]><a> 4</a>", {1, 2, 3, 4});
        row("random geography", "randomGeography='1'", "1 2 3 4", {0, 0, 0, 0});
    }

    void readsHeightsInGridOrder() {
        QFETCH(const QByteArray, attributes);
        QFETCH(const QByteArray, text);
        QFETCH(const std::vector<float>, heights);
        LevelDocument level;
        QVERIFY(readLevel(level, levelOf(terrain(attributes, text))));
        for (std::size_t i = 0; i < 4; ++i) {
            QCOMPARE(level.mesh->vertices[i].position.y, heights[i]);
        }
        QCOMPARE(level.mesh->triangles.size(), std::size_t(2));
    }

    void theTerrainsOfALevelShareItsPoints() {
        LevelDocument level;
        const QByteArray half = terrain("density='1' dimension='724'");
        const QByteArray small = terrain("density='1' dimension='14'");
        const QByteArray tooLarge = terrain("density='2' dimension='1024'");
        QVERIFY(readLevel(level, levelOf(tooLarge + half + "<CharSetNode>" + half + "</CharSetNode>" + half +
                                         small + terrain("density='1' dimension='50'"))));
        std::vector<std::size_t> sizes;
        for (const auto &child : level.root.children) {
            if (const auto *mesh = dynamic_cast<MeshNode *>(child.get())) {
                sizes.push_back(mesh->vertices.size());
            }
        }
        QCOMPARE(sizes, (std::vector<std::size_t>{0, 724 * 724, 0, 196, 0}));
        QCOMPARE(level.mesh->dimension, 50);

        LevelDocument whole;
        QVERIFY(readLevel(whole, levelOf(terrain("density='4' dimension='256'") + small)));
        QCOMPARE(whole.root.children.size(), std::size_t(2));
        QVERIFY(whole.mesh->vertices.empty());
        QCOMPARE(dynamic_cast<MeshNode &>(*whole.root.children.front()).vertices.size(), std::size_t(1)
                                                                                             << 20);
    }
};

DRUVELK_TEST_MAIN(TerrainGridTest)
#include "TerrainGridTest.moc"
