#include "models/Md2Model.h"
#include "scene/CharacterNames.h"
#include "support/druvelkTest.h"

#include <QImage>
#include <algorithm>
#include <assimp/Importer.hpp>
#include <assimp/scene.h>
#include <bit>
#include <cmath>
#include <cstdlib>

/// Looks at the built characters as the editor and other programs read them.
class CharactersTest : public QObject {
    Q_OBJECT

private slots:
    void modelsAreRead_data();
    void modelsAreRead();
    void commandsDrawTheTriangles_data() { modelsAreRead_data(); }
    void commandsDrawTheTriangles();
    void figuresStandOnTheFloor_data() { charactersByName(); }
    void figuresStandOnTheFloor();
    void loopsAreSmooth_data() { modelsAreRead_data(); }
    void loopsAreSmooth();
    void handsHoldTheWeapons_data();
    void handsHoldTheWeapons();
    void teamsDifferInTheirColourOnly_data() { charactersByName(); }
    void teamsDifferInTheirColourOnly();
    void weaponsHaveSkins();

private:
    static void charactersByName();
};

namespace {

QString treeFile(const QString &character, const QString &file) {
    return QStringLiteral(DRUVELK_DATA_TREE "/%1/%2").arg(character, file);
}

bool load(Md2Model &model, const QString &path) {
    return model.Load(path.toStdString(), {});
}

float distance(const Vec3 &a, const Vec3 &b) {
    return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

/// A corner as the commands and the triangle list both give it: vertex, s and t in texels.
using Corner = std::array<long, 3>;
using Triangle = std::array<Corner, 3>;

/// The same triangle, turning the same way, from its least corner on.
Triangle fromLeast(Triangle triangle) {
    std::rotate(triangle.begin(), std::min_element(triangle.begin(), triangle.end()), triangle.end());
    return triangle;
}

std::vector<Triangle> listedTriangles(const Md2Model &model) {
    std::vector<Triangle> triangles;
    for (const Md2Triangle &listed : model.triangles) {
        Triangle triangle;
        for (std::size_t i = 0; i < 3; ++i) {
            const Md2TexCoord texel = model.texCoords[listed.texCoords[i]];
            triangle[i] = {listed.vertices[i], texel.s, texel.t};
        }
        triangles.push_back(fromLeast(triangle));
    }
    return triangles;
}

/// The triangles that the commands draw, all turning the way OpenGL takes them.
std::vector<Triangle> drawnTriangles(const Md2Model &model, int &runs) {
    std::vector<Triangle> triangles;
    const std::vector<std::int32_t> &words = model.glCommands;
    for (std::size_t at = 0; words[at] != 0; ++runs) {
        const bool fan = words[at] < 0;
        const auto count = static_cast<std::size_t>(std::abs(words[at]));
        std::vector<Corner> corners;
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t entry = at + 1 + 3 * i;
            corners.push_back(
                {words[entry + 2],
                 std::lround(std::bit_cast<float>(words[entry]) * static_cast<float>(model.header.skinWidth)),
                 std::lround(std::bit_cast<float>(words[entry + 1]) *
                             static_cast<float>(model.header.skinHeight))});
        }
        for (std::size_t i = 2; i < count; ++i) {
            Triangle triangle{corners[fan ? 0 : i - 2], corners[i - 1], corners[i]};
            if (!fan && i % 2 == 1)
                std::swap(triangle[0], triangle[1]);
            triangles.push_back(fromLeast(triangle));
        }
        at += 1 + 3 * count;
    }
    return triangles;
}

/// Six times the volume inside the drawn surface: positive where fronts look outward.
float enclosed(const std::vector<Triangle> &triangles, const Md2Frame &frame) {
    float sum = 0;
    for (const Triangle &triangle : triangles) {
        std::array<Vec3, 3> at;
        for (std::size_t i = 0; i < 3; ++i)
            at[i] = frame.vertices[static_cast<std::size_t>(triangle[i][0])].position;
        Vec3 normal;
        cross(at[0], at[1], normal);
        sum += normal.x * at[2].x + normal.y * at[2].y + normal.z * at[2].z;
    }
    return sum;
}

unsigned int trianglesInAssimp(const QString &path) {
    Assimp::Importer importer;
    const aiScene *scene = importer.ReadFile(path.toStdString(), 0);
    unsigned int count = 0;
    for (unsigned int i = 0; scene != nullptr && i < scene->mNumMeshes; ++i)
        count += scene->mMeshes[i]->mNumFaces;
    return count;
}

/// The greatest way any vertex goes from one frame to another.
float greatestStep(const Md2Frame &from, const Md2Frame &to) {
    float greatest = 0;
    for (std::size_t i = 0; i < from.vertices.size(); ++i)
        greatest = std::max(greatest, distance(from.vertices[i].position, to.vertices[i].position));
    return greatest;
}

/// Whether a vertex of the figure keeps its distance to three vertices of the weapon in all frames.
bool followsWeapon(const Md2Model &figure, std::size_t vertex, const Md2Model &weapon) {
    const std::size_t count = weapon.frames.front().vertices.size();
    for (const std::size_t other : {std::size_t{0}, count / 2, count - 1}) {
        const auto apart = [&](std::size_t frame) {
            return distance(figure.frames[frame].vertices[vertex].position,
                            weapon.frames[frame].vertices[other].position);
        };
        for (std::size_t frame = 1; frame < figure.frames.size(); ++frame) {
            if (std::abs(apart(frame) - apart(0)) > 0.4F)
                return false;
        }
    }
    return true;
}

float nearest(const Md2Frame &figure, const std::vector<std::size_t> &vertices, const Md2Frame &weapon) {
    float least = 1000;
    for (const std::size_t vertex : vertices) {
        for (const Md2Vertex &other : weapon.vertices)
            least = std::min(least, distance(figure.vertices[vertex].position, other.position));
    }
    return least;
}

} // namespace

