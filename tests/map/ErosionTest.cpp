#include "map/Erosion.h"

#include "map/MeshNode.h"
#include "support/druvelkTest.h"

#include <algorithm>
#include <cmath>
#include <limits>
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
        double sum = 0;
        for (const int d : {-1, 1, -n - 1, -n, -n + 1, n - 1, n, n + 1}) {
            sum += at(i + d);
        }
        at(i) = static_cast<float>(0.125 * sum);
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
};

DRUVELK_TEST_MAIN(ErosionTest)
#include "ErosionTest.moc"
