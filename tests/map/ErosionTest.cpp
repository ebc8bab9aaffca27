#include "map/Erosion.h"

#include "map/MeshNode.h"
#include "support/druvelkTest.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace {

/// The rule as it is told, point by point.
void erodePointByPoint(std::vector<float> &h, int n, int passes) {
    const auto at = [&h](int i) -> float & { return h[static_cast<std::size_t>(i)]; };
    const auto visit = [&](int i) {
        if (i % n == 0 || (i + 1) % n == 0) {
            at(i) = 0;
            return;
        }
        float sum = 0;
        for (const int d : {-1, 1, -n - 1, -n, -n + 1, n - 1, n, n + 1}) {
            sum += at(i + d);
        }
        at(i) = 0.125F * sum;
    };
    for (int pass = 0; pass < passes; ++pass) {
        if (pass % 2 == 0) {
            for (int i = n; i <= n * (n - 1) - 1; ++i) {
                visit(i);
            }
        } else {
            for (int i = n * (n - 1); i >= n + 1; --i) {
                visit(i);
            }
        }
    }
    for (int i = 0; i < n; ++i) {
        at(i) = 0;
        at(n * (n - 1) + i) = 0;
    }
}

} // namespace

class ErosionTest : public QObject {
    Q_OBJECT

private slots:
    void agreesWithTheRulePointByPoint() {
        std::mt19937 random(2);
        std::uniform_real_distribution<float> height(-10, 40);
        for (const int n : {1, 2, 3, 4, 5, 20, 49, 120}) {
            for (int passes = 0; passes < 6; ++passes) {
                std::vector<float> field(std::size_t(n) * std::size_t(n));
                std::generate(field.begin(), field.end(), [&] { return height(random); });
                std::vector<float> expected = field;
                erodePointByPoint(expected, n, passes);
                MeshNode mesh;
                mesh.setSize(n, 1);
                std::size_t next = 0;
                mesh.build([&] { return field[next++]; });
                erode(mesh, passes);
                erode(field, n, passes);
                for (std::size_t i = 0; i < field.size(); ++i) {
                    const QByteArray where = QByteArray::number(n) + ' ' + QByteArray::number(passes) + ' ' +
                                             QByteArray::number(int(i));
                    QVERIFY2(std::fabs(field[i] - expected[i]) <= 1e-4F, where);
                    QCOMPARE(mesh.vertices[i].position.y, field[i]);
                }
            }
        }
    }

    void smoothsAPeakAsWorkedByHand() {
        std::vector<float> peak{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 64, 0, 0, 0, 0, 0};
        erode(peak, 4, 1);
        QCOMPARE(peak, (std::vector<float>{0, 0, 0, 0, 0, 8, 9, 0, 0, 10.125F, 3.390625F, 0, 0, 0, 0, 0}));
        peak = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 64, 0, 0, 0, 0, 0};
        erode(peak, 4, 2);
        QCOMPARE(peak, (std::vector<float>{0, 0, 0, 0, 0, 0.960235596F, 1.74243164F, 0, 0, 2.54882813F,
                                           3.390625F, 0, 0, 0, 0, 0}));
    }

    void theEdgeBecomesZero() {
        std::vector<float> field(25, 5);
        erode(field, 5, 0);
        QCOMPARE(field[5], 5.0F);
        QCOMPARE(field[0] + field[4] + field[20] + field[24], 0.0F);
        for (const int passes : {1, 2}) {
            std::vector<float> edge(25, 5);
            erode(edge, 5, passes);
            for (std::size_t i = 0; i < 5; ++i) {
                QCOMPARE(edge[i] + edge[20 + i] + edge[5 * i] + edge[5 * i + 4], 0.0F);
            }
            QVERIFY(edge[12] > 0);
        }
    }
};

DRUVELK_TEST_MAIN(ErosionTest)
#include "ErosionTest.moc"
