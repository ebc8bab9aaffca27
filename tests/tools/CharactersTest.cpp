#include "models/Md2Model.h"
#include "scene/CharacterNames.h"
#include "support/druvelkTest.h"
#include "support/randomSeed.h"
#include "tools/sheet/FigurePainter.h"

#include <QImage>
#include <algorithm>
#include <assimp/Importer.hpp>
#include <assimp/scene.h>
#include <cmath>
#include <cstdlib>
#include <map>
#include <numeric>

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
    std::sort(head.begin(), head.end(),
              [&](std::size_t a, std::size_t b) { return from[a].position.z > from[b].position.z; });
    head.resize(head.size() / 12);
    const auto [one, other] =
        std::minmax_element(head.begin(), head.end(), [&](std::size_t a, std::size_t b) {
            return from[a].position.y < from[b].position.y;
        });
    const Vec3 a = minus(from[*one].position, from[*other].position);
    const Vec3 b = minus(to[*one].position, to[*other].position);
    return std::atan2(a.x * b.y - a.y * b.x, a.x * b.x + a.y * b.y) * 57.29578F;
}

/// The vertices that keep their distance to three vertices of the weapon in these frames.
std::vector<std::size_t> followers(const Md2Model &figure, const Md2Model &weapon,
                                   const std::vector<std::size_t> &frames) {
    const std::size_t count = weapon.frames.front().vertices.size();
    std::vector<std::size_t> found;
    for (std::size_t vertex = 0; vertex < figure.frames.front().vertices.size(); ++vertex) {
        const auto apart = [&](std::size_t frame, std::size_t other) {
            return distance(figure.frames[frame].vertices[vertex].position,
                            weapon.frames[frame].vertices[other].position);
        };
        const auto follows = [&](std::size_t frame) {
            const auto kept = [&](std::size_t other) {
                return std::abs(apart(frame, other) - apart(frames.front(), other)) <= 0.9F;
            };
            return kept(0) && kept(count / 2) && kept(count - 1);
        };
        if (std::all_of(frames.begin(), frames.end(), follows))
            found.push_back(vertex);
    }
    return found;
}

/// Whether a hand closes around the weapon: some point of the weapon lies within it, as seen from all sides.
bool holds(const Md2Frame &figure, const std::vector<std::size_t> &hand, const Md2Frame &weapon) {
    std::vector<Vec3> sides;
    for (const float x : {-1.0F, 0.0F, 1.0F}) {
        for (const float y : {-1.0F, 0.0F, 1.0F}) {
            sides.insert(sides.end(), {{x, y, -1}, {x, y, 0}, {x, y, 1}});
        }
    }
    sides.erase(sides.begin() + 13); // No direction at all.
    return std::any_of(weapon.vertices.begin(), weapon.vertices.end(), [&](const Md2Vertex &point) {
        return std::all_of(sides.begin(), sides.end(), [&](const Vec3 &side) {
            return std::any_of(hand.begin(), hand.end(), [&](std::size_t i) {
                return dot(minus(figure.vertices[i].position, point.position), side) > 0.3F;
            });
        });
    });
}

int apart(QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
}

} // namespace

/// Looks at the built characters as the editor and other programs read them.
class CharactersTest : public QObject {
    Q_OBJECT

private slots:
    void filesHoldWholeModels_data() {
        QTest::addColumn<QString>("path");
        for (const char *character : characterNames) {
            const QString name = QString::fromLatin1(character);
            QTest::addRow("%s", character) << treeFile(name, QStringLiteral("tris.md2"));
            for (const char *weapon : weaponNames)
                QTest::addRow("%s, %s", character, weapon)
                    << treeFile(name, QString::fromLatin1(weapon) + QStringLiteral(".md2"));
        }
    }

