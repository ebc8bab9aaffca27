#include "scene/LevelFile.h"
#include "scene/LevelText.h"
#include "scene/RandomLevel.h"
#include "support/druvelkTest.h"
#include "support/levelBytes.h"
#include "support/randomSeed.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <clocale>
#include <sys/stat.h>

namespace {

const QByteArray example = R"(<CISG>
<CISGGroup>
<BackgroundNode  groundTexture="./data/textures/grass1.jpg" waterTexture="./data/textures/water1.jpg" cubeTexture="./data/CubeMap/clean1/mount.jpg" birdTexture="./data/textures/parrot.jpg">
1 1 1 0.2 0.4 0.8 1 0.9 0.7 1 70 1 0 1 1 1 1 1 15 9.8 3</BackgroundNode>
<MeshNode randomGeography="1" texture="./data/textures/grass1.jpg" density="2" dimension="40"  color="1 1 1">
</MeshNode>
<CharSetNode>
<CharacterNode  name="john doe">
 0 0 0.5 0 12</CharacterNode>
<CharacterNode  name="Player">
 3 99 0.7 2 40</CharacterNode>
</CharSetNode>
</CISGGroup>
</CISG>
)";

QByteArray player(const QByteArray &values) {
    return "<CharacterNode  name=\"a\">\n" + values + "</CharacterNode>\n";
}

std::unique_ptr<LevelDocument> levelRead(const QByteArray &bytes, bool result = true) {
    auto level = std::make_unique<LevelDocument>();
    return readLevel(*level, bytes) == result ? std::move(level) : nullptr;
}

} // namespace

class LevelFileTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        // The decimal comma of a locale must not reach the file, nor be asked for when reading.
        QLocale::setDefault(QLocale(QLocale::German));
        std::setlocale(LC_ALL, "de_DE.UTF-8");
    }

    void theEditorsOwnNodesWriteTheExample() {
        LevelDocument level;
        level.complete();
        level.background->sunColor = {1, 0.9F, 0.7F, 1};
        level.mesh->setSize(40, 2);
        level.mesh->setRandomGeography(true);
        level.mesh->build();
        CharacterNode &john = *level.charSet->characters[4];
        john.active = john.placed = true;
        john.cell = 12;
        CharacterNode &other = *level.charSet->characters[9];
        const PlayerContent &like = john;
        static_cast<PlayerContent &>(other) = like;
        other.cell = 40;
        other.name = QStringLiteral("Player");
        other.modelIndex = 3;
        other.waitFor = CharacterNode::neverShoots;
        other.weaponValue = 0.7F;
        other.teamIndex = 2;
        QCOMPARE(levelBytes(level), example);
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("level.xml"));
        LevelDocument loaded;
        QVERIFY(saveLevel(level, file) && loaded.load(file));
        QCOMPARE(levelBytes(loaded), example);
    }

    /// Also whatever a few damaged bytes make of it: what is saved of that reads back the same.
    void anyLevelIsWrittenAndReadBack() {
        const quint32 seed = randomSeed();
        QRandomGenerator random(seed);
        int readDamaged = 0;
        for (quint32 i = 0; i < 500; ++i) {
            const RandomLevel made(seed + i);
            QCOMPARE(levelBytes(made.level), made.text());
            const auto level = levelRead(made.text());
            QVERIFY2(level, made.text());
            QCOMPARE(levelBytes(*level), made.text());
            level->complete();
            QCOMPARE(level->mesh->texture, made.level.mesh->texture);
            QCOMPARE(level->background->dayTime, made.level.background->dayTime);
            const auto &players = level->charSet->characters;
            QCOMPARE(int(players.size()), std::max(16, made.savedPlayers));
            for (int slot = 0; slot < int(players.size()); ++slot) {
                const CharacterNode &one = *players[std::size_t(slot)];
                QCOMPARE(one.active, slot < made.savedPlayers);
                QCOMPARE(one.placed, one.active && one.cell != -1);
            }

            QByteArray bytes = made.text();
            for (int damage = 0; damage < 3; ++damage) {
                const QByteArray marks("\x00<>&'\"/!]9 -\xc3", 13);
                bytes[random.bounded(bytes.size())] = marks[random.bounded(marks.size())];
                LevelDocument damaged;
                readDamaged += readLevel(damaged, bytes) ? 1 : 0;
                const QByteArray saved = levelBytes(damaged);
                const auto again = levelRead(saved);
                QVERIFY2(again, bytes);
                QCOMPARE(levelBytes(*again), saved);
            }
        }
        QVERIFY(readDamaged > 100);
    }

    void startsAndStopsWhereItMust() {
        const auto nodesOf = [](const QByteArray &bytes, bool complete) {
            const auto level = levelRead(bytes, complete);
            return level ? int(level->root.children.size()) : -1;
        };
        const QByteArray player = "<CharacterNode name='a'/>";
        const QByteArray group = "<CISGGroup>" + player + "</CISGGroup>";
        QCOMPARE(nodesOf("", false), 0);
        QCOMPARE(nodesOf("<Other>" + group + "</Other>", false), 0);
        QCOMPARE(nodesOf("<CISG>text</CISG>", false), 0);
        QCOMPARE(nodesOf("<CISG>" + player + group + "</CISG>", false), 0);
        QCOMPARE(nodesOf("<CISG><!-- -->" + group + "</CISG>", false), 0);
        QCOMPARE(
            nodesOf("<?xml version='1.0'?><!-- < -->\n<!DOCTYPE CISG><?a <b> ?>" + levelOf(player), true), 1);
        QCOMPARE(nodesOf("<!DOCTYPE CISG SYSTEM '[>'>" + levelOf(player) + "<!-- -->", true), 1);
        QCOMPARE(nodesOf("<CISG>\n " + group + "text<Nobody/></CISG>", true), 1);
        QCOMPARE(nodesOf("<CISG>" + group, false), 0);
        QCOMPARE(nodesOf(levelOf("a" + player + "<!-- <x> --><![CDATA[<x>]]><?x <y>?>" + player), true), 2);
        QCOMPARE(nodesOf(levelOf(player + "<meshNode/>" + player), false), 1);
        QCOMPARE(nodesOf(levelOf("<CISGGroup><Nobody/></CISGGroup>" + player), true), 2);
        QCOMPARE(nodesOf(levelOf("<CharacterNode><Nobody/></CharacterNode>"), true), 1);
    }

    void aFileThatIsNotThereIsNotRead() {
        LevelDocument level;
        QVERIFY(!level.load(QStringLiteral("./no/such/file")));
        QVERIFY(!level.load(QStringLiteral(".")));
        QVERIFY(!level.load({}));
        const QTemporaryDir folder;
        const QString fifo = folder.filePath(QStringLiteral("a\n\u001bfifo"));
        QCOMPARE(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
        // The name of a file may hold what would rule a terminal.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^cannot open \"[ -~]*\" ")));
        QVERIFY(!level.load(fifo));
    }

    void readsNamesOfManyEncodings() {
        const auto nameOf = [](const QByteArray &name, const QByteArray &before = {}) {
            const auto level = levelRead(before + levelOf("<CharacterNode name=\"" + name + "\"/>"));
            return level ? dynamic_cast<CharacterNode &>(*level->root.children.front()).name : "not read";
        };
        QCOMPARE(nameOf("\xc3\xa9\xf0\x9f\x98\x80"), QString::fromUcs4(U"\u00e9\U0001F600"));
        QCOMPARE(nameOf("\xc3\xa9", "\xef\xbb\xbf"), QStringLiteral("\u00e9"));
        QCOMPARE(nameOf("caf\xe9"), QStringLiteral("caf\u00e9"));
        QCOMPARE(nameOf("\xc3\xa9", "<?xml version='1.0' encoding='UTF-16'?>"), QStringLiteral("\u00e9"));
        QCOMPARE(nameOf("a", "<?xml version='1.0' encoding='x-what'?>"), QStringLiteral("a"));
        // A surrogate in UTF-8: then it is Latin-1.
        QCOMPARE(nameOf("\xed\xb0\x80"), QStringLiteral("\u00ed\u00b0\u0080"));
        QCOMPARE(nameOf("&gt;&apos;&#65;&#x1F600;"), QString::fromUcs4(U">'A\U0001F600"));
        QCOMPARE(nameOf("a\tb\r\nc&#10;"), QStringLiteral("a b c\n"));
    }

    void dropsWhatNoFileCanHold() {
        const std::array<char16_t, 11> name{u'a',   0,    1,      0x1F,   0xFFFE, 0xFFFF,
                                            0xD83D, u'b', 0xDE00, 0xD83D, 0xD83D};
        LevelDocument level;
        level.root.children.push_back(level.createNode(QStringLiteral("MeshNode")));
        level.mesh->texture = QString::fromUtf16(name.data(), name.size());
        QVERIFY(levelBytes(level).contains("texture=\"ab\""));
    }

    /// Against the grammar of decimals, and what the C library makes of them.
    void readsDecimalsAndNothingElse() {
        std::setlocale(LC_ALL, "C");
        const QRegularExpression integer("^[+-]?[0-9]+\\z");
        const QRegularExpression real("^[+-]?([0-9]+[.]?[0-9]*|[.][0-9]+)([eE][+-]?[0-9]+)?\\z");
        const QByteArrayList pieces = QByteArray("0 1 9 25 000 . . e E + - e-4 e38 e-45 e400 e-400 "
                                                 "e99999999999999999999 2147483647 -2147483648 3.41 "
                                                 "3.4028235e38 x f , inf nan 0x")
                                          .split(' ')
                                      << QByteArray(400, '0') << QByteArray(400, '9') << " ";
        std::mt19937 random(randomSeed());
        for (int i = 0; i < 20000; ++i) {
            QByteArray text;
            for (auto left = random() % 6; left > 0; --left) {
                text += pieces[static_cast<qsizetype>(random()) % pieces.size()];
            }
            const float value = std::strtof(text.constData(), nullptr);
            const bool isReal = real.match(text).hasMatch() && std::isfinite(value);
            float read = -7;
            QVERIFY2(parseReal(text.toStdString(), read) == isReal && read == (isReal ? value : -7),
                     text.constData());
            const double whole = std::strtod(text.constData(), nullptr);
            const bool isInteger =
                integer.match(text).hasMatch() && whole >= -2147483648.0 && whole <= 2147483647.0;
            int number = -7;
            QVERIFY2(parseInt(text.toStdString(), number) == isInteger && number == (isInteger ? whole : -7),
                     text.constData());
        }
    }

    void playersAreNamedByTheirCodes() {
        const auto level =
            levelRead(levelOf("<CharSetNode>" + player("1 0 0.3 1 1") + player("6 0 0.7 2 1") +
                              player("3 0 0.51 3 1") + player("4 0 0.49 4 1") + player("7 0 0.511 -1 1") +
                              player("9 x y 1") + "<CharacterNode/></CharSetNode>"));
        QVERIFY(level);
        QStringList names;
        for (const auto &one : level->charSet->characters) {
            names += one->model + u' ' + one->team + u' ' + one->weapon;
        }
        QCOMPARE(names.first(6), QStringList({"Hayden Green Small Gun", "Marine Red Annientatore",
                                              "Rat Personal Standard", "Dire blue Standard",
                                              "Terminator blue Annientatore", "Terminator Green Standard"}));
        QVERIFY(!level->charSet->characters[5]->placed);
        QCOMPARE(level->charSet->characters[6]->name, QStringLiteral("Player"));
        const auto bare = levelRead(levelOf("<BackgroundNode groundTexture='g'/>"));
        const BackgroundNode &node = *bare->background;
        QCOMPARE(node.groundTexture + node.waterTexture + node.cubeTexture + node.birdTexture, "g   ");
    }

    void aSetKeepsItsPlayersInFrontOfOtherNodes() {
        const QByteArray one = player(" 0 0 0.5 0 5");
        const QByteArray byHand = player("\t0 0\r\n0.5\t0 5");
        const QByteArray two = player(" 0 0 0.5 0 -1");
        const QByteArray group = "<CISGGroup>\n" + one + "</CISGGroup>\n";
        const auto level = levelRead(levelOf("<CharSetNode>a<!-- -->" + group + byHand + "a" + two +
                                             "<Nobody/>" + one + "</CharSetNode>" + one));
        QVERIFY(level);
        QCOMPARE(levelBytes(*level),
                 levelOf("<CharSetNode>\n" + one + two + group + "</CharSetNode>\n" + one));
        QCOMPARE(level->charSet->characters.size(), CharSetNode::slotCount);
    }
};

DRUVELK_TEST_MAIN(LevelFileTest)
#include "LevelFileTest.moc"
