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

    void buildsTheGrid() {
        constexpr int most = 2147483647;
        for (const auto &[dimension, density, n] : std::vector<std::tuple<int, int, int>>{{40, 2, 80},
                                                                                          {80, 4, 320},
                                                                                          {60, 3, 180},
                                                                                          {7, 7, 49},
                                                                                          {1, 1, 1},
                                                                                          {1, 1024, 1024},
                                                                                          {0, 4, 0},
                                                                                          {60, 0, 0},
                                                                                          {-60, -4, 0},
                                                                                          {1025, 1, 0},
                                                                                          {65536, 65536, 0},
                                                                                          {most, most, 0}}) {
            buildsAGridOf(dimension, density, n);
        }
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

private:
    static void buildsAGridOf(int dimension, int density, int n) {
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
};

DRUVELK_TEST_MAIN(TerrainGridTest)
#include "TerrainGridTest.moc"
