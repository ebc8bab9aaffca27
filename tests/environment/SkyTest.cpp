#include "environment/BackgroundNode.h"
#include "environment/CubeMapSupport.h"
#include "environment/OffscreenView.h"
#include "support/druvelkTest.h"

#include <QVector3D>
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
PicturePoint inCubeMap(const QVector3D &r) {
    const float x = std::abs(r.x());
    const float y = std::abs(r.y());
    const float z = std::abs(r.z());
    const auto point = [](int face, float s, float t, float m) {
        return PicturePoint{face, (s / m + 1) / 2, (t / m + 1) / 2};
    };
    if (x >= y && x >= z) {
        return r.x() > 0 ? point(1, -r.z(), -r.y(), x) : point(0, r.z(), -r.y(), x);
    }
    if (y >= z) {
        return r.y() > 0 ? point(3, r.x(), r.z(), y) : point(2, r.x(), -r.z(), y);
    }
    return r.z() > 0 ? point(5, r.x(), -r.y(), z) : point(4, -r.x(), -r.y(), z);
}

/// Walls as high above the eye's height as below it, none above them, and a floor in their lowest row.
std::optional<PicturePoint> onWalls(const QVector3D &d) {
    const bool alongX = std::abs(d.x()) > std::abs(d.z());
    const float wall = alongX ? std::abs(d.x()) : std::abs(d.z());
    if (d.y() > wall) {
        return std::nullopt;
    }
    const bool floor = d.y() < -wall;
    if (floor && std::abs(std::abs(d.x()) - std::abs(d.z())) < 0.05F * -d.y()) {
        return PicturePoint{0, 0, 0}; // where two quarters of the floor meet
    }
    const float distance = floor ? -d.y() : wall;
    const double t = floor ? 0.05 : (d.y() / distance + 1) / 2;
    if (alongX) {
        return d.x() > 0 ? PicturePoint{0, (1 - d.z() / distance) / 2, t}
                         : PicturePoint{1, (1 + d.z() / distance) / 2, t};
    }
    return d.z() > 0 ? PicturePoint{4, (1 + d.x() / distance) / 2, t}
                     : PicturePoint{5, (1 - d.x() / distance) / 2, t};
}

/// The colour there; none too close to the border of two cells. A face's own edge may be near: nothing of its
/// other side shines through.
std::optional<QColor> colorAt(const PicturePoint &point) {
    const double column = point.s * cells;
    const double row = (1 - point.t) * cells;
    for (const double place : {column, row}) {
        const double border = std::round(place);
        const bool inside = border > 0 && border < cells;
        if (std::abs(place - border) < (inside ? 0.1 : 0.004)) {
            return std::nullopt;
        }
    }
    return cellColor(point.face, int(column), int(row));
}

/// In the evening's tint.
std::optional<QColor> expectedSky(const QVector3D &direction) {
    const auto point = cubeMapsAvailable() ? inCubeMap(-direction) : onWalls(direction);
    const auto color = point ? colorAt(*point) : nothing;
    return point && color
               ? QColor(int(color->red() * 0.65), int(color->green() * 0.45), int(color->blue() * 0.3))
               : color;
}

/// Looks from far above the ground, which the far plane hides, with a scaled modelview.
void lookToward(const QVector3D &to, const QVector3D &up) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(90, 1, 1, 100);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glScalef(2, 2, 2);
    gluLookAt(7, 5000, 3, 7 + to.x(), 5000 + to.y(), 3 + to.z(), up.x(), up.y(), up.z());
}

