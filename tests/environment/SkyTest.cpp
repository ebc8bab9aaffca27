#include "environment/BackgroundNode.h"
#include "environment/CubeMapSupport.h"
#include "environment/OffscreenView.h"
#include "map/math/Vec3.h"
#include "support/druvelkTest.h"

#include <optional>

namespace {

const QStringList suffixes{"_negx", "_posx", "_negy", "_posy", "_negz", "_posz"};
const QColor nothing(255, 0, 255);

constexpr int cells = 4; ///< A face's picture is a board of that many cells a side.

QColor cellColor(int face, int column, int row) {
    return {30 + 40 * face, 30 + 60 * column, 30 + 60 * row};
}

void writeSky(const QString &directory, bool onlyWalls = false) {
    QDir().mkpath(directory);
    for (int face = 0; face < 6; ++face) {
        if (onlyWalls && (face == 2 || face == 3)) {
            continue;
        }
        QImage board(64, 64, QImage::Format_RGB32);
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 64; ++x) {
                board.setPixelColor(x, y, cellColor(face, x / 16, y / 16));
            }
        }
        QVERIFY(board.save(directory + "/mount" + suffixes[face] + ".png"));
    }
}

/// A point of a face's picture, from its lower left corner, 0 to 1.
struct PicturePoint {
    int face;
    double s;
    double t;
};

/// What stands where in a cube map, as OpenGL lays its faces out.
PicturePoint inCubeMap(const Vec3 &r) {
    const float x = std::abs(r.x);
    const float y = std::abs(r.y);
    const float z = std::abs(r.z);
    const auto point = [](int face, float s, float t, float m) {
        return PicturePoint{face, (s / m + 1) / 2, (t / m + 1) / 2};
    };
    if (x >= y && x >= z) {
        return r.x > 0 ? point(1, -r.z, -r.y, x) : point(0, r.z, -r.y, x);
    }
    if (y >= z) {
        return r.y > 0 ? point(3, r.x, r.z, y) : point(2, r.x, -r.z, y);
    }
    return r.z > 0 ? point(5, r.x, -r.y, z) : point(4, -r.x, -r.y, z);
}

/// Walls as high above the eye's height as below it, none above them, and a floor in their lowest row.
std::optional<PicturePoint> onWalls(const Vec3 &d) {
    const bool alongX = std::abs(d.x) > std::abs(d.z);
    const float wall = alongX ? std::abs(d.x) : std::abs(d.z);
    if (d.y > wall) {
        return std::nullopt;
    }
    const bool floor = d.y < -wall;
    if (floor && std::abs(std::abs(d.x) - std::abs(d.z)) < 0.05F * -d.y) {
        return PicturePoint{0, 0, 0}; // where two quarters of the floor meet
    }
    const float distance = floor ? -d.y : wall;
    const double t = floor ? 0.05 : (d.y / distance + 1) / 2;
    if (alongX) {
        return d.x > 0 ? PicturePoint{0, (1 - d.z / distance) / 2, t}
                       : PicturePoint{1, (1 + d.z / distance) / 2, t};
    }
    return d.z > 0 ? PicturePoint{4, (1 + d.x / distance) / 2, t}
                   : PicturePoint{5, (1 - d.x / distance) / 2, t};
}

/// The colour there; none too close to the border of two cells.
std::optional<QColor> colorAt(const PicturePoint &point) {
    const double column = point.s * cells;
    const double row = (1 - point.t) * cells;
    if (std::abs(column - std::round(column)) < 0.1 || std::abs(row - std::round(row)) < 0.1) {
        return std::nullopt;
    }
    return cellColor(point.face, int(column), int(row));
}

std::optional<QColor> expectedSky(const Vec3 &direction) {
    if (cubeMapsAvailable()) {
        return colorAt(inCubeMap({-direction.x, -direction.y, -direction.z}));
    }
    const auto point = onWalls(direction);
    return point ? colorAt(*point) : nothing;
}