    void filesHoldWholeModels() {
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
        static const std::size_t first = randomSeed() % 10;
        const Wholeness whole =
            weapon ? wholeness(model, {0}) : wholeness(model, {first, first + 10, first + 20, first + 30});
        QVERIFY2(whole.mean <= 0.0005 && whole.worst <= 0.003,
                 qPrintable(QStringLiteral("%1 of it shows its inside, in frame %2 from %3 degrees %4")
                                .arg(whole.mean)
                                .arg(whole.worstFrame)
                                .arg(whole.worstView.azimuth)
                                .arg(whole.worst)));
    }

    void figuresLookAsTheyShould_data() {
        QTest::addColumn<QString>("character");
        for (const char *character : characterNames)
            QTest::newRow(character) << QString::fromLatin1(character);
    }

    void figuresLookAsTheyShould() {
        QFETCH(QString, character);
        Md2Model figure;
        QVERIFY(load(figure, treeFile(character, QStringLiteral("tris.md2"))));
        idlesOnTheFloor(figure);
        handsHoldTheWeapons(figure, character);
        teamsAreToldApart(figure, character);
    }

private:
    static void idlesOnTheFloor(const Md2Model &model) {
        const auto low = [&](std::size_t frame) {
            float least = 1000;
            for (const Md2Vertex &vertex : model.frames[frame].vertices)
                least = std::min(least, vertex.position.z);
            return least;
        };
        for (std::size_t frame = 0; frame < model.frames.size(); ++frame)
            QVERIFY2(low(frame) > -0.3F && (frame >= 40 || low(frame) < 0.3F),
                     model.frames[frame].name.c_str());
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

    static void handsHoldTheWeapons(const Md2Model &figure, const QString &character) {
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
            QVERIFY2(holds(figure.frames[40], right, weapon.frames[40]), name);
            QVERIFY2(holds(figure.frames[40], left, weapon.frames[40]), name);
        }
    }

    static void teamsAreToldApart(const Md2Model &figure, const QString &character) {
        std::array<QImage, teamNames.size()> skins;
        for (std::size_t team = 0; team < skins.size(); ++team) {
            skins[team].load(
                treeFile(character, QString::fromLatin1(teamNames[team]) + QStringLiteral(".png")));
            QCOMPARE(skins[team].size(), QSize(512, 512));
        }
        // What is seen of the figure from eight sides, in the colours of each team.
        std::array<std::vector<QRgb>, teamNames.size()> seen;
        FigureView view;
        view.size = QSize(64, 64);
        view.scale = 1.05F;
        for (int turn = 0; turn < 8; ++turn) {
            view.azimuth = previewAzimuth + 45.0F * static_cast<float>(turn);
            for (std::size_t team = 0; team < skins.size(); ++team) {
                FigurePainter painter(view);
                painter.add(figure, 0, skins[team]);
                for (int pixel = 0; pixel < 64 * 64; ++pixel) {
                    if (painter.covers(pixel % 64, pixel / 64))
                        seen[team].push_back(painter.picture().pixel(pixel % 64, pixel / 64));
                }
            }
        }
        const auto isBrown = [&](QRgb pixel) { return apart(pixel, view.ground) < 60; };
        for (std::size_t team = 0; team < skins.size(); ++team) {
            const auto covered = static_cast<double>(seen[team].size());
            const auto brown = std::count_if(seen[team].begin(), seen[team].end(), isBrown);
            QVERIFY2(static_cast<double>(brown) <= 0.2 * covered, teamNames[team]);
            for (std::size_t other = team + 1; other < skins.size(); ++other) {
                const double difference = std::inner_product(seen[team].begin(), seen[team].end(),
                                                             seen[other].begin(), 0.0, std::plus<>(), apart);
                QVERIFY2(difference >= 25 * covered, teamNames[team]);
            }
        }
        int coloured = 0;
        for (std::size_t i = 0; i < seen[0].size(); ++i)
            coloured += std::abs(qBlue(seen[0][i]) - qBlue(seen[2][i])) >= 50 ? 1 : 0;
        QVERIFY2(coloured >= 0.25 * static_cast<double>(seen[0].size()),
                 qPrintable(QString::number(coloured)));
    }
};

DRUVELK_TEST_MAIN(CharactersTest)
#include "CharactersTest.moc"