QVector3D worldDirection(const QVector3D &to, const QVector3D &up, int x, int y) {
    const QVector3D right = QVector3D::normal(to, up);
    constexpr float half = OffscreenView::side / 2.0F;
    return to.normalized() + (float(x) + 0.5F - half) / half * right +
           (half - float(y) - 0.5F) / half * QVector3D::normal(right, to);
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
        node->setCubeTexture(directory + "/mount.png");
        node->dayTime = 131;
        // What the view leaves on for the terrain must not reach the sky.
        for (const int on :
             {GL_LIGHTING, GL_LIGHT0, GL_NORMALIZE, GL_COLOR_MATERIAL, GL_CULL_FACE, GL_DEPTH_TEST}) {
            glEnable(GLenum(on));
        }
    }

    void cleanup() {
        QCOMPARE(glGetError(), GLenum{GL_NO_ERROR});
        node.reset();
        view.reset();
    }

    void showsEachDirection() {
        const QByteArray overridden = qgetenv("MESA_EXTENSION_OVERRIDE");
        QCOMPARE(cubeMapsAvailable(), !overridden.contains("-GL_ARB_texture_cube_map"));
        writeSky(directory, !cubeMapsAvailable());
        node->setWaterTexture(directory + "/mount_negx.png");
        node->initGL();
        const QVector3D north{0, 0, 1};
        const QVector3D sky{0, 1, 0};
        const std::vector<std::pair<QVector3D, QVector3D>> looks{
            {{1, 0, 0}, sky}, {{-1, 0, 0}, sky}, {{0, 1, 0}, north}, {{0, -1, 0}, north},
            {{0, 0, 1}, sky}, {{0, 0, -1}, sky}, {{3, 1, -2}, sky},  {{-1, -0.5F, 2}, {0.2F, 1, 0.3F}}};
        for (const auto &[to, up] : looks) {
            lookToward(to, up);
            glBindTexture(GL_TEXTURE_2D, node->waterTextureObject);
            const QImage picture = drawn();
            int compared = 0;
            for (int y = 2; y < OffscreenView::side; y += 3) {
                for (int x = 2; x < OffscreenView::side; x += 3) {
                    if (const auto expected = expectedSky(worldDirection(to, up, x, y))) {
                        ++compared;
                        QVERIFY2(closeTo(picture.pixelColor(x, y), *expected),
                                 qPrintable(QString::asprintf("toward %g %g %g, at %d %d", double(to.x()),
                                                              double(to.y()), double(to.z()), x, y)));
                    }
                }
            }
            QVERIFY(compared > 300);
        }
        // The sky's filters are none of the water's picture, which was bound before.
        glBindTexture(GL_TEXTURE_2D, node->waterTextureObject);
        GLint filter = 0;
        glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, &filter);
        QCOMPARE(filter, GL_LINEAR_MIPMAP_LINEAR);
    }

    void aFaceThatIsMissingOrNotSquareLeavesThePlainTint() {
        const QColor tint(165, 114, 76);
        const QString face = directory + "/mount_posx.png";
        for (const bool missing : {true, false}) {
            writeSky(directory);
            node->initGL();
            lookToward({-1, 0, 0}, {0, 1, 0});
            QVERIFY(!closeTo(drawn().pixelColor(95, 80), tint));
            QVERIFY(missing ? QFile::remove(face) : QImage(face).scaled(8, 4).save(face));
            node->initGL();
            for (const QVector3D &to :
                 {QVector3D(1, 0, 0), QVector3D(-1, 0, 0), QVector3D(0, 0, 1), QVector3D(0, 0, -1)}) {
                lookToward(to, {0, 1, 0});
                // Walls need not be square, and one that was read before the missing one keeps its picture.
                const bool plain = cubeMapsAvailable() || (missing && to.x() <= 0);
                QCOMPARE(closeTo(drawn().pixelColor(95, 80), tint), plain);
            }
        }
    }

    void itsTintFollowsTheHeightOfTheSun() {
        constexpr std::array<std::array<float, 3>, 5> tints{
            {{0.1F, 0.1F, 0.3F}, {0.3F, 0.3F, 0.4F}, {0.65F, 0.45F, 0.3F}, {0.8F, 0.7F, 0.6F}, {1, 1, 1}}};
        for (node->dayTime = -90; node->dayTime < 270; ++node->dayTime) {
            const int height = std::min(node->dayTime, 180 - node->dayTime);
            const int step = int(height >= 10) + int(height >= 30) + int(height >= 50) + int(height >= 70);
            node->updateSkyTint();
            QVERIFY2(node->skyTint == tints[std::size_t(step)], qPrintable(QString::number(node->dayTime)));
        }
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
};

DRUVELK_TEST_MAIN(SkyTest)
#include "SkyTest.moc"
