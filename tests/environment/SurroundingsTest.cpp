#include "environment/BackgroundNode.h"
#include "environment/OffscreenView.h"
#include "support/druvelkTest.h"

#include <cmath>
#include <optional>

namespace {

constexpr QRgb nothing = 0xffff00ff;

/// Four quarters: red, green / blue, white.
QString quarters(const QString &directory) {
    QImage image(2, 2, QImage::Format_RGB32);
    image.setPixelColor(0, 0, Qt::red);
    image.setPixelColor(1, 0, Qt::green);
    image.setPixelColor(0, 1, Qt::blue);
    image.setPixelColor(1, 1, Qt::white);
    const QString fileName = directory + QString::fromUtf8("/земля.png");
    image.scaled(64, 64).save(fileName);
    return fileName;
}

/// The quarters at a part of the way along x and z, if no border of two is near. They repeat five times,
/// turned by a quarter: up in the picture is along x.
std::optional<QColor> quarterAt(double alongX, double alongZ) {
    const double s = 1 - std::fmod(5 * alongZ, 1);
    const double t = std::fmod(5 * alongX, 1);
    for (const double border : {0.0, 0.5, 1.0}) {
        if (std::fabs(s - border) < 0.16 || std::fabs(t - border) < 0.16) {
            return std::nullopt;
        }
    }
    return t > 0.5 ? (s > 0.5 ? Qt::green : Qt::red) : (s > 0.5 ? Qt::white : Qt::blue);
}

/// What lies at a point, given from the middle of the map, and how high. Nothing is told near an edge.
struct Expected {
    QColor color;
    double height;
};
std::optional<Expected> expectedAt(double x, double z, double half, double far) {
    const double unsure = far / 40;
    for (const double edge : {half, far}) {
        if (std::fabs(std::fabs(x) - edge) < unsure || std::fabs(std::fabs(z) - edge) < unsure) {
            return std::nullopt;
        }
    }
    const auto along = [=](double a) {
        return a < -half  ? (a + far) / (far - half)
               : a < half ? (a + half) / (2 * half)
                          : (a - half) / (far - half);
    };
    const double farther = std::max(std::fabs(x), std::fabs(z));
    if (farther > far) {
        return Expected{QColor(nothing), -100};
    }
    const bool water = farther < half;
    const double edge = half + 1;
    const auto seen =
        water ? quarterAt((x / edge + 1) / 2, (z / edge + 1) / 2) : quarterAt(along(x), along(z));
    if (!seen) {
        return std::nullopt;
    }
    return water ? Expected{{seen->red() / 2, seen->green(), seen->blue()}, -0.3}
                 : Expected{{seen->red(), seen->green() / 2, seen->blue()}, 0};
}

/// Looks straight down on the world: x to the right, z down, heights from -100 to 100.
void lookDown(double middle, double reach) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(middle - reach, middle + reach, -middle - reach, -middle + reach, -100, 100);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glRotatef(90, 1, 0, 0);
}

} // namespace

class SurroundingsTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        view = std::make_unique<OffscreenView>();
        node = std::make_unique<BackgroundNode>();
        node->fog = true;
    }

    void cleanup() {
        QCOMPARE(glGetError(), GLenum{GL_NO_ERROR});
        node.reset();
        view.reset();
    }

    void groundWaterAndOutlineLieWhereTheyMust() {
        const QTemporaryDir scratch;
        node->setGroundTexture(quarters(scratch.path()));
        node->setWaterTexture(node->groundTexture);
        node->groundColor = {1, 0.5F, 1};
        node->waterColor = {0.5F, 1, 1};
        glEnable(GL_DEPTH_TEST);
        glDepthFunc(GL_LEQUAL);
        // An empty grid has the surroundings of the usual map.
        for (const auto &[density, dimension, shown] :
             {std::tuple(4, 16, 16), {4, 15, 15}, {0, 40, 60}, {2, 0, 60}}) {
            node->setMapSize(density, dimension);
            node->initGL();
            const int half = shown / 2;
            lookDown(half, 2 * shown + 2);
            for (int frame = 0; frame < 40; ++frame) { // More than any stack holds.
                view->clear();
                node->draw(0);
                node->drawSecondPass(0);
            }
            compare(half, 2 * shown);
            QVERIFY2(!QTest::currentTestFailed(), qPrintable(QString::number(dimension)));
        }
    }

    void destructionFreesOwnNamesOnly() {
        const GLuint foreign = glGenLists(3);
        for (GLuint list = foreign; list < foreign + 3; ++list) {
            glNewList(list, GL_COMPILE);
            glEndList();
        }
        QCOMPARE(foreign, 1U);
        node.reset(); // Never set up: it owns nothing.
        node = std::make_unique<BackgroundNode>();
        node->initGL();
        const GLuint own = node->firstList;
        QVERIFY(glIsList(own) && glIsList(own + 2));
        node.reset();
        QVERIFY(!glIsList(own) && !glIsList(own + 2) && glIsList(1) && glIsList(2));
    }

private:
    void compare(double half, double far) {
        constexpr int side = OffscreenView::side;
        const double reach = far + 2;
        const QImage picture = view->picture();
        std::vector<float> depths(std::size_t(side * side));
        glReadPixels(0, 0, side, side, GL_DEPTH_COMPONENT, GL_FLOAT, depths.data());
        const auto shows = [&](QPoint pixel, const Expected &expected) {
            const int index = (side - 1 - pixel.y()) * side + pixel.x();
            const auto depth = double(depths[std::size_t(index)]);
            return closeTo(picture.pixelColor(pixel), expected.color) &&
                   std::fabs(100 - 200 * depth - expected.height) < 0.01;
        };
        int compared = 0;
        for (int i = 0; i < side * side; ++i) {
            const QPoint pixel(i % side, i / side);
            const QPointF place = (pixel + QPointF(0.5, 0.5)) * 2 * reach / side - QPointF(reach, reach);
            if (const auto expected = expectedAt(place.x(), place.y(), half, far)) {
                ++compared;
                QVERIFY2(shows(pixel, *expected), qPrintable(QString("%1 %2").arg(place.x()).arg(place.y())));
            }
        }
        QVERIFY(compared > 4000);
        // Of the grey outline, the middle of each side.
        for (const QPointF place : {QPointF(half, 0), {-half, 0}, {0, half}, {0, -half}}) {
            const QPoint pixel = ((place + QPointF(reach, reach)) * side / 2 / reach).toPoint();
            const Expected outline{{102, 102, 102}, 0.5};
            QVERIFY(shows(pixel, outline) || shows(pixel - QPoint(1, 0), outline) ||
                    shows(pixel - QPoint(0, 1), outline));
        }
    }

    std::unique_ptr<OffscreenView> view;
    std::unique_ptr<BackgroundNode> node;
};

DRUVELK_TEST_MAIN(SurroundingsTest)
#include "SurroundingsTest.moc"