void CharactersTest::charactersByName() {
    QTest::addColumn<QString>("character");
    for (const char *character : characterNames)
        QTest::newRow(character) << QString::fromLatin1(character);
}

void CharactersTest::modelsAreRead_data() {
    QTest::addColumn<QString>("path");
    for (const char *character : characterNames) {
        const QString name = QString::fromLatin1(character);
        QTest::addRow("%s", character) << treeFile(name, QStringLiteral("tris.md2"));
        for (const char *weapon : weaponNames)
            QTest::addRow("%s, %s", character, weapon)
                << treeFile(name, QString::fromLatin1(weapon) + QStringLiteral(".md2"));
    }
}

void CharactersTest::modelsAreRead() {
    QFETCH(QString, path);
    Md2Model model;
    QVERIFY(load(model, path));
    QCOMPARE(model.header.skinWidth, 512);
    QCOMPARE(model.header.skinHeight, 512);
    QCOMPARE(model.frames.size(), std::size_t{41});
    QCOMPARE(static_cast<std::int64_t>(model.header.endOffset), QFileInfo(path).size());
    QVERIFY(model.triangles.size() <= 2200);
    QVERIFY(model.triangles.size() >= (path.endsWith(QStringLiteral("tris.md2")) ? 600U : 100U));
    QCOMPARE(trianglesInAssimp(path), static_cast<unsigned int>(model.triangles.size()));
}

void CharactersTest::commandsDrawTheTriangles() {
    QFETCH(QString, path);
    Md2Model model;
    QVERIFY(load(model, path));
    int runs = 0;
    std::vector<Triangle> drawn = drawnTriangles(model, runs);
    std::vector<Triangle> listed = listedTriangles(model);
    QVERIFY2(drawn.size() >= 4 * static_cast<std::size_t>(runs), qPrintable(QString::number(runs)));
    QVERIFY(enclosed(drawn, model.frames.front()) > 0);
    std::sort(drawn.begin(), drawn.end());
    std::sort(listed.begin(), listed.end());
    QVERIFY(drawn == listed);
}

void CharactersTest::figuresStandOnTheFloor() {
    QFETCH(QString, character);
    Md2Model model;
    QVERIFY(load(model, treeFile(character, QStringLiteral("tris.md2"))));
    for (const Md2Frame &frame : model.frames) {
        const auto [low, high] = std::minmax_element(
            frame.vertices.begin(), frame.vertices.end(),
            [](const Md2Vertex &a, const Md2Vertex &b) { return a.position.z < b.position.z; });
        QVERIFY2(std::abs(low->position.z) < 0.3F, qPrintable(QString::number(low->position.z)));
        QVERIFY2(std::abs(high->position.z - 56.0F) < 7.0F, qPrintable(QString::number(high->position.z)));
        // What rests on the floor does not tremble.
        for (std::size_t i = 0; i < frame.vertices.size(); ++i) {
            const Vec3 &rest = model.frames.front().vertices[i].position;
            if (rest.z < 1.0F)
                QVERIFY(distance(rest, frame.vertices[i].position) < 1e-4F);
        }
    }
}

