#include "models/Md2Model.h"
#include "scene/CharacterNames.h"
#include "support/druvelkTest.h"
#include "tools/sheet/FigurePainter.h"

#include <QImage>
#include <algorithm>
#include <assimp/Importer.hpp>
#include <assimp/scene.h>
#include <cmath>
#include <cstdlib>
#include <map>
#include <numeric>

/// Looks at the built characters as the editor and other programs read them.
class CharactersTest : public QObject {
    Q_OBJECT

private slots:
    void filesHoldWholeModels_data();
    void filesHoldWholeModels();
    void figuresIdleOnTheFloor_data() { charactersByName(); }
    void figuresIdleOnTheFloor();
    void handsHoldTheWeapons_data() { charactersByName(); }
    void handsHoldTheWeapons();
    void teamsAreToldApart_data() { charactersByName(); }
    void teamsAreToldApart();

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

Vec3 minus(const Vec3 &a, const Vec3 &b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

float dot(const Vec3 &a, const Vec3 &b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

float distance(const Vec3 &a, const Vec3 &b) {
    return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

/// Where programs look for animations: the frame each begins with, and the last of all.
const std::map<std::size_t, std::string> frameNames{
    {0, "stand01"},   {40, "run1"},      {46, "attack1"},   {54, "pain101"},   {58, "pain201"},
    {62, "pain301"},  {66, "jump1"},     {72, "flip01"},    {84, "salute01"},  {95, "taunt01"},
    {112, "wave01"},  {123, "point01"},  {135, "crstnd01"}, {154, "crwalk1"},  {160, "crattak1"},
    {169, "crpain1"}, {173, "crdeath1"}, {178, "death101"}, {184, "death201"}, {190, "death301"},
    {197, "death308"}};

/// Degrees the top of the figure is turned to its left from where `reference` has it.
float headTurn(const Md2Model &figure, std::size_t reference, std::size_t frame) {
    const std::vector<Md2Vertex> &from = figure.frames[reference].vertices;
    const std::vector<Md2Vertex> &to = figure.frames[frame].vertices;
    std::vector<std::size_t> head(from.size());
    std::iota(head.begin(), head.end(), std::size_t{0});
    const auto higher = [&](std::size_t a, std::size_t b) { return from[a].position.z > from[b].position.z; };
    std::sort(head.begin(), head.end(), higher);
    head.resize(head.size() / 12);
    std::array<Vec3, 2> middle;
    for (const std::size_t i : head) {
        const auto share = 1.0F / static_cast<float>(head.size());
        middle[0].x += from[i].position.x * share;
        middle[0].y += from[i].position.y * share;
        middle[1].x += to[i].position.x * share;
        middle[1].y += to[i].position.y * share;
    }
    float across = 0;
    float along = 0;
    for (const std::size_t i : head) {
        const Vec3 a = minus(from[i].position, middle[0]);
        const Vec3 b = minus(to[i].position, middle[1]);
        across += a.x * b.y - a.y * b.x;
        along += a.x * b.x + a.y * b.y;
    }
    return std::atan2(across, along) * 57.29578F;
}

/// The vertices that keep their distance to three vertices of the weapon in these frames.
std::vector<std::size_t> followers(const Md2Model &figure, const Md2Model &weapon,
                                   const std::vector<std::size_t> &frames) {
    const std::size_t count = weapon.frames.front().vertices.size();
    std::vector<std::size_t> found;
    for (std::size_t vertex = 0; vertex < figure.frames.front().vertices.size(); ++vertex) {
        const auto follows = [&](std::size_t frame) {
            for (const std::size_t other : {std::size_t{0}, count / 2, count - 1}) {
                const auto apart = [&](std::size_t at) {
                    return distance(figure.frames[at].vertices[vertex].position,
                                    weapon.frames[at].vertices[other].position);
                };
                if (std::abs(apart(frame) - apart(frames.front())) > 0.9F)
                    return false;
            }
            return true;
        };
        if (std::all_of(frames.begin(), frames.end(), follows))
            found.push_back(vertex);
    }
    return found;
}

/// Whether a hand closes around the weapon: some point of the weapon lies within it, as seen from all sides.
bool holds(const Md2Frame &figure, const std::vector<std::size_t> &hand, const Md2Frame &weapon,
           const std::vector<Md2Triangle> &triangles) {
    return std::any_of(triangles.begin(), triangles.end(), [&](const Md2Triangle &triangle) {
        Vec3 middle;
        for (const std::uint16_t corner : triangle.vertices) {
            const Vec3 &p = weapon.vertices[corner].position;
            middle = {middle.x + p.x / 3, middle.y + p.y / 3, middle.z + p.z / 3};
        }
        for (int direction = 0; direction < 27; ++direction) {
            const std::div_t rows = std::div(direction, 3);
            const std::div_t planes = std::div(rows.quot, 3);
            const Vec3 way{static_cast<float>(rows.rem - 1), static_cast<float>(planes.rem - 1),
                           static_cast<float>(planes.quot - 1)};
            const auto beyond = [&](std::size_t i) {
                return dot(minus(figure.vertices[i].position, middle), way) > 0.3F;
            };
            if (direction != 13 && std::none_of(hand.begin(), hand.end(), beyond))
                return false;
        }
        return true;
    });
}

int apart(QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
}

} // namespace

void CharactersTest::charactersByName() {
    QTest::addColumn<QString>("character");
    for (const char *character : characterNames)
        QTest::newRow(character) << QString::fromLatin1(character);
}

void CharactersTest::filesHoldWholeModels_data() {
    QTest::addColumn<QString>("path");
    for (const char *character : characterNames) {
        const QString name = QString::fromLatin1(character);
        QTest::addRow("%s", character) << treeFile(name, QStringLiteral("tris.md2"));
        for (const char *weapon : weaponNames)
            QTest::addRow("%s, %s", character, weapon)
                << treeFile(name, QString::fromLatin1(weapon) + QStringLiteral(".md2"));
    }
}

void CharactersTest::filesHoldWholeModels() {
    QFETCH(QString, path);
    const bool weapon = !path.endsWith(QStringLiteral("tris.md2"));
    Md2Model model;
    QVERIFY(load(model, path));
    QCOMPARE(QSize(model.header.skinWidth, model.header.skinHeight), QSize(512, 512));
    QCOMPARE(static_cast<std::int64_t>(model.header.endOffset), QFileInfo(path).size());
    QVERIFY(model.triangles.size() <= 3000);
    QCOMPARE(model.frames.size(), std::size_t{198});
    for (const auto &[frame, name] : frameNames)
        QCOMPARE(model.frames[frame].name, name);
    Assimp::Importer importer;
    const aiScene *scene = importer.ReadFile(path.toStdString(), 0);
    QVERIFY(scene != nullptr);
    QCOMPARE(scene->mMeshes[0]->mNumFaces, static_cast<unsigned int>(model.triangles.size()));
    if (weapon)
        QCOMPARE(QImage(QString(path).replace(".md2", ".png")).size(), QSize(512, 512));

    // Insides are measured on what the commands draw, so there they draw all, turning the right way.
    const std::size_t drawn = FigurePainter({}).add(model, 0);
    QCOMPARE(drawn, model.triangles.size());
    const std::size_t runs = (model.glCommands.size() - 1 - 3 * drawn) / 7;
    QVERIFY2(drawn >= 4 * runs, qPrintable(QString::number(runs)));
    const Wholeness whole = wholeness(model, weapon ? std::vector<std::size_t>{0}
                                                    : std::vector<std::size_t>{0, 5, 10, 15, 20, 25, 30, 35});
    QVERIFY2(
        whole.mean <= 0.0005 && whole.worst <= 0.003,
        qPrintable(QStringLiteral("%1 % of its inside shows, at worst %2 % in frame %3 from %4, %5 degrees")
                       .arg(100 * whole.mean)
                       .arg(100 * whole.worst)
                       .arg(whole.worstFrame)
                       .arg(whole.worstView.azimuth)
                       .arg(whole.worstView.elevation)));
}

void CharactersTest::figuresIdleOnTheFloor() {
    QFETCH(QString, character);
    Md2Model model;
    QVERIFY(load(model, treeFile(character, QStringLiteral("tris.md2"))));
    const auto low = [&](std::size_t frame) {
        float least = 1000;
        for (const Md2Vertex &vertex : model.frames[frame].vertices)
            least = std::min(least, vertex.position.z);
        return least;
    };
    for (std::size_t frame = 0; frame < model.frames.size(); ++frame)
        QVERIFY2(low(frame) > -0.3F && (frame >= 40 || low(frame) < 0.3F), model.frames[frame].name.c_str());
    float turn = 0;
    for (std::size_t frame = 0; frame < 40; ++frame) {
        const std::vector<Md2Vertex> &now = model.frames[frame].vertices;
        const std::vector<Md2Vertex> &next = model.frames[(frame + 1) % 40].vertices;
        for (std::size_t i = 0; i < now.size(); ++i) {
            const Vec3 step = minus(next[i].position, now[i].position);
            QVERIFY2(std::hypot(step.x, step.y, step.z) < 4.5F, model.frames[frame].name.c_str());
            // What rests on the floor neither slides nor trembles.
            if (now[i].position.z < 0.7F && next[i].position.z < 0.7F)
                QVERIFY2(std::hypot(step.x, step.y) < 0.25F, model.frames[frame].name.c_str());
        }
        for (const std::size_t run : {std::size_t{40}, std::size_t{43}})
            turn += headTurn(model, run, frame) / 80.0F;
    }
    // The preview's viewer stands at the figure's left.
    QVERIFY2(turn > 0, qPrintable(QString::number(turn)));
    const float excursion = meanExcursion(model, 0, 40);
    QVERIFY2(excursion >= 3.0F, qPrintable(QString::number(excursion)));
}

void CharactersTest::handsHoldTheWeapons() {
    QFETCH(QString, character);
    Md2Model figure;
    QVERIFY(load(figure, treeFile(character, QStringLiteral("tris.md2"))));
    for (const char *name : weaponNames) {
        Md2Model weapon;
        QVERIFY(load(weapon, treeFile(character, QString::fromLatin1(name) + QStringLiteral(".md2"))));
        // The right hand never lets go; the left one does for gestures, but not in a run or an attack.
        std::vector<std::size_t> all(figure.frames.size());
        std::iota(all.begin(), all.end(), std::size_t{0});
        const std::vector<std::size_t> right = followers(figure, weapon, all);
        std::vector<std::size_t> left;
        for (const std::size_t vertex : followers(figure, weapon, {40, 42, 44, 47, 49, 52, 55, 59, 63})) {
            if (!std::binary_search(right.begin(), right.end(), vertex))
                left.push_back(vertex);
        }
        QVERIFY2(right.size() >= 40 && left.size() >= 40, name);
        QVERIFY2(holds(figure.frames[40], right, weapon.frames[40], weapon.triangles), name);
        QVERIFY2(holds(figure.frames[40], left, weapon.frames[40], weapon.triangles), name);
    }
}

void CharactersTest::teamsAreToldApart() {
    QFETCH(QString, character);
    Md2Model figure;
    QVERIFY(load(figure, treeFile(character, QStringLiteral("tris.md2"))));
    std::array<QImage, teamNames.size()> skins;
    for (std::size_t team = 0; team < skins.size(); ++team) {
        skins[team].load(treeFile(character, QString::fromLatin1(teamNames[team]) + QStringLiteral(".png")));
        QCOMPARE(skins[team].size(), QSize(512, 512));
    }
    FigureView view;
    view.size = QSize(64, 64);
    view.scale = 1.05F;
    long covered = 0;
    long coloured = 0;
    long brown = 0;
    std::array<long, 6> difference{};
    for (int turn = 0; turn < 8; ++turn) {
        view.azimuth = previewAzimuth + 45.0F * static_cast<float>(turn);
        std::vector<FigurePainter> painters(skins.size(), FigurePainter(view));
        for (std::size_t team = 0; team < skins.size(); ++team)
            painters[team].add(figure, 0, skins[team]);
        for (int pixel = 0; pixel < 64 * 64; ++pixel) {
            const auto seen = [&](std::size_t team) {
                return painters[team].picture().pixel(pixel % 64, pixel / 64);
            };
            if (!painters[0].covers(pixel % 64, pixel / 64))
                continue;
            ++covered;
            coloured += std::abs(qBlue(seen(0)) - qBlue(seen(2))) >= 50 ? 1 : 0;
            for (std::size_t a = 0, pair = 0; a < skins.size(); ++a) {
                brown += apart(seen(a), view.ground) < 60 ? 1 : 0;
                for (std::size_t b = a + 1; b < skins.size(); ++b)
                    difference[pair++] += apart(seen(a), seen(b));
            }
        }
    }
    const auto percent = [&](long part) {
        return 100.0 * static_cast<double>(part) / static_cast<double>(covered);
    };
    const QString report = QStringLiteral("team colour %1 %, brown %2 %, least difference %3")
                               .arg(percent(coloured))
                               .arg(percent(brown) / 4)
                               .arg(percent(*std::min_element(difference.begin(), difference.end())) / 100);
    QVERIFY2(percent(coloured) >= 25, qPrintable(report));
    QVERIFY2(percent(brown) / 4 <= 20, qPrintable(report));
    QVERIFY2(*std::min_element(difference.begin(), difference.end()) >= 25 * covered, qPrintable(report));
}

DRUVELK_TEST_MAIN(CharactersTest)
#include "CharactersTest.moc"