/// Looks from far above the ground, which the far plane hides, with a scaled modelview.
void lookToward(const Vec3 &to, const Vec3 &up) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(90, 1, 1, 100);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glScalef(2, 2, 2);
    gluLookAt(7, 5000, 3, 7 + to.x, 5000 + to.y, 3 + to.z, up.x, up.y, up.z);
}

/// The world direction of a pixel, from OpenGL's modelview matrix.
Vec3 worldDirection(int x, int y) {
    Matrix4 view;
    readModelview(view);
    view[3] = view[7] = view[11] = 0;
    inverse(view);
    constexpr float half = OffscreenView::side / 2.0F;
    const float ex = (float(x) + 0.5F - half) / half;
    const float ey = (half - float(y) - 0.5F) / half;
    return {view[0] * ex + view[1] * ey - view[2], view[4] * ex + view[5] * ey - view[6],
            view[8] * ex + view[9] * ey - view[10]};
}

} // namespace

class SkyTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        view = std::make_unique<OffscreenView>();
        node = std::make_unique<BackgroundNode>();
        node->water = false;
        scratch = std::make_unique<QTemporaryDir>();
        directory = scratch->path() + QString::fromUtf8("/небо 空");
        base = directory + "/mount.png";
        node->setCubeTexture(base);
        // What the view leaves on for the terrain must not reach the sky.
        glEnable(GL_LIGHTING);
        glEnable(GL_LIGHT0);
        glEnable(GL_NORMALIZE);
        glEnable(GL_COLOR_MATERIAL);
        glEnable(GL_CULL_FACE);
        glEnable(GL_DEPTH_TEST);
    }

    void cleanup() {
        QCOMPARE(glGetError(), GLenum{GL_NO_ERROR});
        node.reset();
        view.reset();
    }

    void usesThePathTheDriverOffers() {
        const QByteArray overridden = qgetenv("MESA_EXTENSION_OVERRIDE");
        QCOMPARE(cubeMapsAvailable(), !overridden.contains("-GL_ARB_texture_cube_map"));
    }

    void showsEachDirection() {
        writeSky(directory, !cubeMapsAvailable());
        node->initGL();
        const Vec3 north{0, 0, 1};
        const Vec3 sky{0, 1, 0};
        const std::vector<std::pair<Vec3, Vec3>> looks{
            {{1, 0, 0}, sky}, {{-1, 0, 0}, sky}, {{0, 1, 0}, north}, {{0, -1, 0}, north},
            {{0, 0, 1}, sky}, {{0, 0, -1}, sky}, {{3, 1, -2}, sky},  {{-1, -0.5F, 2}, {0.2F, 1, 0.3F}}};
        for (const auto &[to, up] : looks) {
            lookToward(to, up);
            const QImage picture = drawn();
            int compared = 0;
            for (int y = 2; y < OffscreenView::side; y += 7) {
                for (int x = 2; x < OffscreenView::side; x += 7) {
                    const auto expected = expectedSky(worldDirection(x, y));
                    if (expected) {
                        ++compared;
                        const QColor seen = picture.pixelColor(x, y);
                        QVERIFY2(closeTo(seen, *expected),
                                 qPrintable(QString("toward %1 %2 %3, at %4 %5: %6, not %7")
                                                .arg(to.x)
                                                .arg(to.y)
                                                .arg(to.z)
                                                .arg(x)
                                                .arg(y)
                                                .arg(seen.name(), expected->name())));
                    }
                }
            }
            QVERIFY(compared > 300);
        }
    }

    void leavesTheFiltersOfOtherPicturesAlone() {
        writeSky(directory);
        node->setGroundTexture(directory + "/mount_negx.png");
        node->initGL();
        glBindTexture(GL_TEXTURE_2D, node->groundTextureObject);
        drawn();
        GLint filter = 0;
        glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, &filter);
        QCOMPARE(filter, GL_LINEAR_MIPMAP_LINEAR);
    }

    void rotationKeepsNeitherScaleNorPlace() {
        node->initGL();
        lookToward({3, 1, -2}, {0, 1, 0});
        drawn();
        QVERIFY(std::abs(determinant(node->skyRotation) - 1) < 1e-4);
        QCOMPARE(node->skyRotation[3] + node->skyRotation[7] + node->skyRotation[11], 0.0F);
        QCOMPARE(node->skyRotation[15], 1.0F);
    }

    void missingFaceLeavesThePlainTint() {
        writeSky(directory);
        node->initGL();
        QVERIFY(QFile::remove(directory + "/mount_posx.png"));
        QVERIFY(!loadSkyTextures(node->skyTextures, base.toUtf8().constData()));
        node->skyTint = {0.8F, 0.6F, 0.4F};
        const QColor tint(204, 153, 102);
        for (const Vec3 &to : {Vec3{1, 0, 0}, Vec3{-1, 0, 0}, Vec3{0, 0, 1}, Vec3{0, 0, -1}}) {
            lookToward(to, {0, 1, 0});
            const QColor seen = drawn().pixelColor(95, 80);
            // Of the walls, the one that was read before the missing one keeps its picture.
            const bool plain = cubeMapsAvailable() || to.x <= 0;
            QVERIFY2(closeTo(seen, tint) == plain, qPrintable(seen.name()));
        }
        writeSky(directory);
        QVERIFY(loadSkyTextures(node->skyTextures, base.toUtf8().constData()));
        lookToward({-1, 0, 0}, {0, 1, 0});
        QVERIFY(!closeTo(drawn().pixelColor(95, 80), tint));
    }

    void aFaceThatIsNotSquareIsNoFaceOfACube() {
        writeSky(directory);
        node->initGL();
        const QString face = directory + "/mount_posx.png";
        QVERIFY(QImage(face).scaled(8, 4).save(face));
        if (cubeMapsAvailable()) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("not square.*mount_posx"));
        }
        QCOMPARE(loadSkyTextures(node->skyTextures, base.toUtf8().constData()), !cubeMapsAvailable());
        QCOMPARE(glGetError(), GLenum{GL_NO_ERROR});
    }

    void tintColorsThePicture() {
        writeSky(directory);
        node->dayTime = 30;
        node->initGL();
        lookToward({1, 0, 0}, {0, 1, 0});
        const int x = 115;
        const int y = 65;
        const auto full = expectedSky(worldDirection(x, y));
        QVERIFY(full);
        const QColor tinted(int(full->red() * 0.65), int(full->green() * 0.45), int(full->blue() * 0.3));
        QVERIFY(closeTo(drawn().pixelColor(x, y), tinted));
    }

    void namesAreMadeOnceAndOnlyWhereNeeded() {
        writeSky(directory);
        SkyTextures sky;
        QVERIFY(!loadSkyTextures(sky, nullptr));
        QCOMPARE(sky.cubeMap, 0U);
        node->fog = true;
        node->skyTint = {0, 1, 0};
        node->initGL();
        QCOMPARE(node->skyTextures.cubeMap + node->skyTextures.faces[0], 0U);
        QCOMPARE(node->skyTint[0], 0.0F);
        QCOMPARE(drawn().pixelColor(95, 80), nothing);
        node->fog = false;
        node->initGL();
        const SkyTextures first = node->skyTextures;
        QCOMPARE(first.cubeMap != 0, cubeMapsAvailable());
        QCOMPARE(first.faces[5] != 0, !cubeMapsAvailable());
    }

private:
    QImage drawn() {
        view->clear();
        node->draw(0);
        return view->picture();
    }

    std::unique_ptr<OffscreenView> view;
    std::unique_ptr<BackgroundNode> node;
    std::unique_ptr<QTemporaryDir> scratch;
    QString directory;
    QString base;
};

DRUVELK_TEST_MAIN(SkyTest)
#include "SkyTest.moc"