void CharactersTest::loopsAreSmooth() {
    QFETCH(QString, path);
    Md2Model model;
    QVERIFY(load(model, path));
    float widest = 0;
    for (std::size_t i = 0; i < 40; ++i) {
        const float step = greatestStep(model.frames[i], model.frames[i + 1]);
        QVERIFY2(step < 3.5F, qPrintable(QStringLiteral("%1 after frame %2").arg(step).arg(i)));
        widest = std::max(widest, greatestStep(model.frames[0], model.frames[i]));
    }
    QVERIFY2(widest > 1.0F, "stands still");
    QCOMPARE(greatestStep(model.frames[40], model.frames[0]), 0.0F);
}

void CharactersTest::handsHoldTheWeapons_data() {
    QTest::addColumn<QString>("character");
    QTest::addColumn<QString>("weapon");
    for (const char *character : characterNames) {
        for (const char *weapon : weaponNames)
            QTest::addRow("%s, %s", character, weapon)
                << QString::fromLatin1(character) << QString::fromLatin1(weapon);
    }
}

void CharactersTest::handsHoldTheWeapons() {
    QFETCH(QString, character);
    QFETCH(QString, weapon);
    Md2Model figure;
    Md2Model held;
    QVERIFY(load(figure, treeFile(character, QStringLiteral("tris.md2"))));
    QVERIFY(load(held, treeFile(character, weapon + QStringLiteral(".md2"))));
    std::vector<std::size_t> hand;
    for (std::size_t i = 0; i < figure.frames.front().vertices.size(); ++i) {
        if (followsWeapon(figure, i, held))
            hand.push_back(i);
    }
    QVERIFY2(hand.size() >= 20, qPrintable(QString::number(hand.size())));
    for (std::size_t frame = 0; frame < figure.frames.size(); ++frame) {
        const float gap = nearest(figure.frames[frame], hand, held.frames[frame]);
        QVERIFY2(gap <= 1.0F, qPrintable(QStringLiteral("%1 in frame %2").arg(gap).arg(frame)));
    }
}

void CharactersTest::teamsDifferInTheirColourOnly() {
    QFETCH(QString, character);
    std::array<QImage, teamNames.size()> skins;
    for (std::size_t team = 0; team < skins.size(); ++team) {
        const QString path =
            treeFile(character, QString::fromLatin1(teamNames[team]) + QStringLiteral(".png"));
        skins[team] = QImage(path).convertToFormat(QImage::Format_RGB32);
        QCOMPARE(skins[team].size(), QSize(512, 512));
    }
    const auto &[blue, green, red, personal] = skins;
    int coloured = 0;
    std::array<int, 4> wrong{};
    for (int y = 0; y < 512; ++y) {
        for (int x = 0; x < 512; ++x) {
            const QColor b(blue.pixel(x, y));
            const QColor g(green.pixel(x, y));
            const QColor r(red.pixel(x, y));
            const QColor p(personal.pixel(x, y));
            // Elsewhere the skins are one; here each shows its own colour.
            if (std::abs(b.blue() - r.blue()) < 50)
                continue;
            ++coloured;
            wrong[0] += b.blue() < std::max(b.red(), b.green()) ? 1 : 0;
            wrong[1] += g.green() < std::max(g.red(), g.blue()) ? 1 : 0;
            wrong[2] += r.red() < std::max(r.green(), r.blue()) ? 1 : 0;
            wrong[3] += p.saturation() > 60 || p.value() < b.value() - 40 ? 1 : 0;
        }
    }
    QVERIFY2(coloured > 512 * 512 / 10, qPrintable(QString::number(coloured)));
    QVERIFY2(coloured < 512 * 512 * 8 / 10, qPrintable(QString::number(coloured)));
    for (const int count : wrong)
        QVERIFY2(count < coloured / 50, qPrintable(QString::number(count)));
}

void CharactersTest::weaponsHaveSkins() {
    for (const char *character : characterNames) {
        for (const char *weapon : weaponNames) {
            const QImage skin(treeFile(QString::fromLatin1(character),
                                       QString::fromLatin1(weapon) + QStringLiteral(".png")));
            QCOMPARE(skin.size(), QSize(512, 512));
        }
    }
}

DRUVELK_TEST_MAIN(CharactersTest)
#include "CharactersTest.moc"
